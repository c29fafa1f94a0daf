// What it takes to add a worksheet: its module, one row of facts, one row of forms.
#include <algorithm>
#include <array>
#include <vector>

#include "calc/driver.h"
#include "calc/worksheet.h"
#include "catalogue.h"
#include "screens/cell_batch.h"
#include "screens/dispatch.h"
#include "screens/total_rows.h"
#include "shell/menu_tree.h"
#include "support/report_test.h"

namespace tallmar {

namespace {

// The module.
constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 40}, Column{"Col_1"}};
constexpr std::array<FixedRow, 3> kRows{
    {{1_cur, "Gifts", "0"}, {2_cur, "Grants", "0"}, {3_cur, "Sum", "0", LineKind::Total}}};
constexpr std::array<std::string_view, 1> kTotals{"Col_1"};

void Build_Z(const Item& item) {
    Build_Table(item, kColumns, "LineNum,Description,Col_1", kRows, "ndx");
}
void Calc_Z(const Item& item) {
    Store_Totals(item, kTotals, "LineNum < 3", "LineNum = 3");
}

constexpr std::array kFormColumns{FormColumn{"LineNum", "", "Line #"}, FormColumn{"Description", "", "Description"},
                                  FormColumn{"Col_1", "1", "Amount", CellKind::Number}};
constexpr FormDescription kEditZ{.name = "frmEditZ", .where = "LineNum < 3", .columns = {kFormColumns}};
constexpr FormDescription kViewZ{.name = "frmViewZ", .readOnly = true, .columns = {kFormColumns}};

// The two rows.
constexpr WorksheetFamily kFacts{"Zp1", 12, Years::Always, true, Build_Z, Calc_Z, kRows};
constexpr WorksheetForms kForms{"Zp1", &kEditZ, &kViewZ, "Gifts and Grants"};

class NewFamilyTest : public ReportTest {
  protected:
    NewFamilyTest() {
        families_.push_back(kFacts);
        forms_.push_back(kForms);
        Install_Catalogue(families_);
        Install_Forms(forms_);
        New_Report();
    }
    ~NewFamilyTest() override { Install_Forms(before_); }

  private:
    std::vector<WorksheetFamily> families_{All_Families().begin(), All_Families().end()};
    std::span<const WorksheetForms> before_ = All_Forms();
    std::vector<WorksheetForms> forms_{before_.begin(), before_.end()};
};

}  // namespace

TEST_F(NewFamilyTest, IsInANewReportOnItsLevel) {
    EXPECT_TRUE(TableExists("Zp1", true));
    EXPECT_EQ(Read("SELECT Calc_Lvl FROM Worksheets WHERE Item=\"Zp1\";"), Value(12));
    EXPECT_FALSE(CRF_Needs_Upgrade());
}

TEST_F(NewFamilyTest, IsKeyedAndCalculatedWithTheOthers) {
    EXPECT_FALSE(Enter_Cell({.item = "Zp1", .line = "1", .column = "1", .value = "30"}));
    EXPECT_FALSE(Enter_Cell({.item = "Zp1", .line = "2", .column = "1", .value = "12"}));
    Calc_All();
    EXPECT_EQ(Read("SELECT Col_1 FROM Zp1 WHERE LineNum=3;"), Value(42_cur));
}

TEST_F(NewFamilyTest, ItsFormsAreOpenedAndWalkedTo) {
    EXPECT_EQ(Form_To_Open(FormMode::Edit, "Zp1"), &kEditZ);
    EXPECT_EQ(Form_To_Open(FormMode::View, "Zp1"), &kViewZ);
    EXPECT_EQ(Next_Worksheet("Edit Worksheet S3p4", Direction::Next), "Zp1");
    EXPECT_EQ(Next_Worksheet("View Worksheet Zp1", Direction::Previous), "S3p4");
}

TEST_F(NewFamilyTest, ItsTotalIsSetApart) {
    EXPECT_EQ(Total_Rows("Zp1", FormRows(kViewZ, "Zp1")), (std::vector<bool>{false, false, true}));
}

TEST_F(NewFamilyTest, IsInBothMenus) {
    const std::vector<MenuRow> rows = Make_Menu_Rows();
    for (const auto& [name, kind] : {std::pair{"mnuEditOpenZp1", MenuKind::Edit}, {"mnuViewOpenZp1", MenuKind::View}}) {
        const auto row = std::ranges::find(rows, name, &MenuRow::name);
        ASSERT_NE(row, rows.end()) << name;
        EXPECT_EQ(row->item, "Zp1");
        EXPECT_EQ(row->kind, kind);
        EXPECT_EQ(row->when, MenuWhen::Registry);
    }
    EXPECT_EQ(Worksheet_Title("Zp1"), "Gifts and Grants");
}

}  // namespace tallmar
