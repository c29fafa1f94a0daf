#include "report/new_report.h"

#include <functional>

#include "common/platform.h"
#include "common/text.h"
#include "common/worksheets.h"
#include "report/answers.h"
#include "report/build_worksheet.h"
#include "report/chart.h"
#include "report/master.h"
#include "report/message_log.h"
#include "report/open_report.h"
#include "report/paths.h"
#include "report/registry.h"
#include "report/replace.h"
#include "report/report_lock.h"
#include "report/run_log.h"
#include "report/store.h"

namespace tallmar {

namespace {

constexpr std::string_view kLogPrefix = "NewCRF";

}  // namespace

void Assemble_CRF(const NewReportEntries& entries, const FiscalYear& year) {
    Start_Msg_Log(kLogPrefix);
    Build_Worksheets();
    Build_Log();
    openReport.FormNum = Left(entries.formNum, 4);
    openReport.FYStart = year.start;
    openReport.FYEnd = year.end;
    openReport.ProviderNumber = entries.providerNumber;
    openReport.ProviderName = entries.facilityName;
    Build_Master();
    Build_HeaderLines();
    Build_CC();
    for (const WorksheetFamily& family : Families()) {
        if (!family.inNewReport || !Year_Has(family.years, openReport.FYStart)) continue;
        Build_Worksheet_Reported(std::string(Stem_Of(family.items)));
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
    window.Notify(ReportEvent::Making);
    window.Hourglass(true);
    window.Busy(true);
    window.Notify(ReportEvent::Named);
    const bool made = Make_File(entries, year);
    if (made && Report_Is_Open()) {
        Show_New_Report([] {
            The_Platform().Notify(ReportEvent::Opened);
            Load_Answers();
        });
    } else {
        Forget_Report();
    }
    window.Hourglass(false);
    window.Busy(false);
    if (made && Report_Is_Open()) Show_New_Report([] { End_Msg_Log(kLogPrefix); });
    return made;
}

bool Create_CRF(const std::string& path, NewReportEntries entries) {
    FiscalYear year;
    return Check_Entries(entries, kNewReportDates, year) == EntryField::None && Report_Is_Free(path) &&
           May_Replace_File(path) && Create_CRF(path, entries, year);
}

}  // namespace tallmar
