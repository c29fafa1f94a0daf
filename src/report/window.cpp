#include "report/window.h"

#include <fstream>

#include "common/platform.h"
#include "common/text.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace {

constexpr std::string_view kReportControls[] = {"lblHelp", "lblCRFName", "picLogo"};
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

void Load_ProductTitle() {
    std::ifstream file(Native_Path(The_Platform().Program_Folder() + "/PrtTitle.txt"));
    std::string line;
    std::getline(file, line);
    while (!line.empty() && line.back() == '\r') line.pop_back();
    // Written by an older editor it is in code page 1252.
    if (!Is_Valid_Utf8(line)) line = From_Cp1252(line);
    if (Begins_With(line, kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    if (!line.empty()) ProductTitle = line;
}

std::string Short_Version() {
    std::string version = TALLMAR_VERSION;
    version.resize(version.rfind('.'));
    return version;
}

std::string Window_Caption() {
    std::string caption = ProductTitle + " " + std::string(kProgramTitle) + " (version " + Short_Version() + ")";
    if (!CRFPath.empty()) caption += " -- " + CRFTitle;
    return caption;
}

std::string Path_Line() {
    return db.Is_Open() && db.Is_Read_Only() ? CRFPath + " (read only)" : CRFPath;
}

void Show_Caption() {
    The_Platform().Set_Text("frmMain", Window_Caption());
    The_Platform().Set_Text("lblCRFName", Path_Line());
    The_Platform().Set_Enabled("mnuReportSubmit", false);
}

void Show_No_Report() {
    Platform& window = The_Platform();
    window.Set_Text("tmrMain.Tag", "Stopped");
    window.Progress("");
    Show_Caption();
    window.Set_Visible("fraWelcome", true);
    for (const std::string_view control : kReportControls) window.Set_Visible(control, false);
    window.Refresh_Menus();
}

void Show_Report() {
    Platform& window = The_Platform();
    window.Set_Visible("lblCRFName", true);
    window.Set_Visible("picLogo", true);
    window.Set_Text("tmrMain.Tag", "");
    window.Set_Text("tmrMain.Interval", "100");
    window.Set_Enabled("tmrMain", true);
    window.Set_Text("lblCRFName", Path_Line());
    window.Set_Visible("fraWelcome", false);
    window.Set_Enabled("mnuReportSubmit", false);
}

}  // namespace tallmar
