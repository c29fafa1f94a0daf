// A whole report keyed through the grids is the report that its list of cells makes.
#include <fstream>
#include <map>

#include "common/csv.h"
#include "report/open_report.h"
#include "screens/cell_batch.h"
#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

std::vector<CellText> Sample_Cells() {
    std::ifstream file(TALLMAR_SOURCE_DIR "/samples/fy2016/cells.csv");
    CsvReader reader(file);
    std::vector<CellText> cells;
    while (const auto record = reader.Next()) {
        const auto& f = record->fields;
        if (f[0] != "Item") cells.push_back({f[0], f[1], f[2], f[3]});
    }
    return cells;
}

using Tables = std::map<std::string, TableState>;

Tables All_Tables() {
    Tables tables;
    for (int i = 0; i < db.TableDefs().Count(); ++i) {
        const std::string name = db.TableDefs().Item(i).Name();
        // The log says when, not what.
        if (name != "Log") tables[name] = Read_State(name);
    }
    return tables;
}

// Keys the cells of one worksheet, in the order of the list, as a person goes about it: rows that are not there yet
// are added, and each row is left for the next.
void Key_Worksheet(const std::string& item, std::span<const CellText> cells) {
    EditForm form(Edit_Form_Of(item.c_str()), item);
    EditGrid& grd = form.Entry_Grid();
    for (const CellText& cell : cells) {
        const bool hasLines = !cell.line.empty();
        const Currency line = hasLines ? *Currency::From_Text(cell.line) : Currency();
        for (int i = 0; form.Model().Row_Of(line) < 0 && i < 60; ++i) grd.Add_Row();
        const int row = form.Model().Row_Of(line);
        const GridColumn* field = grd.Entries().Form().Find_Column(cell.column);
        const int column = field == nullptr ? -1 : form.Model().Column_Of(field->field);
        ASSERT_GE(row, 0) << item << " " << cell.line;
        ASSERT_GE(column, 0) << item << " " << cell.column;
        const QModelIndex at = form.Model().index(row, column);
        grd.setCurrentIndex(at);
        ASSERT_TRUE(form.Model().setData(at, QString::fromStdString(cell.value)))
            << item << " " << cell.line << " " << cell.column;
    }
    ASSERT_TRUE(form.close());
}

Tables Keyed() {
    Report r(fy2016);
    r.platform.Set_Now(Date_Of(2017, 2, 1));
    const std::vector<CellText> cells = Sample_Cells();
    EXPECT_GT(cells.size(), 400U);
    std::vector<std::string> items;
    std::map<std::string, std::vector<CellText>> byItem;
    for (const CellText& cell : cells) {
        if (byItem[cell.item].empty()) items.push_back(cell.item);
        byItem[cell.item].push_back(cell);
    }
    for (const std::string first : {"S2", "S3p3"}) Key_Worksheet(first, byItem[first]);
    for (const std::string& item : items) {
        if (item != "S2" && item != "S3p3") Key_Worksheet(item, byItem[item]);
    }
    r.Calc();
    return All_Tables();
}

Tables Listed() {
    Report r(fy2016);
    r.platform.Set_Now(Date_Of(2017, 2, 1));
    const std::vector<CellText> cells = Sample_Cells();
    for (const auto& refusal : Enter_Cells(cells)) EXPECT_FALSE(refusal) << refusal->text;
    r.Calc();
    return All_Tables();
}

}  // namespace

TEST(EditEquality, GridsAndListMakeTheSameReport) {
    const Tables listed = Listed();
    const Tables keyed = Keyed();
    ASSERT_GT(listed.size(), 30U);
    for (const auto& [name, table] : listed) {
        ASSERT_TRUE(keyed.contains(name)) << name;
        EXPECT_EQ(table.fields, keyed.at(name).fields) << name;
        if (table.rows == keyed.at(name).rows) continue;
        for (const RowChange& row : Difference(table, keyed.at(name)).rows) {
            ADD_FAILURE() << name << ", line " << row.line.To_Text() << " differs";
        }
    }
    EXPECT_EQ(keyed.size(), listed.size());
}

}  // namespace tallmar
