#include <iostream>

#include "catalogue.h"
#include "screens/view/qt_text.h"
#include "shell/desktop_platform.h"
#include "shell/frm_main.h"
#include "shell/main_commands.h"
#include "shell/one_copy.h"
#include "shell/startup.h"
#include "shell/tallmar_application.h"

int main(int argc, char** argv) {
    using namespace tallmar;
    TallmarApplication application(argc, argv);
    const StartOptions options = Start_Options(TallmarApplication::arguments());
    if (!options.help.isEmpty()) {
        (options.failed ? std::cerr : std::cout) << Plain_Text(options.help);
        return options.failed ? 2 : 0;
    }
    DesktopPlatform platform(User_Places());
    Install_Catalogue(All_Families());
    const OneCopy copy(Qt_Text(platform.Data_Folder()));
    FrmMain window(platform.Guard());
    Connect_Commands(window);
    platform.Attach(&window);
    if (!Start_Up(window, options, copy.Is_First())) return 1;
    return TallmarApplication::exec();
}
