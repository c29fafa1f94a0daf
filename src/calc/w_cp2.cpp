#include <array>
#include <vector>

#include "calc/w_c.h"
#include "calc/worksheet.h"
#include "common/numbers.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/code_lists.h"
#include "report/registry.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 250},
    Column{"Col_4", FieldType::Double},   // cost per visit; the limit on lines 8 to 13
    Column{"Col_5", FieldType::Double},   // Part A visits
    Column{"Col_6", FieldType::Double},   // Part B visits subject to deductibles and coinsurance
    Column{"Col_7", FieldType::Double},   // Part B visits not subject to them
    Column{"Col_8", FieldType::Double},   // Part A cost
    Column{"Col_9", FieldType::Double},   // Part B cost subject
    Column{"Col_10", FieldType::Double},  // Part B cost not subject
    Column{"Col_11", FieldType::Double},  // total
};
constexpr Column kTotalPost{"Col_1101", FieldType::Double};  // total post 9/30/2000, of a split period only

constexpr std::array<FixedRow, 12> kSplitVisits{{
    {1_cur, "Skilled Nursing - pre 10/1/2000", ""},
    {1.01_cur, "Skilled Nursing - post 9/30/2000", ""},
    {2_cur, "Physical Therapy - pre 10/1/2000", ""},
    {2.01_cur, "Physical Therapy - post 9/30/2000", ""},
    {3_cur, "Occupational Therapy - pre 10/1/2000", ""},
    {3.01_cur, "Occupational Therapy - post 9/30/2000", ""},
    {4_cur, "Speech Pathology - pre 10/1/2000", ""},
    {4.01_cur, "Speech Pathology - post 9/30/2000", ""},
    {5_cur, "Medical Social Services - pre 10/1/2000", ""},
    {5.01_cur, "Medical Social Services - post 9/30/2000", ""},
    {6_cur, "Home Health Aide Svcs - pre 10/1/2000", ""},
    {6.01_cur, "Home Health Aide Svcs - post 9/30/2000", ""},
}};

}  // namespace

constexpr std::array<FixedRow, 14> kLinesCp2{{
    {1_cur, "Skilled Nursing", ""},
    {2_cur, "Physical Therapy", ""},
    {3_cur, "Occupational Therapy", ""},
    {4_cur, "Speech Pathology", ""},
    {5_cur, "Medical Social Services", ""},
    {6_cur, "Home Health Aide Svcs", ""},
    {7_cur, "Total (Sum of lines 1-6)", "", LineKind::Total},
    {8_cur, "Skilled Nursing", ""},
    {9_cur, "Physical Therapy", ""},
    {10_cur, "Occupational Therapy", ""},
    {11_cur, "Speech Pathology", ""},
    {12_cur, "Medical Social Services", ""},
    {13_cur, "Home Health Aide Svcs", ""},
    {14_cur, "Total (Sum of lines 8-13)", "", LineKind::Total},
}};

namespace {

// The visits of a split period are keyed in two lines a discipline; the others are above the totals and the limits.
constexpr std::size_t kVisitLines = 6;

// What begins at 0; the rest is shaded.
constexpr std::array kDefaults{
    " SET Col_5=0, Col_6=0, Col_8=0, Col_9=0;",
    " Set Col_4=0 Where LineNum In (8, 9, 10, 11, 12, 13);",
    " Set Col_11=0 Where LineNum Not In(1.01, 2.01, 3.01, 4.01, 5.01, 6.01);",
};
constexpr const char* kSplitDefault = " SET Col_1101=0 WHERE LineNum In(1.01, 2.01, 3.01, 4.01, 5.01, 6.01, 7);";

constexpr std::array<std::string_view, 5> kTotals{"Col_5", "Col_6", "Col_8", "Col_9", "Col_11"};
constexpr std::array<std::string_view, 1> kTotalsPost{"Col_1101"};

constexpr const char* kLimitLines = " WHERE LineNum>=8 And LineNum<14;";
constexpr const char* kNoLimits =
    " SET Col_4 = 0, Col_5 = 0, Col_6 = 0, Col_7 = 0, Col_8 = 0, Col_9 = 0, Col_10 = 0, Col_11 = 0";

// What a person keys: visits and costs, and the limit of a limitation line.
constexpr std::array<std::string_view, 4> kKeyed{"Col_5", "Col_6", "Col_7", "Col_10"};
constexpr std::array<std::string_view, 3> kKeyedLimits{"Col_4", "Col_7", "Col_10"};

constexpr std::size_t kDisciplines = 6;

struct Visits {
    double partA = 0, partB = 0;
};

bool Is_Split_Table(std::string_view table) {
    const TableShape shape = db.TableDefs().Item(table).Shape();
    return !shape.fields.empty() && shape.fields.back().name == kTotalPost.name;
}

void Add_Keyed(const std::string& table, Currency line, std::span<const std::string_view> fields, const Row& from) {
    for (const std::string_view field : fields) {
        if (from[field].Is_Null()) continue;
        db.Execute(Sql("UPDATE ", table, " SET ", field, " = ", Guarded(field), " + ", from[field],
                       " WHERE LineNum = ", line, ";"));
    }
}

// The cost of every visit line. The limitation lines take the visits of the cost lines before 10/1/2000.
void Cost_Visits(const std::string& table, bool split) {
    std::array<Visits, kDisciplines> visits{};
    double rate = 0;
    Recordset rows = db.OpenRecordset(Sql("SELECT * FROM ", table, " WHERE LineNum NOT IN(0,7,14) ORDER BY LineNum;"));
    for (; !rows.Eof(); rows.MoveNext()) {
        const Currency line = Nz_Currency(rows["LineNum"]);
        const auto whole = static_cast<std::size_t>(line.Int().To_Double());
        Visits current{Nz_Double(rows["Col_5"]), Nz_Double(rows["Col_6"])};
        double lineRate = Nz_Double(rows["Col_4"]);
        rows.Edit();
        if (!line.Is_Whole()) {
            lineRate = rate;
            rows.Fields("Col_4").Set(rate);
        } else if (line < 7_cur) {
            visits[whole - 1] = current;
            rate = lineRate;
        } else {
            current = visits[whole - 8];
            rows.Fields("Col_5").Set(current.partA);
            rows.Fields("Col_6").Set(current.partB);
        }
        const double costA = Round_Half(lineRate * current.partA, 0);
        const double costB = Round_Half(lineRate * current.partB, 0);
        const Value total = Round_Half(costA + costB, 0);
        rows.Fields("Col_8").Set(costA);
        rows.Fields("Col_9").Set(costB);
        rows.Fields("Col_11").Set(line.Is_Whole() ? total : Value(Null));
        if (split) rows.Fields("Col_1101").Set(line.Is_Whole() ? Value(Null) : total);
        rows.Update();
        The_Platform().Do_Events();
    }
    rows.Close();
}

}  // namespace

