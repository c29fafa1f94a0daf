#include "report/edit_key.h"

#include "common/db/sql_text.h"
#include "common/format.h"
#include "common/platform.h"
#include "report/backup.h"
#include "report/open_report.h"
#include "report/store.h"

namespace tallmar {

namespace {

std::string Long_Date(Date date) {
    return Format(Value(date), "mm/dd/yyyy");
}

void Store_Identity(const NewReportEntries& entries, const FiscalYear& year) {
    Keep_Backup();
    Job job(db);
    db.Execute(Sql("UPDATE S2 SET Col_1 = ", Quoted(entries.facilityName), ", Col_2 = ", Quoted(entries.providerNumber),
                   " WHERE LineNum=2;"));
    db.Execute(Sql("UPDATE S2 SET Col_1 = \"", Long_Date(year.start), "\", Col_2 = \"", Long_Date(year.end),
                   "\" WHERE LineNum=7;"));
    db.Execute(Sql("UPDATE Master SET BuildDate = ", Date_Literal(The_Platform().Now()),
                   ", ProviderNumber = ", Quoted(entries.providerNumber), ", FYStart = ", Date_Literal(year.start),
                   ", FYEnd = ", Date_Literal(year.end), ", ProviderName = ", Quoted(entries.facilityName), ";"));
    job.Commit();
    FormNum = "1728";
    FYStart = year.start;
    FYEnd = year.end;
    ProviderNumber = entries.providerNumber;
    ProviderName = entries.facilityName;
}

}  // namespace

NewReportEntries Load_Edit_Key() {
    return {.formNum = FormNum,
            .providerNumber = ProviderNumber,
            .fyStart = Format(Value(FYStart), kEditKeyDates),
            .fyEnd = Format(Value(FYEnd), kEditKeyDates),
            .facilityName = ProviderName};
}

EntryField Save_Edit_Key(NewReportEntries& entries) {
    FiscalYear year;
    const EntryField failed = Check_Entries(entries, kEditKeyDates, year);
    if (failed == EntryField::None) Store_Identity(entries, year);
    return failed;
}

bool Save_Edit_Key_As(NewReportEntries& entries, const std::string& path) {
    FiscalYear year;
    if (Check_Entries(entries, kEditKeyDates, year) != EntryField::None || !Report_Save_As(path)) return false;
    Store_Identity(entries, year);
    return true;
}

bool Save_Edit_Key_As_Dialog(NewReportEntries& entries, EntryField& failed) {
    FiscalYear year;
    failed = Check_Entries(entries, kEditKeyDates, year);
    if (failed != EntryField::None || !Report_Save_As_Dialog()) return false;
    Store_Identity(entries, year);
    return true;
}

}  // namespace tallmar
