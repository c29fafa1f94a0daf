#include "shell/menu_bar.h"

#include "report/registry.h"
#include "screens/view/qt_text.h"
#include "screens/worksheet_forms.h"
#include "shell/menu_tree.h"

namespace tallmar {

namespace {

// An & of a name is no access key.
QString Caption_Of(const std::string& name) {
    return Qt_Text(name).replace("&", "&&");
}

// "A-4  Reclassifications". Its first letter jumps to it.
QString Worksheet_Caption(const std::string& item) {
    QString caption = '&' + Caption_Of(WorksheetName(item));
    if (const std::string_view title = Worksheet_Title(item); !title.empty()) caption += ":  " + Qt_Text(title);
    return caption;
}

}  // namespace

MenuBar::MenuBar(QMenuBar* bar) : QObject(bar) {
    for (const MenuRow& row : Menu_Rows()) Add(row, bar);
}

void MenuBar::Add(const MenuRow& row, QMenuBar* bar) {
    QMenu* parent = row.parent.empty() ? nullptr : &Menu(row.parent);
    if (row.kind == MenuKind::Separator) {
        parent->addSeparator();
        return;
    }
    if (row.kind == MenuKind::List) return;
    if (row.kind == MenuKind::Menu) {
        const QString caption = Qt_Text(row.caption);
        QMenu* menu = parent == nullptr ? bar->addMenu(caption) : parent->addMenu(caption);
        menu->setObjectName(Qt_Text(row.name) + "Menu");
        menu->setAccessibleName(QString(caption).remove('&'));
        menu->setToolTipsVisible(true);
        menu->menuAction()->setObjectName(Qt_Text(row.name));
        actions_[row.name] = menu->menuAction();
        return;
    }
    QAction* action = parent->addAction(row.caption.empty() ? Worksheet_Caption(row.item) : Qt_Text(row.caption));
    action->setObjectName(Qt_Text(row.name));
    action->setShortcuts(QKeySequence::listFromString(Qt_Text(row.shortcut), QKeySequence::PortableText));
    action->setCheckable(row.checkable);
    actions_[row.name] = action;
    if (!row.built) Turn(row, false);
    if (row.kind == MenuKind::Command) {
        connect(action, &QAction::triggered, this, [this, action] { emit Chosen(action->objectName()); });
    } else {
        const FormMode mode = row.kind == MenuKind::Edit ? FormMode::Edit : FormMode::View;
        connect(action, &QAction::triggered, this,
                [this, mode, item = Qt_Text(row.item)] { emit Worksheet_Chosen(mode, item); });
    }
}

QAction* MenuBar::Find(std::string_view name) const {
    const auto found = actions_.find(name);
    return found == actions_.end() ? nullptr : found->second;
}

QMenu& MenuBar::Menu(std::string_view name) const {
    return *Find(name)->menu();
}

void MenuBar::Show(const MenuState& state) {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind == MenuKind::List) {
            Fill_List(row, state.lists.at(row.name));
        } else if (row.when != MenuWhen::Form) {
            if (Find(row.name) != nullptr) Turn(row, state.enabled.contains(row.name));
        }
    }
}

void MenuBar::Turn(const MenuRow& row, bool on) {
    QAction& action = *Find(row.name);
    action.setEnabled(on);
    action.setToolTip(on ? QString() : Qt_Text(Why_Off(row)));
}

void MenuBar::Fill_List(const MenuRow& row, const std::vector<MenuListEntry>& entries) {
    QList<QAction*>& list = lists_[row.name];
    const auto wanted = static_cast<qsizetype>(entries.size());
    while (list.size() > wanted) delete list.takeLast();
    const FormMode mode = row.edit ? FormMode::Edit : FormMode::View;
    while (list.size() < wanted) {
        QAction* action = Menu(row.parent).addAction(QString());
        action->setObjectName(Qt_Text(row.name) + '(' + QString::number(list.size()) + ')');
        // The caption names the worksheet.
        connect(action, &QAction::triggered, this, [this, mode, action] {
            emit Worksheet_Chosen(mode, Qt_Text(Item_In_Caption(Plain_Text(action->text()))));
        });
        list.append(action);
    }
    for (qsizetype i = 0; i < wanted; ++i) list[i]->setText(Caption_Of(entries[static_cast<std::size_t>(i)].caption));
}

void MenuBar::Set_Enabled(std::string_view name, bool enabled) {
    const MenuRow* row = Find_Menu_Row(name);
    if (row != nullptr && Find(name) != nullptr) Turn(*row, enabled && row->built);
}

void MenuBar::Show_Checked_Entries() {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.when == MenuWhen::Checks) Turn(row, Is_On(row));
    }
}

void MenuBar::Enable_Form_Entries(bool enabled) {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.when == MenuWhen::Form) Turn(row, enabled);
    }
}

}  // namespace tallmar
