#include "report/new_report.h"

#include <functional>

#include "common/platform.h"
#include "common/text.h"
#include "report/answers.h"
#include "report/build_worksheet.h"
#include "report/chart.h"
#include "report/code_lists.h"
#include "report/master.h"
#include "report/message_log.h"
#include "report/open_report.h"
#include "report/paths.h"
#include "report/registry.h"
#include "report/replace.h"
#include "report/report_lock.h"
#include "report/run_log.h"
#include "report/store.h"
#include "report/window.h"
#include "report/worksheet_years.h"

namespace tallmar {

namespace {

constexpr std::string_view kLogPrefix = "NewCRF";

// The worksheets of a new report, in the order of building. C Part II and the hospices come with what is entered.
constexpr const char* kNewWorksheets[] = {"A",     "Sp2",   "S2",    "S21",   "S3p1", "S3p2", "S3p3", "S3p4", "A1",
                                          "A2",    "A3",    "A4",    "A5",    "A6pA", "A6pB", "A6pC", "A7",   "A83p1",
                                          "A83p2", "A83p3", "A83p4", "A83p5", "B",    "B1",   "Cp1",  "Cp3",  "Cp4",
                                          "Cp5",   "Dp1",   "Dp2",   "D1",    "F",    "F1",   "F2"};

}  // namespace

void Assemble_CRF(const NewReportEntries& entries, const FiscalYear& year) {
    Start_Msg_Log(kLogPrefix);
    Build_Worksheets();
    Build_Log();
    FormNum = Left(entries.formNum, 4);
    FYStart = year.start;
    FYEnd = year.end;
    ProviderNumber = entries.providerNumber;
    ProviderName = entries.facilityName;
    Build_Master();
    Build_HeaderLines();
    Build_CC();
    for (const char* item : kNewWorksheets) {
        if (!Year_Has(item, FYStart)) continue;
        Build_Worksheet_Reported(item);
        The_Platform().Do_Events();
    }
}

namespace {

bool Make_File(const NewReportEntries& entries, const FiscalYear& year) {
    if (!CreateCRF()) return false;
    try {
        Assemble_CRF(entries, year);
    } catch (const std::exception& error) {
        The_Platform().Message_Box(error.what(), kStop, "System Error");
        return false;
    }
    return Finish_CRF();
}

// The new report is there, whatever comes of showing it.
void Show_New_Report(const std::function<void()>& step) {
    try {
        step();
    } catch (const DbError& error) {
        The_Platform().Message_Box(error.what(), kStop, "System Error");
        Forget_Report();
    }
}

}  // namespace

bool Create_CRF(const NewReportEntries& entries, const FiscalYear& year) {
    const std::string folder = Dialog_Folder();
    const auto path = The_Platform().Save_File(
        {folder, folder + "\\*.CRF", "Name New Cost Report File (CRF)", ".CRF", "Cost Report Files (*.CRF)|*.CRF"});
    return path && Create_CRF(*path, entries, year);
}

bool Create_CRF(const std::string& path, const NewReportEntries& entries, const FiscalYear& year) {
    Platform& window = The_Platform();
    ReportLock lock;
    if (!lock.Take(path) || !Check_Report_Name(path, "System Error")) {
        Forget_Report();
        return false;
    }
    lock.Keep();
    Take_Path(path);
    window.Set_Visible("frmCreateNewCRF", false);
    window.Hourglass(true);
    window.Set_Enabled("frmMain", false);
    window.Set_Text("frmMain", Window_Caption());
    const bool made = Make_File(entries, year);
    if (made && Report_Is_Open()) {
        Show_New_Report([] {
            Show_Report();
            Load_MSA();
            Load_Answers();
        });
    } else {
        Forget_Report();
    }
    window.Hourglass(false);
    window.Set_Enabled("frmMain", true);
    if (made && Report_Is_Open()) Show_New_Report([] { End_Msg_Log(kLogPrefix); });
    return made;
}

bool Create_CRF(const std::string& path, NewReportEntries entries) {
    FiscalYear year;
    return Check_Entries(entries, kNewReportDates, year) == EntryField::None && Report_Is_Free(path) &&
           May_Replace_File(path) && Create_CRF(path, entries, year);
}

}  // namespace tallmar
