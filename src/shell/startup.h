// What the program does from its start to its main window.
#pragma once

#include <QString>
#include <QStringList>

namespace tallmar {

class FrmMain;

// The command line: tallmar1728 [--no-splash] [FILE.CRF]
struct StartOptions {
    bool splash = true;
    QString file;  // empty: none is opened
    QString help;  // what is printed instead of starting; empty: the program starts
    bool failed = false;
};
StartOptions Start_Options(const QStringList& arguments);

// The window comes up without a report; false where another copy runs, after its box.
bool Start_Up(FrmMain& main, const StartOptions& options, bool isFirst);

}  // namespace tallmar
