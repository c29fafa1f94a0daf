#include "calc/w_a.h"

#include <array>
#include <map>
#include <random>

#include "calc/w_a4.h"
#include "calc/w_a5.h"
#include "calc/w_a6.h"
#include "support/report_test.h"

namespace tallmar {
namespace {

class WorksheetA : public ReportTest {
  protected:
    void Begin_A(const FiscalYear& year) {
        Begin(year, {"A", "A4", "A5", "A6pA", "A6pB"});
        if (openReport.FYStart < kCostLimitsEnd) {
            for (const char* item : {"A1", "A2", "A3"}) Build(item);
        }
    }
    static void Reclassify(int line, const char* up, const char* down, int amount) {
        Add_Row("A4", "LineNum, Col_1, Col_3, Col_4, Col_6, Col_7",
                Sql(line, ", 'A', ", up, ", ", amount, ", ", down, ", ", amount));
    }
};

TEST_F(WorksheetA, RowsAreTheChartAndLine29) {
    Begin_A(fy2016);
    EXPECT_EQ(Lines("A"), "1 2 3 4 5 6 7 8 9 10 11 12 13 13.2 14 15 16 17 18 19 20 21 22 23 23.2 29");
    EXPECT_CELL("A", 5, "CCName", "Administrative & General");
    EXPECT_CELL("A", 23.2, "CCGroup", 2320);
    EXPECT_CELL("A", 29, "CCName", "Total");
    EXPECT_SHADED("A", 29, "CCNum");
    EXPECT_SHADED("A", 29, "CCGroup");
}

TEST_F(WorksheetA, CapitalLinesTakeNoSalariesBenefitsAndContracts) {
    Begin_A(fy2016);
    for (const char* shaded : {"Col_1", "Col_2", "Col_4"}) {
        EXPECT_SHADED("A", 1, shaded);
        EXPECT_SHADED("A", 2, shaded);
        EXPECT_CELL("A", 3, shaded, 0);
        EXPECT_CELL("A", 29, shaded, 0);
    }
    for (const char* open : {"Col_3", "Col_5", "Col_6", "Col_7", "Col_8", "Col_9", "Col_10"}) {
        EXPECT_CELL("A", 1, open, 0);
    }
}

TEST_F(WorksheetA, FromOctober2000OnTypedSalariesStay) {
    Begin_A(Year("10/1/2000", "9/30/2001"));
    Build("A1");
    Cell("A1", 6, 9, 777);
    Cell("A", 6, 1, 1000);
    Calc_A();
    EXPECT_CELL("A", 6, 1, 1000);
    EXPECT_CELL("A", 6, 10, 1000);
}

TEST_F(WorksheetA, BeforeOctober2000CompensationGivesThreeColumns) {
    Begin_A(Year("9/30/2000", "9/29/2001"));
    Cell("A", 6, 1, 1);
    Cell("A1", 6, 9, 300);
    Cell("A2", 6, 9, 40);
    Cell("A3", 6, 9, 5);
    Cell("A", 6, 3, 1000);
    Calc_A();
    EXPECT_CELL("A", 6, 1, 300);
    EXPECT_CELL("A", 6, 2, 40);
    EXPECT_CELL("A", 6, 4, 5);
    EXPECT_CELL("A", 6, 6, 1345);
}

TEST_F(WorksheetA, CapitalLinesStillAddUpWhereCompensationIsShaded) {
    Begin_A(fy1999);
    Cell("A", 1, 1, 9);
    Cell("A", 1, 5, 250);
    Calc_A();
    EXPECT_SHADED("A", 1, 1);
    EXPECT_CELL("A", 1, 6, 250);
    EXPECT_CELL("A", 1, 10, 250);
    EXPECT_CELL("A", 29, 1, 0);
}

TEST_F(WorksheetA, ReclassificationOntoItsOwnLineNetsToZero) {
    Begin_A(fy2016);
    Reclassify(1, "6", "6", 500);
    Calc_A();
    EXPECT_CELL("A", 6, 7, 0);
}

TEST_F(WorksheetA, AllReclassificationsOfALineAddUp) {
    Begin_A(fy2016);
    Reclassify(1, "6", "5", 500);
    Reclassify(2, "6", "7", 30);
    Reclassify(3, "5", "6", 4);
    Calc_A();
    EXPECT_CELL("A", 6, 7, 526);
    EXPECT_CELL("A", 5, 7, -496);
    EXPECT_CELL("A", 7, 7, -30);
    EXPECT_CELL("A", 29, 7, 0);
}

TEST_F(WorksheetA, IncreaseWithoutOtherSidePostsTheIncreaseOnly) {
    Begin_A(fy2016);
    Add_Row("A4", "LineNum, Col_1, Col_3, Col_4, Col_7", "1, 'A', 6, 500, 900");
    Calc_A();
    EXPECT_EQ(Lines("A", "Col_7 <> 0"), "6 29");
    EXPECT_CELL("A", 29, 7, 500);
}

TEST_F(WorksheetA, ReclassificationsBehindLine29Post) {
    Begin_A(fy2016);
    Add_Row("A4", "LineNum, Col_1, Col_3, Col_4", "29.01, 'A', 6, 500");
    Cell("A4", 30, 3, 6);
    Cell("A4", 30, 4, 10000);
    Calc_A();
    EXPECT_CELL("A", 6, 7, 500);
}

TEST_F(WorksheetA, ReferenceToALineThatIsNotThereIsSilent) {
    Begin_A(fy2016);
    Reclassify(1, "6.01", "99", 500);
    Calc_A();
    EXPECT_EQ(Lines("A", "Col_7 <> 0"), "");
}

TEST_F(WorksheetA, LineFiveOfA5NeverReachesA) {
    Begin_A(fy2016);
    Cell("A5", 5, 2, 500);
    Cell("A5", 5, 4, 6);
    Cell("A5", 1, 2, -20);
    Cell("A5", 1, 4, 6);
    Calc_A();
    EXPECT_CELL("A", 6, 9, -20);
}

TEST_F(WorksheetA, UserLinesOfA5PostAndItsTotalDoesNot) {
    Begin_A(fy2016);
    Add_Row("A5", "LineNum, Col_2, Col_4", "20.99, 70, 6");
    Cell("A5", 21, 2, 70);
    Cell("A5", 21, 4, 6);
    Calc_A();
    EXPECT_CELL("A", 6, 9, 70);
}

TEST_F(WorksheetA, RelatedOrganizationAmountReachesAOnce) {
    Begin_A(fy2016);
    Add_Row("A6pB", "LineNum, Col_1, Col_4, Col_5", "1, 6, 1000, 850");
    Calc_A6pB();
    Calc_A5();
    Cell("A5", 5, 4, 6);
    Calc_A();
    EXPECT_CELL("A5", 5, 2, -150);
    EXPECT_CELL("A", 6, 9, -150);
}

TEST_F(WorksheetA, TherapyAdjustmentsPostToTheirCostCenters) {
    Begin_A(fy2016);
    Cell("A5", 10, 2, -1);
    Cell("A5", 10.1, 2, -2);
    Cell("A5", 10.2, 2, -3);
    Calc_A();
    EXPECT_EQ(List("A", 9, "LineNum In(7,8,9)"), "-1 -2 -3");
}

TEST_F(WorksheetA, NegativeTotalsStay) {
    Begin_A(fy2016);
    Cell("A", 6, 5, -100);
    Calc_A();
    EXPECT_CELL("A", 6, 10, -100);
    EXPECT_CELL("A", 29, 10, -100);
}

TEST_F(WorksheetA, SublinesCountInTheTotal) {
    Begin(fy2016);
    Add_Cost_Center(5.01_cur, "Billing");
    for (const char* item : {"A", "A4", "A5", "A6pB"}) Build(item);
    Cell("A", 5.01, 5, 10);
    Cell("A", 13.2, 5, 200);
    Cell("A", 29, 5, 9999);
    Calc_A();
    EXPECT_CELL("A", 29, 5, 210);
    EXPECT_CELL("A", 29, 10, 210);
}

// The form's instructions in plain arithmetic, without a statement in sight.
struct Posting {
    Currency line, to;
    std::optional<Currency> amount;
};

class PlainWorksheetA {
  public:
    using Columns = std::array<std::optional<Currency>, 11>;  // by column, from 1
    std::map<Currency, Columns> lines;

