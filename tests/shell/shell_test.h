// The main window as the program has it, over settings, a clock and folders of its own.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QTest>
#include <QThread>
#include <string>
#include <vector>

#include "catalogue.h"
#include "report/new_report.h"
#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/desktop_platform.h"
#include "shell/frm_main.h"
#include "shell/main_commands.h"
#include "support/desktop/box_driver.h"
#include "support/report_fixture.h"
#include "support/temp_folder.h"

namespace tallmar {

class ShellTest : public testing::Test {
  protected:
    ShellTest()
        : platform({folder.File("settings"), folder.File("data"), folder.File("program"),
                    [] { return Date_Of(2016, 11, 15); },
                    [this](const std::string& path) {
                        opened.push_back(path);
                        return documentsOpen;
                    }}) {
        Install_Catalogue(All_Families());
        main = std::make_unique<FrmMain>(platform.Guard());
        Connect_Commands(*main);
        platform.Attach(main.get());
        main->resize(1000, 700);
        main->show();
        The_Platform().Menus_Stale();
    }
    ~ShellTest() override {
        if (main != nullptr) main->Forms().Drop_All();
        Report_Release();
        main.reset();
    }

    // Makes a report and leaves it open. Its path.
    std::string Make_Report(const FiscalYear& year, const char* name = "report.CRF") {
        NewReportEntries entries;
        entries.providerNumber = "14-7100";
        entries.facilityName = "Prairie Home Health";
        const std::string path = folder.File(name);
        EXPECT_TRUE(Create_CRF(path, entries, year));
        The_Platform().Menus_Stale();
        return path;
    }
    WorksheetForm* View(const char* item) {
        main->Forms().Open_Worksheet_Form(FormMode::View, item);
        return main->Forms().Find_Form(item, FormMode::View);
    }
    QAction& Entry(std::string_view name) { return *main->Menus().Find(name); }
    std::size_t Open_Forms() { return main->Forms().Forms().size(); }
    void Run(std::string_view command) { Run_Command(*main, command); }

    TempFolder folder;
    std::vector<std::string> opened;  // documents that were handed to the desktop
    bool documentsOpen = true;
    DesktopPlatform platform;
    std::unique_ptr<FrmMain> main;
};

}  // namespace tallmar
