// A report that is keyed in the window is, table by table, the report that the command line makes of the same cells.
#include <QMdiSubWindow>
#include <map>

#include "golden/dump_file.h"
#include "report/open_report.h"
#include "report/store.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"

namespace tallmar {

namespace {

class KeyedReport : public testing::TestWithParam<Sample> {
  protected:
    void Key_Worksheet(const std::string& item, const std::vector<CellText>& cells);
    void Key_Cell(const CellText& cell);

    Desk desk;
};

void KeyedReport::Key_Cell(const CellText& cell) {
    const bool hasLines = !cell.line.empty();
    const Currency line = hasLines ? *Currency::From_Text(cell.line) : Currency();
    for (int i = 0; desk.Form().Model().Row_Of(line) < 0 && i < 60; ++i) desk.Push("cmdAdd");
    const GridColumn* column = desk.Grid().Entries().Form().Find_Column(cell.column);
    ASSERT_NE(column, nullptr);
    ASSERT_TRUE(desk.At(line, column->field)) << "the cursor stays at " << desk.Cursor();
    desk.Type_Over(cell.value);
    Desk::Press(Qt::Key_Return);
}

// Rows that are not there yet are added, and each row is left for the next.
void KeyedReport::Key_Worksheet(const std::string& item, const std::vector<CellText>& cells) {
    desk.Edit(item);
    for (const CellText& cell : cells) {
        SCOPED_TRACE(item + " " + cell.line + " " + cell.column + " " + cell.value);
        Key_Cell(cell);
        if (testing::Test::HasFatalFailure()) return;
    }
    desk.Push("cmdClose");
    ASSERT_EQ(desk.Open_Forms(), 0U) << item;
}

TEST_P(KeyedReport, IsTheReportOfTheCommandLine) {
    const std::string listed = desk.folder.File("listed.CRF"), keyed = desk.folder.File("keyed.CRF");
    Make_Empty_Sample(GetParam(), keyed);
    Make_Empty_Sample(GetParam(), listed);
    Run_Tallmar({"enter", listed, Cells_File(GetParam())});

    std::vector<std::string> items{"S2", "S3p3"};  // their answers shape other worksheets
    std::map<std::string, std::vector<CellText>> cells;
    for (const CellText& cell : Cells_Of(GetParam())) {
        if (cells[cell.item].empty() && std::ranges::find(items, cell.item) == items.end()) items.push_back(cell.item);
        cells[cell.item].push_back(cell);
    }
    desk.Open(keyed);
    ASSERT_TRUE(Report_Is_Open());
    for (const std::string& item : items) {
        Key_Worksheet(item, cells[item]);
        if (HasFatalFailure()) return;
    }
    desk.Choose("mnuReportClose");
    ASSERT_FALSE(Report_Is_Open());

    for (const bool calculated : {false, true}) {
        if (calculated) {
            Run_Tallmar({"calc", listed});
            desk.Open(keyed);
            desk.Choose("mnuReportCalculate");
            desk.Choose("mnuReportClose");
        }
        const DumpFile expected(Run_Tallmar({"dump", listed})), found(Run_Tallmar({"dump", keyed}));
        for (const std::string& difference : Differences(expected, found)) ADD_FAILURE() << difference;
    }
}

INSTANTIATE_TEST_SUITE_P(Periods, KeyedReport, testing::ValuesIn(Samples().begin(), Samples().end()),
                         [](const auto& period) { return std::string(period.param.name); });

}  // namespace

}  // namespace tallmar
