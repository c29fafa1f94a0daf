// The commands that make, copy and compact a report, and the one that describes it.
#include <array>
#include <iomanip>

#include "cli/cli.h"
#include "cli/commands.h"
#include "cli/json_text.h"
#include "cli/open_for_command.h"
#include "common/dates.h"
#include "common/variant.h"
#include "report/new_report.h"
#include "report/open_report.h"
#include "report/replace.h"
#include "report/report_lock.h"
#include "report/store.h"

namespace tallmar {

namespace {

constexpr std::array kCounts{"AllCCs", "GenSvcCCs", "CapitalCCs", "EmpBenCCs"};
constexpr const char* kRegistry = "SELECT Item, Calc_Lvl, ItemName FROM Worksheets ORDER BY Calc_Lvl, Item;";

void Print_Info_Json(std::ostream& out) {
    const Row master = db.Read_Row("SELECT * FROM Master;");
    JsonObject info;
    info.Add("File", openReport.CRFPath)
        .Add("FormNum", openReport.FormNum)
        .Add("ProviderNumber", openReport.ProviderNumber);
    info.Add("ProviderName", openReport.ProviderName)
        .Add("FYStart", Iso_Date(openReport.FYStart))
        .Add("FYEnd", Iso_Date(openReport.FYEnd));
    info.Add("BuildDate", master["BuildDate"]);
    for (const char* count : kCounts) info.Add(count, master[count]);
    std::string rows;
    for (Recordset registry = db.OpenRecordset(kRegistry, RecordsetType::Snapshot); !registry.Eof();
         registry.MoveNext()) {
        JsonObject row;
        for (const char* field : {"Item", "Calc_Lvl", "ItemName"}) row.Add(field, registry[field]);
        rows += (rows.empty() ? "" : ",") + row.Text();
    }
    out << info.Add_Raw("Worksheets", "[" + rows + "]").Text() << '\n';
}

void Print_Info_Text(std::ostream& out) {
    const Row master = db.Read_Row("SELECT * FROM Master;");
    out << One_Line(openReport.ProviderName) << "\nProvider     " << One_Line(openReport.ProviderNumber)
        << "\nForm         CMS " << openReport.FormNum << "\nFiscal year  " << General_Date(openReport.FYStart)
        << " to " << General_Date(openReport.FYEnd) << "\nBuilt        " << master["BuildDate"].To_Text() << '\n';
    for (const char* count : kCounts) {
        out << std::left << std::setw(13) << count << (master[count].Is_Null() ? "-" : master[count].To_Text()) << '\n';
    }
    out << "\nLevel  " << std::setw(16) << "Item"
        << "  Name\n";
    for (Recordset registry = db.OpenRecordset(kRegistry, RecordsetType::Snapshot); !registry.Eof();
         registry.MoveNext()) {
        out << std::right << std::setw(5) << registry["Calc_Lvl"].To_Text() << "  " << std::left << std::setw(16)
            << One_Line(Nz_Str(registry["Item"])) << "  " << One_Line(Nz_Str(registry["ItemName"])) << '\n';
    }
}

}  // namespace

int Run_New(CommandContext& context) {
    const CommandArguments& given = context.arguments;
    const bool created = Create_CRF(given.file, NewReportEntries{.formNum = "1728",
                                                                 .providerNumber = given.provider,
                                                                 .fyStart = given.start,
                                                                 .fyEnd = given.end,
                                                                 .facilityName = given.name});
    Report_Release();
    return created ? 0 : 1;
}

int Run_Info(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Reading);
    if (!report) return 1;
    context.arguments.json ? Print_Info_Json(context.out) : Print_Info_Text(context.out);
    return 0;
}

int Run_Save_As(CommandContext& context) {
    if (context.arguments.target.empty()) {
        context.err << "The copy needs a name.\n";
        return kExitUsage;
    }
    const std::string& target = context.arguments.target;
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Reading);
    if (!report || !Report_Is_Free(target) || !May_Replace_File(target)) return kExitFailed;
    std::string trouble;
    if (Report_Copy_To(target, trouble)) return kExitDone;
    if (!trouble.empty()) context.err << One_Line(trouble) << ".\n";
    return kExitFailed;
}

int Run_Compact(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Changing);
    std::string trouble;
    if (!report || !Report_Close(trouble)) return kExitFailed;
    if (trouble.empty()) return kExitDone;
    context.err << "The report was not compacted.  " << One_Line(trouble) << ".\n";
    return kExitFailed;
}

}  // namespace tallmar
