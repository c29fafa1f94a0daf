// All cells of a form at once: copied and pasted onto themselves they change nothing, cleared and taken back they are
// what they were.
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QTableWidget>

#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/table_change.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"

namespace tallmar {

namespace {

using Tables = std::map<std::string, TableState>;

class WholeForm : public testing::TestWithParam<Sample> {
  protected:
    WholeForm() {
        Make_Sample(GetParam(), desk.Report_Path());
        desk.Open(desk.Report_Path());
    }
    static Tables All_Tables() {
        Tables tables;
        for (int i = 0; i < db.TableDefs().Count(); ++i) {
            const std::string name = db.TableDefs().Item(i).Name();
            if (name != "Worksheets" && name != "Log") tables[name] = Read_State(name);  // they say when
        }
        return tables;
    }
    static void Expect_Same(const Tables& before) {
        const Tables now = All_Tables();
        EXPECT_EQ(now.size(), before.size());
        for (const auto& [name, table] : before) {
            ASSERT_TRUE(now.contains(name)) << name;
            EXPECT_TRUE(table.fields == now.at(name).fields && table.rows == now.at(name).rows) << name;
        }
    }
    std::vector<std::string> Edit_Forms() const {
        std::vector<std::string> items;
        for (const std::string& item : Read_Items("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY Item;")) {
            const QAction* entry = desk.main->Menus().Find("mnuEditOpen" + item);
            if (entry == nullptr) entry = desk.List_Entry(FormMode::Edit, item);
            if (entry != nullptr && entry->isEnabled()) items.push_back(item);
        }
        return items;
    }

    Desk desk;
};

TEST_P(WholeForm, CopiedAndPastedChangesNothing) {
    desk.boxes.Otherwise([](QWidget& modal) {
        const auto* list = modal.findChild<QTableWidget*>();
        for (int row = 0; list != nullptr && row < std::min(list->rowCount(), 5); ++row) {
            ADD_FAILURE() << Plain_Text(list->item(row, 2)->text());
        }
        return false;
    });
    for (const std::string& item : Edit_Forms()) {
        SCOPED_TRACE(item);
        desk.Edit(item);
        const Tables before = All_Tables();
        Desk::Press(Qt::Key_A, Qt::ControlModifier);
        Desk::Press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_FALSE(QApplication::clipboard()->text().isEmpty());
        Desk::Press(Qt::Key_V, Qt::ControlModifier);
        Expect_Same(before);
        desk.Push("cmdClose");
        EXPECT_EQ(desk.Open_Forms(), 0U);
    }
    EXPECT_EQ(desk.boxes.Boxes_Seen(), 0) << "there is nothing to tell";
}

TEST_P(WholeForm, ClearedAndTakenBackIsAsBefore) {
    // What may not be cleared is listed.
    desk.boxes.Otherwise([](QWidget& modal) {
        if (modal.objectName() != "frmBatchMsgs") return false;
        static_cast<QDialog&>(modal).reject();
        return true;
    });
    int cleared = 0;
    for (const std::string& item : Edit_Forms()) {
        SCOPED_TRACE(item);
        desk.Edit(item);
        const Tables before = All_Tables();
        Desk::Press(Qt::Key_A, Qt::ControlModifier);
        Desk::Press(Qt::Key_Delete);
        const TableState after = Read_State(item);
        if (after.rows != before.at(item).rows) ++cleared;
        Desk::Press(Qt::Key_Z, Qt::ControlModifier);
        Expect_Same(before);
        desk.Push("cmdClose");
        EXPECT_EQ(desk.Open_Forms(), 0U);
    }
    EXPECT_GT(cleared, 12);
}

INSTANTIATE_TEST_SUITE_P(Periods, WholeForm, testing::ValuesIn(Samples().begin(), Samples().end()),
                         [](const auto& period) { return std::string(period.param.name); });

}  // namespace

}  // namespace tallmar
