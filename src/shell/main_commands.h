// What the entries of the menus do: one row an entry, by its name.
#pragma once

#include <QList>
#include <QUrl>
#include <span>
#include <string>
#include <string_view>

namespace tallmar {

class FrmMain;

struct MainCommand {
    std::string_view name;  // "mnuReportOpen"
    void (*run)(FrmMain& main);
};
// Every entry of the tree with a handler of its own has its row here.
std::span<const MainCommand> Main_Commands();
void Run_Command(FrmMain& main, std::string_view name);
// What the person chooses in the window is done from now on.
void Connect_Commands(FrmMain& main);

// A report by its path: a file that is gone brings up a box, and is taken off the list of recent files.
void Open_Recent(FrmMain& main, const std::string& path);
// One report file that was dropped on the window; anything else is refused with a box.
void Open_Dropped(FrmMain& main, const QList<QUrl>& urls);
// The caption of mnuReportUtilitiesHQ after the setting.
void Show_Print_Quality(FrmMain& main);

}  // namespace tallmar
