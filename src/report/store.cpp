#include "report/store.h"

#include "common/file_id.h"
#include "common/platform.h"
#include "common/program.h"
#include "common/sql_text.h"
#include "report/answers.h"
#include "report/backup.h"
#include "report/backup_list.h"
#include "report/chart.h"
#include "report/close_file.h"
#include "report/master.h"
#include "report/open_report.h"
#include "report/paths.h"
#include "report/replace.h"
#include "report/report_lock.h"
#include "report/upgrade.h"

namespace tallmar {

namespace {

constexpr std::string_view kFormNum = "1728";
constexpr std::string_view kLocale = ";LANGID=0x0409;CP=1252;COUNTRY=0";
constexpr const char* kFilter = "Cost Report Files (*.CRF)|*.CRF";
constexpr const char* kExtension = ".CRF";

constexpr std::string_view kInvalidTitle = "Error: Attempting to Open Invalid CRF file";
constexpr std::string_view kSaveFailedTitle = "Error: Save As Request Failed";
constexpr std::string_view kSaveFailedText =
    "PROBLEM Encountered: Your Save As request failed and was not able to be accomplished.  Your original CRF file has "
    "not been altered.  Hit OK to continue running Tallmar.";

bool Give_Up() {
    Forget_Report();
    The_Platform().Hourglass(false);
    return false;
}
bool Refuse(const std::string& text) {
    The_Platform().Message_Box(text, kStop, kInvalidTitle);
    return Give_Up();
}

std::string Cannot_Open(std::string_view trouble) {
    const bool hasBackup = The_Platform().Keeps_Reports_Open() && Has_Backup(openReport.CRFPath);
    return Sql(
        "The file ", openReport.CRFPath, " cannot be opened as a Cost Report File.  ", trouble,
        hasBackup ? "\r\rBackups of it are kept.  Select Report File, Open a Backup to open a copy of one." : "");
}

std::string Foreign_Form() {
    return Sql("You are presently running ", kProgramTitle,
               ".  This program is for use only in producing CMS 1728 Cost Reports.  You have just attempted to open a "
               "CRF file (",
               openReport.CRFTitle, ") containing data for a CMS ", openReport.FormNum,
               " Cost Report.  Your request is being aborted.  Select OK to proceed.");
}

void Tell_Rebuilt_Index() {
    if (!db.Has_Rebuilt_Index()) return;
    The_Platform().Message_Box("An index of the report was damaged and has been rebuilt.", kExclamation, kProgramTitle);
}

// What the file says is kept while it is open.
void Load_Values() {
    Load_HeaderLines();
    Load_Answers();
    openReport.entryAge.Report_Opened(openReport.CRFPath);
}

bool System_Error(const std::exception& error) {
    The_Platform().Message_Box(error.what(), kStop, "System Error");
    return false;
}

void Reopen() {
    try {
        db = DBEngine::OpenDatabase(Native_Path(openReport.CRFPath));
    } catch (const DbError& error) {
        The_Platform().Message_Box(Cannot_Open(error.what()), kStop, kInvalidTitle);
        Forget_Report();
    }
}

// What is replaced goes into the backups.
void Copy_File(const std::string& from, const std::string& to) {
    const auto replaced = Id_Of(to);
    if (replaced && replaced != Id_Of(from)) Keep_Backup_Of(to);
    DBEngine::CopyDatabase(from, to);
}

// Closes the report. False after the box, with the reason in `trouble`.
bool Copy_Open_Report(const std::string& path, std::string& trouble) {
    db.Close();
    try {
        Copy_File(Native_Path(openReport.CRFPath), Native_Path(path));
        return true;
    } catch (const std::exception& error) {
        trouble = error.what();
    }
    The_Platform().Beep();
    The_Platform().Message_Box(kSaveFailedText, kStop, kSaveFailedTitle);
    return false;
}

}  // namespace

bool Report_Is_Open() {
    return db.Is_Open();
}

void Forget_Report() {
    if (Report_Is_Open()) db.Close();
    openReport = {};
    The_Platform().Progress("");
    The_Platform().Notify(ReportEvent::Closed);
    The_Platform().Menus_Stale();
}

void Take_Path(const std::string& path) {
    if (Report_Is_Open()) db.Close();
    OpenReport report;
    report.lock = std::move(openReport.lock);  // until another one is kept in its place
    report.CRFTitle = File_Title_Of(path);
    report.CRFPath = path;
    report.CRFDir = Folder_Of(path);
    openReport = std::move(report);
}

bool Report_Open(const std::string& path, OpenFor use) {
    Platform& window = The_Platform();
    if (Report_Is_Open()) {
        if (window.Close_All_Forms()) return false;
        db.Close();
    }
    window.Notify(ReportEvent::Opening);
    window.Hourglass(true);
    window.Do_Events();
    Take_Path(path);
    // The command line may look at a report that is open in a window.
    ReportLock lock;
    if (window.Keeps_Reports_Open() && !lock.Take(openReport.CRFPath)) return Give_Up();
    lock.Keep();
    if (Is_Remembered_Folder(openReport.CRFDir))
        window.Save_Setting(kProgramTitle, "Startup", "CRFLoc", openReport.CRFDir);
    window.Notify(ReportEvent::Named);
    try {
        const std::string file = Native_Path(openReport.CRFPath);
        // Whoever only reads leaves the file as it is, whatever is to be mended.
        db = use == OpenFor::Reading ? DBEngine::OpenCopy(file) : DBEngine::OpenDatabase(file);
        Tell_Rebuilt_Index();
        if (!Load_Master()) return Refuse(Cannot_Open("It has no Master record."));
        if (openReport.FormNum != kFormNum) {
            window.Beep();
            return Refuse(Foreign_Form());
        }
        if (use == OpenFor::Changing) {
            openReport.backupIsDue = true;
            Upgrade_CRF();
            Tell_Forbidden_Sublines();
        } else if (CRF_Needs_Upgrade()) {
            Upgrade_Copy();
        }
    } catch (const std::exception& error) {
        return Refuse(Cannot_Open(error.what()));
    }
    window.Notify(ReportEvent::Opened);
    Load_Values();
    window.Menus_Stale();
    window.Hourglass(false);
    return true;
}

bool Report_Open_Dialog() {
    if (Report_Is_Open() && The_Platform().Close_All_Forms()) return false;
    Platform& window = The_Platform();
    window.Notify(ReportEvent::Opening);
    const std::string folder = Dialog_Folder();
    const auto path = window.Open_File({folder, folder + "\\*.CRF", "Open An Existing CRF", kExtension, kFilter});
    if (path) return Report_Open(*path);
    window.Notify(ReportEvent::NotChosen);
    return false;
}

bool Report_Copy_To(const std::string& path, std::string& trouble) {
    const bool copied = Report_Is_Open() && Report_Is_Free(path) && Check_Report_Name(path, kSaveFailedTitle) &&
                        Copy_Open_Report(path, trouble);
    Forget_Report();
    return copied;
}

bool Report_Save_As(const std::string& path) {
    if (path.empty() || !Report_Is_Open()) return false;
    ReportLock lock;
    if (!lock.Take(path) || !Check_Report_Name(path, kSaveFailedTitle)) return false;
    std::string trouble;  // its box does not give it
    const bool copied = Copy_Open_Report(path, trouble);
    if (copied) {
        openReport.CRFTitle = File_Title_Of(path);
        openReport.CRFPath = path;
        openReport.ecrMayBeBuilt = false;
        lock.Keep();
        The_Platform().Notify(ReportEvent::Named);
    }
    Reopen();
    if (copied && Report_Is_Open()) openReport.backupIsDue = true;
    The_Platform().Menus_Stale();
    return copied && Report_Is_Open();
}

std::optional<std::string> Ask_Save_As_Path() {
    const std::string folder = Dialog_Folder();
    return The_Platform().Save_File(
        {folder, folder + "\\" + openReport.CRFTitle, "Save Cost Report File As ...", kExtension, kFilter});
}

bool Report_Save_As_Dialog() {
    const auto path = Ask_Save_As_Path();
    return path && Report_Save_As(*path);
}

// In the window a close that cannot compact says nothing.
bool Report_Close() {
    std::string trouble;
    return Report_Close(trouble);
}

bool Report_Close(std::string& trouble) {
    Platform& window = The_Platform();
    window.Hourglass(true);
    window.Busy(true);
    window.Do_Events();
    const bool cancelled = window.Close_All_Forms();
    if (!cancelled) {
        window.Do_Events();
        trouble = Close_File();
        window.Do_Events();
        Forget_Report();
    }
    window.Hourglass(false);
    window.Busy(false);
    return !cancelled;
}

void Report_Release() {
    if (!Report_Is_Open()) return;
    db.Close();
    Drop_Temporary_File(Leftover::Link);
    Forget_Report();
}

bool CreateCRF() {
    The_Platform().Do_Events();
    try {
        db = DBEngine::CreateDatabase(Native_Path(openReport.CRFPath), kLocale);
    } catch (const std::exception& error) {
        return System_Error(error);
    }
    Load_HeaderLines();
    openReport.entryAge.Report_Opened(openReport.CRFPath);
    return true;
}

bool Finish_CRF() {
    const std::string report = Native_Path(openReport.CRFPath);
    try {
        if (Id_Of(report)) Keep_Backup_Of(report);
        DBEngine::Finish_Creation(db);
    } catch (const std::exception& error) {
        return System_Error(error);
    }
    try {
        db = DBEngine::OpenDatabase(report);
    } catch (const std::exception& error) {  // the report is there all the same
        System_Error(error);
    }
    return true;
}

}  // namespace tallmar
