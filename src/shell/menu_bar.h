// The menu tree as actions of a menu bar. Each action has the name of its entry.
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <map>
#include <string>

#include "screens/dispatch.h"
#include "shell/menu_refresh.h"

namespace tallmar {

struct MenuRow;

class MenuBar : public QObject {
    Q_OBJECT

  public:
    explicit MenuBar(QMenuBar* bar);

    // Null where there is no such entry. A menu's action is the one that opens it.
    QAction* Find(std::string_view name) const;
    // Requires a menu of the tree.
    QMenu& Menu(std::string_view name) const;
    // What the refresh found; entries that it does not decide on stay as they are.
    void Show(const MenuState& state);
    // An entry whose job is not built stays off.
    void Set_Enabled(std::string_view name, bool enabled);
    // The entries that the edit checks turn on: any change of the report turns them off again.
    void Show_Checked_Entries();
    // All entries that work on the active form.
    void Enable_Form_Entries(bool enabled);

  signals:
    // The name of an entry with a handler.
    void Chosen(const QString& name);
    void Worksheet_Chosen(tallmar::FormMode mode, const QString& item);

  private:
    void Add(const MenuRow& row, QMenuBar* bar);
    // An entry that is off says why.
    void Turn(const MenuRow& row, bool on);
    void Fill_List(const MenuRow& row, const std::vector<MenuListEntry>& entries);

    std::map<std::string, QAction*, std::less<>> actions_;
    std::map<std::string, QList<QAction*>, std::less<>> lists_;
};

}  // namespace tallmar
