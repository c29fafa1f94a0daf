// The descriptions against the tables that they describe, and lists of cells in any order.
#include "screens/forms.h"

#include <algorithm>
#include <random>

#include "report/open_report.h"
#include "screens/entry_test.h"
#include "screens/worksheet_forms.h"

namespace tallmar {

namespace {

std::vector<std::string> Worksheets_Of_Report() {
    std::vector<std::string> items;
    Recordset rows =
        db.OpenRecordset("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY Item;", RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) items.push_back(rows["Item"].To_Text());
    return items;
}

void Check_Columns(const FormDescription& form, const Item& item) {
    const TableShape shape = db.TableDefs().Item(item.Name()).Shape();
    EXPECT_FALSE(form.columns.described.empty()) << form.name;
    for (const FormColumn& column : form.columns.described) {
        EXPECT_NE(shape.Find_Field(column.field), nullptr) << form.name << " " << column.field;
        EXPECT_LE(column.number.size(), 10U) << form.name;
        EXPECT_LE(column.label.size(), 100U) << form.name;
        EXPECT_FALSE(column.label.empty()) << form.name << " " << column.field;
        EXPECT_TRUE(column.kind != CellKind::Own || form.readOnly || form.cells.check != nullptr) << form.name;
        if (const FieldDef* field = shape.Find_Field(column.field); field != nullptr && Has_Size(field->type)) {
            EXPECT_LE(column.limit, field->size) << form.name << " " << column.field;
        }
    }
}

}  // namespace

TEST(FormsTest, EveryDescribedColumnIsInItsTable) {
    for (const FiscalYear& year : {fy1999, fy2016}) {
        Report r(year);
        EXPECT_FALSE(Enter("S3p3", "29", "1", "1600"));
        for (const std::string& item : Worksheets_Of_Report()) {
            const WorksheetForms* worksheet = Find_Forms(item);
            ASSERT_NE(worksheet, nullptr) << item;
            if (worksheet->edit != nullptr) Check_Columns(*worksheet->edit, item);
            if (worksheet->view != nullptr) Check_Columns(*worksheet->view, item);
        }
    }
}

// The columns of each form, in the order of its table.
TEST(FormsTest, EachFormShowsItsColumns) {
    struct Shown {
        const FormDescription& form;
        const char* columns;
    };
    const std::string amounts = "LineNum CCName Col_1 Col_2 Col_3 Col_4 Col_5 Col_6 Col_7 Col_8 Col_9";
    const char* compensation = amounts.c_str();
    const Shown forms[] = {
        {kEditA, "LineNum CCGroup CCName Col_1 Col_2 Col_3 Col_4 Col_5"},
        {kViewA, "LineNum CCGroup CCName Col_1 Col_2 Col_3 Col_4 Col_5 Col_6 Col_7 Col_8 Col_9 Col_10"},
        {kEditA1, compensation},
        {kViewA2, compensation},
        {kEditA3, compensation},
        {kEditA4, "LineNum Explanation Col_1 Col_2 Col_3 Col_4 Col_5 Col_6 Col_7"},
        {kEditA5, "LineNum Description Col_1 Col_2 Col_3 Col_4"},
        {kEditA6pA, "Question Answer"},
        {kEditA6pB, "LineNum Col_1 Col_2 Col_3 Col_4 Col_5 Col_6"},
        {kEditA6pC, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_6"},
        {kEditA7, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_6"},
        {kEditA83p1, "LineNum LineLabel Col_1 Col_2 Col_3 Col_4"},
        {kViewA83p2, "LineNum LineLabel Col_1"},
        {kViewA83p3, "LineNum LineLabel Col_1"},
        {kEditA83p4, "LineNum LineLabel Col_1 Col_2 Col_3 Col_4"},
        {kEditA83p5, "LineNum LineLabel Col_1"},
        {kEditB1, "LineNum CCName"},
        {kViewB, "LineNum CCName NetExpenses SubTotal Total"},
        {kViewCp1, "LineNum Description Col_1 Col_2 Col_3 Col_4"},
        {kEditCp2, "LineNum Description Col_4 Col_5 Col_6 Col_7 Col_8 Col_9 Col_10 Col_11"},
        {kEditCp3, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_6 Col_601 Col_7 Col_8 Col_9 Col_901 Col_10"},
        {kEditCp4, "LineNum Description MSA_Code Col_1 Col_2 Col_3 Col_4 Col_5 Col_6"},
        {kEditCp5, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_501 Col_502 Col_6 Col_7 Col_8"},
        {kEditDp1, "LineNum Description Col_1 Col_2 Col_3"},
        {kEditDp2, "LineNum Description Col_1 Col_2"},
        {kEditD1, "LineNum Description Col_1 Col_2 Col_3 Col_4"},
        {kEditF, "LineNum Description Col_1 Col_2 Col_3 Col_4"},
        {kEditF1, "LineNum Description Col_1 Col_2"},
        {kEditF2, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_6 Col_7 Col_8"},
        {kEditS2, "LineNum LineLabel Col_1 Col_2 Col_3"},
        {kEditS21, "LineNum LineLabel Col_1 Col_2 Col_3"},
        {kEditS3p1, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_6"},
        {kEditS3p2, "LineNum Description Col_1 Col_2 Col_3"},
        {kEditS3p3, "LineNum Description Col_1 Col_2"},
        {kEditS3p4, "LineNum Description Col_1 Col_2 Col_3 Col_4 Col_5 Col_6 Col_7"},
        {kViewSp2, "LineNum Description Col_1 Col_2"},
    };
    for (const auto& [form, columns] : forms) {
        std::string described;
        for (const FormColumn& column : form.columns.described) {
            described += (described.empty() ? "" : " ") + std::string(column.field);
        }
        EXPECT_EQ(described, columns) << form.name;
    }
}

TEST(FormsTest, EveryWorksheetCanBeViewedAndTheComputedOnesNotEdited) {
    Report r(fy1999);
    std::string viewedOnly;
    for (const std::string& item : Worksheets_Of_Report()) {
        EXPECT_NE(Form_Of(FormMode::View, item), nullptr) << item;
        if (Form_Of(FormMode::Edit, item) == nullptr) viewedOnly += item + " ";
    }
    EXPECT_EQ(viewedOnly, "A83p2O A83p2P A83p2S A83p3O A83p3P A83p3S B Cp1 Sp2 ");
}

TEST(FormsTest, QueriesRun) {
    Report r(fy1999);
    EXPECT_FALSE(Enter("S3p3", "29", "1", "1600"));
    for (const std::string& item : Worksheets_Of_Report()) {
        for (const FormMode mode : {FormMode::Edit, FormMode::View}) {
            const FormDescription* form = Form_Of(mode, item);
            if (form == nullptr) continue;
            EXPECT_NO_THROW(r.Read(Form_Query(*form, item))) << form->name;
        }
    }
    EXPECT_EQ(Form_Query(kEditA, "A"), "SELECT * FROM A WHERE LineNum < 29 ORDER BY LineNum;");
    EXPECT_EQ(Form_Query(kViewA, "A"), "SELECT * FROM A ORDER BY LineNum;");
    EXPECT_EQ(Form_Query(kEditA6pA, "A6pA"), "SELECT * FROM A6pA;");
}

TEST(FormsTest, AViewTakesNothing) {
    Report r(fy2016);
    OpenForm view(kViewA, "A");
    ASSERT_TRUE(view.Place_Cursor(6_cur));
    for (const GridColumn& column : view.Columns()) EXPECT_TRUE(view.Is_Locked(column)) << column.field;
}

TEST(FormsTest, AddAndDeleteKeepTheFormsNumbers) {
    Report r(fy2016);
    for (const Currency line : {1_cur, 2_cur, 3_cur, 3.01_cur, 3.02_cur}) {
        EXPECT_EQ(kEditA6pB.lines.add("A6pB", {}), line);
    }
    for (const Currency line : {3.02_cur, 3.01_cur, 3_cur}) kEditA6pB.lines.remove("A6pB", line);
    kEditA6pB.lines.remove("A6pB", 4_cur);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A6pB;"), Value(3)) << "the totals stay";
    kEditA6pB.lines.remove("A6pB", 2_cur);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A6pB;"), Value(2));
    EXPECT_EQ(kEditS3p3.lines.add("S3p3", {}), 29_cur);
    EXPECT_EQ(kEditS3p3.lines.add("S3p3", 29_cur), 29.01_cur);
    kEditS3p3.lines.remove("S3p3", 28_cur);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM S3p3;"), Value(3));
}

TEST(FormsTest, TheGridWritesARowWhenTheCursorLeavesIt) {
    Report r(fy2016);
    OpenForm form(kEditA, "A");
    ASSERT_TRUE(form.Place_Cursor(6_cur));
    EXPECT_FALSE(form.Enter(*form.Find_Column("1"), "100"));
    EXPECT_CELL("A", 6, 1, 0_cur);
    EXPECT_FALSE(form.Store_Row());
    EXPECT_CELL("A", 6, 1, 100_cur);
    ASSERT_TRUE(form.Place_Cursor(7_cur));
    EXPECT_FALSE(form.Enter(*form.Find_Column("1"), "100"));
    form.Discard_Row();
    EXPECT_FALSE(form.Store_Row());
    EXPECT_CELL("A", 7, 1, 0_cur);
}

TEST(FormsTest, ARefusalBeepsAndShowsItsBox) {
    FakePlatform platform;
    platform.Expect_Box("Invalid Length Entry", "too long", Answer::Ok, kStop);
    Show_Refusal({.title = "Invalid Length Entry", .text = "too long"});
    EXPECT_EQ(platform.beeps, 1);
    Show_Refusal({.title = "Remove Code", .text = "asked", .shown = true});
    EXPECT_EQ(platform.beeps, 1);
}

TEST(EnterCellsTest, TheOrderOfTheListChangesNothing) {
    const std::vector<CellText> cells{
        {"A4", "1", "Explanation", "Insurance"},
        {"A4", "1", "Col_1", "B"},
        {"A4", "1", "3", "1"},
        {"A4", "1", "4", "10"},
        {"A4", "2", "Explanation", "Mileage"},
        {"A4", "2", "Col_1", "A"},
        {"A4", "2", "6", "7"},
        {"A4", "2", "7", "20"},
        {"A", "5.01", "1", "700"},
        {"S2", "26", "1", "2"},
        {"S2", "29", "1", "Y"},
        {"S2", "29.01", "1", "Office"},
        {"S21", "7", "1", "N"},
        {"S21", "6", "1", "Y"},
        {"A5", "13", "4", "6"},
        {"A5", "13", "2", "1x"},
        {"S3p3", "29", "2", "16580"},
        {"B1", "6", "CC_100", "9"},
        {"B1", "6", "CC_501", "1"},
        {"A4", "3", "Explanation", "Postage"},
        {"A4", "3", "1", "C"},
        {"A4", "3", "3", "5.01"},
        {"Cp2c16580", "1", "5", "120"},
        {"Cp2c16580", "1", "6", "80"},
        {"D1", "3.02", "2", "500"},
        {"D1", "3.03", "2", "600"},
        {"F1", "6.01", "Description", "Uniforms"},
        {"F1", "6.01", "1", "70"},
        {"F2", "5", "1", "30"},
        {"A", "99", "1", "1"},
    };
    std::vector<std::size_t> order(cells.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::mt19937 random(1728);
    for (int round = 0; round < 4; ++round) {
        Report r(fy2016);
        r.platform.Expect_Box_Starting(
            "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center",
            "The statistic you just modified");
        std::vector<CellText> list;
        for (const std::size_t at : order) list.push_back(cells[at]);
        const std::vector<std::optional<Refusal>> outcomes = Enter_Cells(list);
        for (std::size_t i = 0; i < order.size(); ++i) {
            const CellText& cell = cells[order[i]];
            const bool refused = cell.value == "1x" || cell.line == "99";
            EXPECT_EQ(!outcomes[i], !refused) << cell.item << " " << cell.line << " " << Text_Of(outcomes[i]);
        }
        EXPECT_CELL("A4", 1, 1, "A");
        EXPECT_CELL("A4", 2, 1, "B");
        EXPECT_CELL("A", 5.01, 1, 700_cur);
        EXPECT_CELL("S2", 29.01, 1, "Office");
        EXPECT_CELL("S21", 7, 1, "N");
        EXPECT_CELL("A5", 13, 3, "Skilled Nursing Care");
        EXPECT_CELL("A5", 13, 2, Null);
        EXPECT_CELL("A4", 3, 3, 5.01_cur);
        EXPECT_EQ(r.Read("SELECT Amount FROM B1X WHERE RowCCNum = 6 AND ColCCNum = 'CC_501';"), Value(-1.0));
        EXPECT_CELL("Cp2c16580", 1, 5, 120.0);
        EXPECT_CELL("D1", 3.03, 2, 600_cur);
        EXPECT_CELL("F1", 6.01, "Description", "Uniforms");
        EXPECT_CELL("F2", 5, 1, 30_cur);
        std::ranges::shuffle(order, random);
    }
}

TEST(EnterCellsTest, OfTwoEntriesOfOneCellTheLaterWins) {
    Report r(fy2016);
    const std::vector<CellText> cells{{"A", "6", "1", "100"}, {"A", "7", "1", "5"}, {"A", "6.00", "Col_1", "200"}};
    for (const auto& refusal : Enter_Cells(cells)) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_CELL("A", 6, 1, 200_cur);
    EXPECT_CELL("A", 7, 1, 5_cur);
}

}  // namespace tallmar