    void Calculate(const std::vector<Posting>& up, const std::vector<Posting>& down, const std::vector<Posting>& a5,
                   const std::vector<Posting>& a6) {
        for (auto& [line, row] : lines) row[7] = row[9] = Currency{};
        for (const Posting& p : up) Post(p, 7, 1, true);
        for (const Posting& p : down) Post(p, 7, -1, true);
        for (const Posting& p : a5) Post(p, 9, 1, p.line != 5_cur);
        for (const Posting& p : a6) Post(p, 9, -1, true);
        for (auto& [line, row] : lines) {
            row[6] = Currency{};
            for (std::size_t c = 1; c <= 5; ++c) *row[6] += row[c].value_or(Currency{});
            row[8] = *row[6] + *row[7];
            row[10] = *row[8] + *row[9];
        }
    }
    Currency Total(std::size_t column) const {
        Currency total;
        for (const auto& [line, row] : lines) total += row[column].value_or(Currency{});
        return total;
    }

  private:
    void Post(const Posting& p, std::size_t column, int sign, bool counts) {
        const auto found = lines.find(p.to);
        if (!counts || found == lines.end()) return;
        const Currency amount = p.amount.value_or(Currency{});
        *found->second[column] += sign > 0 ? amount : -amount;
    }
};

class RandomWorksheetA : public WorksheetA, public testing::WithParamInterface<unsigned> {
  protected:
    std::mt19937 random_{GetParam()};

