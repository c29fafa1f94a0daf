#include "shell/tallmar_application.h"

#include <exception>

#include "common/platform.h"
#include "common/program.h"
#include "report/open_report.h"
#include "screens/view/qt_text.h"

namespace tallmar {

TallmarApplication::TallmarApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(Qt_Text(kProgramTitle));
    setApplicationDisplayName({});
    setApplicationVersion(TALLMAR_VERSION);
    setDesktopFileName("tallmar1728");
    setQuitOnLastWindowClosed(false);
}

bool TallmarApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        Tell_Failure(error);
    }
    return true;
}

void Tell_Failure(const std::exception& error) {
    openReport.MsgLogPrefix.clear();
    The_Platform().Progress("");
    The_Platform().Hourglass(false);
    The_Platform().Busy(false);
    The_Platform().Message_Box(error.what(), kStop, "System Error");
    The_Platform().Menus_Stale();
}

}  // namespace tallmar
