// Every form of a filled report: opened by its menu entry, all its rows there, its neighbours named, closed by its
// button.
#include <QAction>
#include <QMdiSubWindow>
#include <QPushButton>

#include "common/sql_text.h"
#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/dispatch.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"
#include "shell/menu_tree.h"

namespace tallmar {

namespace {

class FormsWalk : public testing::TestWithParam<Sample> {
  protected:
    FormsWalk() {
        Make_Sample(GetParam(), desk.Report_Path());
        desk.Open(desk.Report_Path());
    }

    static std::vector<std::string> Registered() {
        return Read_Items("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY Item;");
    }
    // Whether the menus let this worksheet be opened.
    static bool Is_Offered(FormMode mode, const std::string& item) {
        if (item == "S3p4" && openReport.FYEnd < Date_Of(2000, 10, 1)) return false;
        if (mode == FormMode::View) return true;
        if (item == "Cp4" && openReport.FYStart >= Date_Of(2000, 10, 1)) return false;
        return Form_Of(FormMode::Edit, item) != nullptr;
    }
    QAction* Entry_Of(FormMode mode, const std::string& item) {
        const std::string name = (mode == FormMode::Edit ? "mnuEditOpen" : "mnuViewOpen") + item;
        QAction* entry = desk.main->Menus().Find(name);
        return entry != nullptr ? entry : desk.List_Entry(mode, item);
    }
    void Walk(FormMode mode, const std::string& item);
    void Check_Neighbour(const char* button, Direction direction) const;

    Desk desk;
};

void FormsWalk::Check_Neighbour(const char* button, Direction direction) const {
    const std::string next = Next_Worksheet(desk.Form().Caption(), direction);
    const QPushButton& shown = desk.Button(button);
    EXPECT_EQ(shown.isEnabled(), !next.empty()) << button;
    if (next.empty()) return;
    const std::string word = desk.Form().Mode() == FormMode::Edit ? "Edit" : "View";
    const Row name = db.Read_Row(Sql("SELECT ItemName FROM Worksheets WHERE Item = ", Quoted(next), ";"));
    EXPECT_EQ(Plain_Text(shown.toolTip()), "Open " + name["ItemName"].To_Text() + " For " + word) << button;
}

void FormsWalk::Walk(FormMode mode, const std::string& item) {
    const std::string word = mode == FormMode::Edit ? "Edit" : "View";
    SCOPED_TRACE(word + " " + item);
    QAction* entry = Entry_Of(mode, item);
    if (!Is_Offered(mode, item)) {
        EXPECT_TRUE(entry == nullptr || !entry->isEnabled());
        return;
    }
    ASSERT_NE(entry, nullptr);
    ASSERT_TRUE(entry->isEnabled());
    const WorksheetForm& form = mode == FormMode::Edit ? desk.Edit(item) : desk.View(item);
    EXPECT_EQ(form.windowTitle(), Qt_Text(word + " Worksheet " + item));
    EXPECT_EQ(desk.Window().windowTitle(), Qt_Text(word + " Worksheet " + item));
    EXPECT_TRUE(form.isVisible());

    const FormDescription& description = *Form_Of(mode, item);
    Recordset rows = db.OpenRecordset(Form_Query(description, item), RecordsetType::Snapshot);
    int count = 0;
    for (; !rows.Eof(); rows.MoveNext()) ++count;
    EXPECT_EQ(form.Model().rowCount(), count);
    EXPECT_GT(form.Model().columnCount(), 1);
    bool editable = false;
    for (int row = 0; row < form.Model().rowCount(); ++row) {
        for (int column = 0; column < form.Model().columnCount(); ++column) {
            editable |= (form.Model().index(row, column).flags() & Qt::ItemIsEditable) != 0;
        }
    }
    EXPECT_EQ(editable, mode == FormMode::Edit && count > 0);

    Check_Neighbour("cmdNext", Direction::Next);
    Check_Neighbour("cmdPrevious", Direction::Previous);
    desk.Push("cmdClose");
    EXPECT_EQ(desk.Open_Forms(), 0U);
}

TEST_P(FormsWalk, EveryWorksheetOpensShowsItsRowsAndCloses) {
    for (const FormMode mode : {FormMode::Edit, FormMode::View}) {
        for (const std::string& item : Registered()) Walk(mode, item);
    }
    EXPECT_GT(Registered().size(), 25U);
}

// The other way round: what the menus offer is registered, and everything else is off.
TEST_P(FormsWalk, MenusOfferNothingElse) {
    const std::vector<std::string> registered = Registered();
    for (const MenuRow& row : Menu_Rows()) {
        if (!row.built) {
            EXPECT_FALSE(desk.Entry(row.name).isEnabled()) << row.name;
        }
        if ((row.kind != MenuKind::Edit && row.kind != MenuKind::View) || row.when != MenuWhen::Registry) continue;
        const FormMode mode = row.kind == MenuKind::Edit ? FormMode::Edit : FormMode::View;
        const bool there = std::ranges::find(registered, row.item) != registered.end();
        EXPECT_EQ(desk.Entry(row.name).isEnabled(), there && Is_Offered(mode, row.item)) << row.name;
    }
}

// By the button alone, from the first worksheet to the last and back.
TEST_P(FormsWalk, NextAndPreviousReachTheSameForms) {
    for (const FormMode mode : {FormMode::Edit, FormMode::View}) {
        mode == FormMode::Edit ? desk.Edit("A") : desk.View("A");
        while (desk.Button("cmdPrevious").isEnabled()) {
            desk.Push("cmdPrevious");
            desk.Take_Front();
        }
        std::vector<std::string> there{desk.Form().Caption()};
        while (desk.Button("cmdNext").isEnabled() && there.size() < 100) {
            desk.Push("cmdNext");
            there.push_back(desk.Take_Front().Caption());
        }
        std::vector<std::string> back{desk.Form().Caption()};
        while (desk.Button("cmdPrevious").isEnabled() && back.size() < 100) {
            desk.Push("cmdPrevious");
            back.push_back(desk.Take_Front().Caption());
        }
        std::ranges::reverse(back);
        EXPECT_EQ(there, back);
        EXPECT_LE(desk.Open_Forms(), 2U) << "the form that the menu opened, and that which the walk has reached";
        EXPECT_GT(there.size(), 15U);
        EXPECT_TRUE(desk.main->Forms().Close_Form_Family(""));
        Desk::Settle();
    }
}

INSTANTIATE_TEST_SUITE_P(Periods, FormsWalk, testing::ValuesIn(Samples().begin(), Samples().end()),
                         [](const auto& period) { return std::string(period.param.name); });

}  // namespace

}  // namespace tallmar
