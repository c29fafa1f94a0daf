#include "calc/a83_parts.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "calc/worksheet.h"
#include "common/numbers.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

// Roundings of the form.
double Dollars(double x) {
    return Round_Half(x, 0);
}
double Rate(double x) {
    return Round_Half(x, 2);
}
double Share(double x) {
    return Round_Half(x, 6);
}

constexpr double kHoursPerWeek = 15;
constexpr double kWorkyearHours = 2080;

// The lines of an instance, read once: a Null cell counts as 0.
class Lines {
  public:
    Lines(const char* stem, char discipline) {
        Recordset rows = db.OpenRecordset(Sql("SELECT * FROM ", stem, std::string(1, discipline), " ORDER BY LineNum"),
                                          RecordsetType::Snapshot);
        for (; !rows.Eof(); rows.MoveNext()) {
            std::array<double, 5>& cells = lines_[Nz_Currency(rows["LineNum"])];
            for (int i = 2; i < rows.Fields_Count(); ++i)
                cells[static_cast<std::size_t>(i - 1)] = Nz_Double(rows.Fields(i).Value());
        }
    }
    double operator()(int line, std::size_t column) const {
        const auto found = lines_.find(Currency(line));
        return found == lines_.end() ? 0 : found->second[column];
    }

  private:
    std::map<Currency, std::array<double, 5>> lines_;
};

void Store(const char* stem, char discipline, int line, int column, double value) {
    db.Execute(Sql("UPDATE ", stem, std::string(1, discipline), " SET Col_", column, "=", value,
                   " WHERE LineNum = ", line, ";"));
}

}  // namespace

void Calc_A83p1(char discipline) {
    const Lines p1("A83p1", discipline);
    Store("A83p1", discipline, 2, 1, p1(1, 1) * kHoursPerWeek);
    const double therapists = p1(8, 2) * 0.5;
    const double assistants = p1(8, 3) * 0.5;
    db.Execute(Sql("UPDATE A83p1", std::string(1, discipline), " SET Col_1=", therapists, ", Col_2=", therapists,
                   ", Col_3=", assistants, " WHERE LineNum = 9;"));
}

void Calc_A83p2(char discipline) {
    const Lines p1("A83p1", discipline);
    const auto allowance = [&](std::size_t category) { return Dollars(p1(7, category) * p1(8, category)); };
    const double supervisors = allowance(1), therapists = allowance(2), assistants = allowance(3), aides = allowance(4);
    const double subtotal = supervisors + therapists + assistants;
    const double total = subtotal + aides;
    const double hours = p1(7, 1) + p1(7, 2) + p1(7, 3);
    const double minimum = p1(2, 1);
    double weightedRate = 0, weightedAllowance = 0, equivalency = total;
    if (!(hours > minimum)) {
        weightedRate = hours == 0 ? 0 : Rate(subtotal / hours);
        weightedAllowance = Dollars(minimum * weightedRate);
        equivalency = aides + weightedAllowance;
    }
    const std::array<double, 9> results{supervisors, therapists,   assistants,        subtotal,   aides,
                                        total,       weightedRate, weightedAllowance, equivalency};
    int line = 12;
    for (const double result : results) Store("A83p2", discipline, line++, 1, result);
}

void Calc_A83p3(char discipline) {
    const Lines p1("A83p1", discipline);
    const double therapists = Dollars(p1(3, 1) * p1(9, 2));
    const double assistants = Dollars(p1(4, 1) * p1(9, 3));
    const double standardExpense = Dollars(p1(5, 1) * (p1(3, 1) + p1(4, 1)));
    const double optionalTherapists = Dollars(p1(8, 2) * (p1(10, 1) + p1(10, 2)));
    const double optionalAssistants = Dollars(p1(8, 3) * p1(10, 3));
    const double optionalExpense = Dollars(p1(6, 1) * (p1(11, 1) + p1(11, 2) + p1(11, 3)));
    const double standard = therapists + assistants;
    const double optional = optionalTherapists + optionalAssistants;
    const std::array<double, 11> results{therapists,
                                         assistants,
                                         standard,
                                         standardExpense,
                                         optionalTherapists,
                                         optionalAssistants,
                                         optional,
                                         optionalExpense,
                                         standard + standardExpense,
                                         optional + standardExpense,
                                         optional + optionalExpense};
    int line = 21;
    for (const double result : results) Store("A83p3", discipline, line++, 1, result);
}

void Calc_A83p4(char discipline) {
    const Lines p1("A83p1", discipline);
    const Lines p4("A83p4", discipline);
    const double overtime = p4(32, 1) + p4(32, 2) + p4(32, 3);
    const double workyear = p4(36, 4);
    Store("A83p4", discipline, 32, 4, overtime);
    if (overtime == 0 || overtime >= kWorkyearHours || workyear > kWorkyearHours) {
        const std::string table = std::string("A83p4") + discipline;
        db.Execute(Sql("UPDATE ", table, " SET Col_1=0, Col_2=0, Col_3=0 WHERE LineNum >= 33;"));
        db.Execute(Sql("UPDATE ", table, " SET Col_4=0 WHERE LineNum >= 33 AND LineNum <> 36;"));
        return;
    }
    double allowances = 0;
    // Therapists, assistants, aides: one category to the right on line 8 of Part 1.
    for (int category = 1; category <= 3; ++category) {
        const auto column = static_cast<std::size_t>(category);
        const double rate = p1(8, column + 1);
        const double hours = p4(32, column);
        const double overtimeRate = Rate(1.5 * rate);
        const double total = Dollars(hours * overtimeRate);
        const double share = Share(hours / overtime);
        const double allocated = Rate(share * workyear);
        const double limitation = Dollars(allocated * rate);
        const double maximum = std::min(total, limitation);
        const double included = Dollars(hours * rate);
        const double allowance = std::max(maximum - included, 0.0);
        const std::array<double, 9> results{overtimeRate, total,   share,    allocated, rate,
                                            limitation,   maximum, included, allowance};
        int line = 33;
        for (const double result : results) Store("A83p4", discipline, line++, category, result);
        allowances += allowance;
    }
    Store("A83p4", discipline, 41, 4, allowances);
}

void Calc_A83p5(char discipline) {
    const Lines p2("A83p2", discipline), p3("A83p3", discipline), p4("A83p4", discipline), p5("A83p5", discipline);
    const double salary = p2(20, 1);
    const double travel = p3(29, 1) != 0 ? p3(29, 1) : p3(30, 1) != 0 ? p3(30, 1) : p3(31, 1);
    const double overtime = p4(41, 4);
    const double allowance = salary + travel + overtime + p5(45, 1) + p5(46, 1);
    Store("A83p5", discipline, 42, 1, salary);
    Store("A83p5", discipline, 43, 1, travel);
    Store("A83p5", discipline, 44, 1, overtime);
    Store("A83p5", discipline, 47, 1, allowance);
    Store("A83p5", discipline, 49, 1, std::max(p5(48, 1) - allowance, 0.0));
}

}  // namespace tallmar