std::string Cp2_Item_Of_MSA(std::string_view code) {
    return "Cp2m" + MSA_Code(Value(code));
}

std::string Cp2_Item_Of_CBSA(std::string_view code) {
    return "Cp2c" + CBSA_Code(Value(code));
}

void Build_Cp2(const Item& item) {
    const std::string& table = item.Name();
    std::vector<Column> columns(kColumns.begin(), kColumns.end());
    if (Is_Split_Period()) columns.push_back(kTotalPost);
    Create_Table(item.Name(), columns);
    const std::span<const FixedRow> lines(kLinesCp2);
    if (Is_Split_Period()) Insert_Rows(item, "LineNum, Description", kSplitVisits);
    Insert_Rows(item, "LineNum, Description", Is_Split_Period() ? lines.subspan(kVisitLines) : lines);
    for (const char* step : kDefaults) db.Execute(Sql("UPDATE ", table, step));
    if (Is_Split_Period()) db.Execute(Sql("UPDATE ", table, kSplitDefault));
    Finish_Table(item, "ndx" + table);
}

void Calc_Cp2(const Item& item) {
    const std::string& table = item.Name();
    const bool split = Is_Split_Table(table);

    db.Execute(Sql("UPDATE ", table, " INNER JOIN Cp1 ON ", table, ".LineNum = Int(Cp1.LineNum) SET ", table,
                   ".Col_4 = IIf(IsNull(Cp1.Col_4),0,Cp1.Col_4) WHERE Cp1.LineNum In (1, 2, 3, 4, 5, 6);"));
    Cost_Visits(table, split);
    db.Execute(Sql("UPDATE ", table, " SET Col_4=Null WHERE LineNum = 7;"));
    Store_Totals(item, kTotals, "LineNum < 7", "LineNum = 7");
    if (split) Store_Totals(item, kTotalsPost, "LineNum < 7", "LineNum = 7");
    if (!Is_Cost_Limit_Period()) {
        db.Execute(Sql("UPDATE ", table, kNoLimits, split ? ", Col_1101 = 0" : "", kLimitLines));
    }
    Store_Totals(item, kTotals, "LineNum In(8, 9, 10, 11, 12, 13)", "LineNum = 14");
}

bool Cp2_Fits_Period(const Item& item) {
    return Is_Split_Table(item.Name()) == Is_Split_Period();
}

void Fit_Cp2(const Item& item) {
    const std::string& table = item.Name();
    const std::vector<Row> visits =
        db.Read_Rows(Sql("SELECT * FROM ", table, " WHERE LineNum>=1 And LineNum<7 ORDER BY LineNum;"));
    const std::vector<Row> limits = db.Read_Rows(Sql("SELECT * FROM ", table, kLimitLines));
    db.TableDefs().Delete(table);
    Build_Cp2(item);
    const bool split = Is_Split_Period();
    for (const Row& row : visits) {
        const Currency line = row["LineNum"].To_Currency();
        Add_Keyed(table, split ? line : line.Int(), kKeyed, row);
    }
    for (const Row& row : limits) Add_Keyed(table, row["LineNum"].To_Currency(), kKeyedLimits, row);
}

}  // namespace tallmar