    int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    // Mostly whole dollars, at times with cents, at times shaded.
    std::optional<Currency> Amount() {
        if (Number(0, 9) == 0) return std::nullopt;
        return Currency::From_Scaled(std::int64_t{Number(-9'999'999, 9'999'999)} * (Number(0, 3) == 0 ? 100 : 10'000));
    }
    Currency Reference() {
        static constexpr std::array kLines{1_cur, 3_cur, 5_cur, 5.01_cur, 6_cur, 13.2_cur, 23_cur, 23.2_cur, 27_cur};
        return kLines[static_cast<std::size_t>(Number(0, static_cast<int>(kLines.size()) - 1))];
    }
    static Value Amount_Of(const std::optional<Currency>& amount) { return amount ? Value(*amount) : Value(Null); }
};

TEST_P(RandomWorksheetA, AgreesWithPlainArithmetic) {
    Begin(fy2016);
    Add_Cost_Center(5.01_cur, "Billing");
    for (const char* item : {"A", "A4", "A5", "A6pB"}) Build(item);

    PlainWorksheetA plain;
    Recordset chart = db.OpenRecordset("SELECT LineNum FROM CostCenters;", RecordsetType::Snapshot);
    for (; !chart.Eof(); chart.MoveNext()) {
        const Currency line = chart["LineNum"].To_Currency();
        for (std::size_t c = 1; c <= 5; ++c) {
            const std::optional<Currency> amount = plain.lines[line][c] = Amount();
            Cell("A", line, static_cast<int>(c), Amount_Of(amount));
        }
    }
    std::vector<Posting> up, down, a5, a6;
    for (int n = Number(0, 29); n > 0; --n) {
        up.push_back({Currency(n), Reference(), Amount()});
        down.push_back({Currency(n), Reference(), Amount()});
        Add_Row("A4", "LineNum, Col_3, Col_4, Col_6, Col_7",
                Sql(n, ",", up.back().to, ",", Amount_Of(up.back().amount), ",", down.back().to, ",",
                    Amount_Of(down.back().amount)));
    }
    for (const Currency line : {1_cur, 4_cur, 5_cur, 10_cur, 10.1_cur, 12_cur}) {
        a5.push_back({line, Reference(), Amount()});
        Cell("A5", line, 4, a5.back().to);
        Cell("A5", line, 2, Amount_Of(a5.back().amount));
    }
    for (int n = 1; n <= 3; ++n) {
        a6.push_back({Currency(n), Reference(), Amount()});
        Add_Row("A6pB", "LineNum, Col_1, Col_6", Sql(n, ",", a6.back().to, ",", Amount_Of(a6.back().amount)));
    }
    // What stood on A-5's other therapy line has an amount of 0.

    Calc_A();
    plain.Calculate(up, down, a5, a6);

    for (const auto& [line, row] : plain.lines) {
        for (std::size_t c = 1; c <= 10; ++c) {
            EXPECT_EQ(Cell("A", line, static_cast<int>(c)), Amount_Of(row[c]))
                << "line " << line.To_Text() << " column " << c;
        }
    }
    for (std::size_t c = 1; c <= 10; ++c) {
        EXPECT_EQ(Cell("A", 29, static_cast<int>(c)), Value(plain.Total(c))) << "column " << c;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWorksheetA, testing::Range(1U, 41U));

}  // namespace
}  // namespace tallmar
