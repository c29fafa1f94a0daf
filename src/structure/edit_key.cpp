#include "structure/edit_key.h"

#include "common/format.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "report/backup.h"
#include "report/open_report.h"
#include "report/store.h"
#include "report/upgrade.h"
#include "report/worksheet_years.h"

namespace tallmar {

namespace {

constexpr std::string_view kNone = "none";

std::string Long_Date(Date date) {
    return Format(Value(date), kStoredDates);
}

void Write_Identity(const Identity& identity) {
    const FiscalYear& year = identity.year;
    db.Execute(Sql("UPDATE S2 SET Col_1 = ", Quoted(identity.facilityName),
                   ", Col_2 = ", Quoted(identity.providerNumber), " WHERE LineNum=2;"));
    db.Execute(Sql("UPDATE S2 SET Col_1 = \"", Long_Date(year.start), "\", Col_2 = \"", Long_Date(year.end),
                   "\" WHERE LineNum=7;"));
    db.Execute(Sql("UPDATE Master SET BuildDate = ", Date_Literal(The_Platform().Now()),
                   ", ProviderNumber = ", Quoted(identity.providerNumber), ", FYStart = ", Date_Literal(year.start),
                   ", FYEnd = ", Date_Literal(year.end), ", ProviderName = ", Quoted(identity.facilityName), ";"));
}

void Take_Identity(const Identity& identity) {
    openReport.FYStart = identity.year.start;
    openReport.FYEnd = identity.year.end;
    openReport.ProviderNumber = identity.providerNumber;
    openReport.ProviderName = identity.facilityName;
}

EntryField Check_Edit_Key(NewReportEntries& entries, Identity& identity) {
    FiscalYear year;
    const EntryField failed = Check_Entries(entries, kEditKeyDates, year);
    if (failed != EntryField::None) return failed;
    if (const std::string question = Change_Of_Year_Question(year.start); !question.empty()) {
        const Answer answer = The_Platform().Message_Box(question, kChangeOfYearButtons, kChangeOfYearTitle);
        if (answer != Answer::Yes) return EntryField::Start;
    }
    identity = {.providerNumber = entries.providerNumber, .facilityName = entries.facilityName, .year = year};
    return EntryField::None;
}

}  // namespace

Identity Present_Identity() {
    return {.providerNumber = openReport.ProviderNumber,
            .facilityName = openReport.ProviderName,
            .year = {openReport.FYStart, openReport.FYEnd}};
}

std::string Change_Of_Year_Question(Date start) {
    const YearMove move = Move_Year(openReport.FYStart, start);
    if (!move) return {};
    return Sql("The new fiscal year uses other worksheets: ", move.added.empty() ? kNone : move.added,
               "; no longer used: ", move.removed.empty() ? kNone : move.removed, ".  Do you wish to continue?");
}

void Store_Identity(const Identity& identity, const std::function<void()>& first) {
    Keep_Backup();
    const Identity before = Present_Identity();
    Job job(db);
    try {
        if (first) first();
        Write_Identity(identity);
        Take_Identity(identity);
        Follow_Fiscal_Year();
        job.Keep();
    } catch (...) {
        Take_Identity(before);
        throw;
    }
    openReport.FormNum = "1728";
}

namespace {

// From the editor: on S-2 the cells are counted.
void Save_Identity(const Identity& identity) {
    const bool isOther = identity != Present_Identity();
    Store_Identity(identity);
    if (isOther) openReport.entryAge.Other_Entry();
}

}  // namespace

NewReportEntries Load_Edit_Key() {
    return {.formNum = openReport.FormNum,
            .providerNumber = openReport.ProviderNumber,
            .fyStart = Format(Value(openReport.FYStart), kEditKeyDates),
            .fyEnd = Format(Value(openReport.FYEnd), kEditKeyDates),
            .facilityName = openReport.ProviderName};
}

EntryField Save_Edit_Key(NewReportEntries& entries) {
    Identity identity;
    const EntryField failed = Check_Edit_Key(entries, identity);
    if (failed == EntryField::None) Save_Identity(identity);
    return failed;
}

bool Save_Edit_Key_As(NewReportEntries& entries, const std::string& path) {
    Identity identity;
    if (Check_Edit_Key(entries, identity) != EntryField::None || !Report_Save_As(path)) return false;
    Save_Identity(identity);
    return true;
}

bool Save_Edit_Key_As_Dialog(NewReportEntries& entries, EntryField& failed) {
    Identity identity;
    failed = Check_Edit_Key(entries, identity);
    if (failed != EntryField::None || !Report_Save_As_Dialog()) return false;
    Save_Identity(identity);
    return true;
}

}  // namespace tallmar
