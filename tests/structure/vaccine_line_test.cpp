// Line 13.2 of a report whose fiscal year came to have it after the report was built.
#include "structure/vaccine_line.h"

#include <map>

#include "common/sql_text.h"
#include "report/chart.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/store.h"
#include "report/upgrade.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

// The last year without the line, and the first with it.
const FiscalYear kBefore{Date_Of(2006, 2, 1), Date_Of(2007, 1, 30)};
const FiscalYear kFrom{Date_Of(2006, 2, 1), Date_Of(2007, 1, 31)};

// "A 13.2 Col_3" and its value, for every cell of the worksheets but B, which each calculation fills again.
std::map<std::string, std::string> Cells(const Report& report) {
    std::map<std::string, std::string> cells;
    std::vector<std::string> tables = Read_Items("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900;");
    tables.emplace_back("CostCenters");
    for (const std::string& table : tables) {
        if (table == "B") continue;
        const TableShape shape = db.TableDefs().Item(table).Shape();
        if (shape.Find_Field("LineNum") == nullptr) continue;
        for (const Row& row : db.Read_Rows(Sql("SELECT * FROM ", table, " ORDER BY LineNum;"))) {
            for (const FieldDef& field : shape.fields) {
                const Value& value = row[field.name];
                cells[Sql(table, " ", row["LineNum"].To_Text(), " ", field.name)] =
                    value.Is_Null() ? "Null" : value.To_Text();
            }
        }
    }
    cells["AllCCs"] = report.Read("SELECT AllCCs FROM Master;").To_Text();
    return cells;
}

// The line as the upgrade's statements state it: not to be divided, and without salaries, benefits and contracted
// services.
void Take_As_Stated(std::map<std::string, std::string>& cells) {
    cells["CostCenters 13.2 MaxLines"] = "0";
    for (const char* column : {"Col_1", "Col_2", "Col_4"}) cells[Sql("A 13.2 ", column)] = "Null";
}

// The identity editor's save, without the editor.
void Move_Year_End(const FiscalYear& year) {
    db.Execute(Sql("UPDATE Master SET FYStart=", year.start, ", FYEnd=", year.end, ";"));
    db.Execute(Sql("UPDATE S2 SET Col_1=", year.start, ", Col_2=", year.end, " WHERE LineNum=7;"));
    openReport.FYStart = year.start;
    openReport.FYEnd = year.end;
}

// The chain keeps a copy of the file.
void Upgrade() {
    ASSERT_TRUE(Finish_CRF());
    Upgrade_CRF();
}

void Enter_Costs(Report& report) {
    report.Cell("A", 1, 5, 300);
    report.Cell("A", 5, 5, 500);
    report.Cell("A", 6, 5, 9000);
    report.Cell("A", 13, 5, 400);
    report.Cell("A", 13.2, 5, 1000);
    report.Cell("B1", 5, "CC_100", 5);
    report.Cell("B1", 6, "CC_100", 30);
    report.Cell("B1", 13.2, "CC_100", 15);
    report.Cell("Cp3", 16.2, 3, 2500);
    report.Cell("Cp3", 16.2, 6, 800);
}

}  // namespace

TEST(VaccineLine, AReportThatGetsTheLineIsAsOneThatWasMadeWithIt) {
    std::map<std::string, std::string> made;
    {
        const Report report(kFrom);
        made = Cells(report);
    }
    Take_As_Stated(made);
    const Report report(kBefore);
    EXPECT_FALSE(CRF_Needs_Upgrade());
    Move_Year_End(kFrom);
    EXPECT_TRUE(CRF_Needs_Upgrade());
    Upgrade();
    EXPECT_EQ(Cells(report), made);
    EXPECT_FALSE(CRF_Needs_Upgrade());
    EXPECT_EQ(report.Read("SELECT Count(*) FROM B1;"), Value(28));
}

TEST(VaccineLine, ItsCostGoesThroughTheStepDownToTheSettlement) {
    std::map<std::string, std::string> made;
    Value totalOfB;
    {
        Report report(kFrom);
        Enter_Costs(report);
        for (int times = 0; times < 2; ++times) report.Calc();
        made = Cells(report);
        totalOfB = report.Cell("B", 13.2, "Total");
        EXPECT_GT(totalOfB.To_Double(), 1000);
    }
    Take_As_Stated(made);
    Report report(kBefore);
    Move_Year_End(kFrom);
    Upgrade();
    Enter_Costs(report);
    for (int times = 0; times < 2; ++times) report.Calc();
    EXPECT_EQ(report.Cell("B", 13.2, "Total"), totalOfB);
    EXPECT_CELL("Cp3", 16.2, 2, totalOfB);
    EXPECT_EQ(Cells(report), made);
}

TEST(VaccineLine, EachWorksheetThatLacksItGetsItAlone) {
    for (const auto& [table, line] : {std::pair{"A", "13.2"}, {"B1", "13.2"}, {"Cp3", "16.2"}}) {
        Report report(kFrom);
        const auto before = Cells(report);
        EXPECT_TRUE(Has_Vaccine_Line(table));
        report.Execute(Sql("DELETE FROM ", table, " WHERE LineNum=", line, ";"));
        EXPECT_FALSE(Has_Vaccine_Line(table)) << table;
        EXPECT_FALSE(Chart_Needs_Upgrade());
        Upgrade();
        auto expected = before;
        if (std::string_view(table) == "A") {
            Take_As_Stated(expected);
            expected["CostCenters 13.2 MaxLines"] = "9";
        }
        EXPECT_EQ(Cells(report), expected) << table;
    }
}

TEST(VaccineLine, StatisticsThatWereKeyedStay) {
    Report report(kBefore);
    report.Cell("B1", 6, "CC_100", 30);
    report.Cell("B1", 12, "CC_300", 7.5);
    Move_Year_End(kFrom);
    Upgrade();
    EXPECT_CELL("B1", 6, "CC_100", 30.0);
    EXPECT_CELL("B1", 12, "CC_300", 7.5);
    EXPECT_CELL("B1", 13.2, "CC_500", 0.0);
    EXPECT_CELL("B1", 2, "CC_300", Null);
}

TEST(VaccineLine, YearsBeforeItDoNotAskForIt) {
    Report report(kFrom);
    for (const char* table : {"A", "B1"}) report.Execute(Sql("DELETE FROM ", table, " WHERE LineNum=13.2;"));
    Move_Year_End(kBefore);
    EXPECT_TRUE(Has_Vaccine_Line("A"));
    EXPECT_FALSE(CRF_Needs_Upgrade());
}

}  // namespace tallmar
