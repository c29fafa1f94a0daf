// Every worksheet of the older and of the newer forms: its lines, and the calculation of a report of them all.
#include "support/report_test.h"

namespace tallmar {
namespace {

class WorksheetFamilies : public ReportTest, public testing::WithParamInterface<const char*> {};

TEST_P(WorksheetFamilies, LineNumbersAreUnique) {
    Begin(fy1999, {GetParam()});
    const TableShape shape = db.TableDefs().Item(GetParam()).Shape();
    if (shape.Find_Field("LineNum") == nullptr) {
        EXPECT_STREQ(GetParam(), "A6pA");
        return;
    }
    ASSERT_EQ(shape.indexes.size(), 1U);
    EXPECT_TRUE(shape.indexes[0].unique);
    EXPECT_EQ(shape.indexes[0].fields, std::vector<std::string>{"LineNum"});
}

INSTANTIATE_TEST_SUITE_P(Built, WorksheetFamilies,
                         testing::Values("A", "A1", "A2", "A3", "A4", "A5", "A6pA", "A6pB", "A6pC", "A7", "Sp2", "S2",
                                         "S21", "S3p1", "S3p2", "S3p3", "S3p4"),
                         [](const auto& test) { return std::string(test.param); });

class NewReport : public testing::TestWithParam<FiscalYear> {};

// Every worksheet's table but the logs, row by row, in one text.
std::string All_Cells() {
    std::string text;
    Recordset items = db.OpenRecordset("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY Item;");
    for (; !items.Eof(); items.MoveNext()) {
        const std::string item = items["Item"].To_Text();
        text += '\n' + item;
        Recordset rows = db.OpenRecordset(Sql("SELECT * FROM ", item, ";"));
        for (; !rows.Eof(); rows.MoveNext()) {
            for (int i = 0; i < rows.Fields_Count(); ++i) text += '|' + rows.Fields(i).Value().To_Text();
        }
    }
    return text;
}

TEST_P(NewReport, CalculatesTwiceAlikeAndWithoutMessages) {
    Report report(GetParam());
    report.Cell("A", 6, 5, 1000);
    report.Cell("A7", 1, 1, 500);
    report.Calc();
    EXPECT_CELL("A", 29, 10, 1000);
    EXPECT_CELL("A7", 7, 6, 500);
    const std::string once = All_Cells();
    report.Calc();
    EXPECT_EQ(All_Cells(), once);
}

INSTANTIATE_TEST_SUITE_P(Editions, NewReport, testing::Values(fy1999, fy2000, fy2016),
                         [](const auto& test) { return std::to_string(To_Civil(test.param.end).year); });

}  // namespace
}  // namespace tallmar
