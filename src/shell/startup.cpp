#include "shell/startup.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include "common/platform.h"
#include "common/program.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/one_copy.h"

namespace tallmar {

namespace {

std::string Start_Caption() {
    return "Brennwick System Inc.'s Tallmar 1728 (version " + Short_Version() + ")";
}

}  // namespace

StartOptions Start_Options(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Prepares the cost report of a home health agency (form CMS 1728-94).");
    const QCommandLineOption noSplash("no-splash", "Start without the splash window.");
    parser.addOption(noSplash);
    parser.addPositionalArgument("FILE.CRF", "The Cost Report File to open.", "[FILE.CRF]");
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    StartOptions options;
    if (!parser.parse(arguments) || parser.positionalArguments().size() > 1) {
        options.failed = true;
        options.help = parser.errorText() + (parser.errorText().isEmpty() ? "" : "\n") + parser.helpText();
    } else if (parser.isSet(help)) {
        options.help = parser.helpText();
    } else if (parser.isSet(version)) {
        options.help = Qt_Text(kProgramTitle) + " " + TALLMAR_VERSION + "\n";
    }
    options.splash = !parser.isSet(noSplash);
    if (!parser.positionalArguments().isEmpty()) {
        options.file = QFileInfo(parser.positionalArguments().constFirst()).absoluteFilePath();
    }
    return options;
}

bool Start_Up(FrmMain& main, const StartOptions& options, bool isFirst) {
    if (options.splash) Show_Splash();
    main.Set_Caption(Qt_Text(Start_Caption()));
    if (!isFirst) {
        Tell_Second_Copy();
        return false;
    }
    main.Show_Welcome(true);
    main.Refresh_Menus();
    main.show();
    if (!options.file.isEmpty()) Report_Open(Plain_Text(options.file));
    return true;
}

}  // namespace tallmar
