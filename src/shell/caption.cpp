#include "shell/caption.h"

#include "common/program.h"
#include "report/open_report.h"

namespace tallmar {

std::string Window_Caption() {
    std::string caption = Product_Title() + " " + std::string(kProgramTitle) + " (version " + Short_Version() + ")";
    if (!openReport.CRFPath.empty()) caption += " -- " + openReport.CRFTitle;
    return caption;
}

std::string Path_Line() {
    return db.Is_Open() && db.Is_Read_Only() ? openReport.CRFPath + " (read only)" : openReport.CRFPath;
}

}  // namespace tallmar
