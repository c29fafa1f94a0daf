#include "report/upgrade.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <vector>

#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "common/worksheets.h"
#include "report/backup.h"
#include "report/build_worksheet.h"
#include "report/chart.h"
#include "report/message_log.h"
#include "report/open_report.h"
#include "report/paths.h"
#include "report/registry.h"
#include "report/step.h"
#include "report/worksheet_years.h"

namespace tallmar {

namespace {

constexpr std::string_view kLogPrefix = "Junk";

// A piece of the chain that is due; a failure is reported for `item`.
struct Piece {
    Item item;
    std::function<void()> run;
};
using Pieces = std::vector<Piece>;

bool Any_Row(std::string_view select) {
    return static_cast<bool>(db.Read_Row(select));
}

Pieces Chart_Pieces() {
    if (!Chart_Needs_Upgrade()) return {};
    return {{"CostCenters", Upgrade_Chart}};
}

// Without its dates a report has every worksheet that it has.
bool Has_Year() {
    return openReport.FYStart != Date{};
}

// Worksheets that the fiscal year no longer has go, and so do tables of such a name without a row in the registry.
Pieces Removal_Pieces() {
    if (!Has_Year()) return {};
    std::vector<std::string> items = Read_Items("SELECT Item FROM Worksheets ORDER BY Item;");
    const TableDefs tables = db.TableDefs();
    for (int i = 0; i < tables.Count(); ++i) items.push_back(tables.Item(i).Name());
    Pieces pieces;
    for (const std::string& item : items) {
        const auto same = [&](const Piece& piece) { return Same_Text(piece.item.Name(), item); };
        if (Year_Has(item, openReport.FYStart) || std::ranges::any_of(pieces, same)) continue;
        pieces.push_back({item, [item] { Drop_Worksheet(item); }});
    }
    return pieces;
}

// Worksheets whose table is not as the chart and the fiscal year ask for it.
Pieces Layout_Pieces() {
    Pieces pieces;
    for (const Item item : Read_Items("SELECT Item FROM Worksheets ORDER BY Item;")) {
        const WorksheetFamily* family = Find_Family(item);
        if (family == nullptr || family->fits == nullptr || !db.TableDefs().Has(item.Name())) continue;
        if (!family->fits(item)) pieces.push_back({item, [item, family] { family->fit(item); }});
    }
    return pieces;
}

// Worksheets that the fiscal year has and the report lacks.
Pieces Missing_Pieces() {
    if (!Has_Year()) return {};
    Pieces pieces;
    for (const WorksheetFamily& family : Families()) {
        if (family.years == Years::Always || !family.inNewReport || !Year_Has(family.years, openReport.FYStart))
            continue;
        const Item missing{std::string(Stem_Of(family.items))};
        if (Any_Row(Sql("SELECT Item FROM Worksheets WHERE Item Like(\"", missing.Name(), "*\");"))) continue;
        pieces.push_back({missing, [missing] { Build_Worksheet(missing); }});
    }
    return pieces;
}

struct RegistryRepair {
    const char* wrong;  // rows that need it
    const char* statement;
};
constexpr RegistryRepair kRegistryRepairs[] = {
    {"SELECT Item FROM Worksheets WHERE Item Like(\"O5*\") And (Calc_Lvl<>6 Or Calc_Lvl Is Null);",
     "Update Worksheets Set Calc_Lvl=6 Where Item Like(\"O5*\");"},
    {"SELECT Item FROM Worksheets WHERE Item Like(\"O6p2h?\") And (Calc_Lvl<>7 Or Calc_Lvl Is Null);",
     "Update Worksheets Set Calc_Lvl=7 Where Item Like(\"O6p2h?\");"},
    {"SELECT Item FROM Worksheets WHERE Item=\"Worksheets\" And (Calc_Lvl<>999 Or Calc_Lvl Is Null);",
     "UPDATE Worksheets SET Calc_Lvl = 999 WHERE Item=\"Worksheets\";"},
};

bool Has_ItemName() {
    return db.TableDefs().Item("Worksheets").Shape().Find_Field("ItemName") != nullptr;
}

// The rows of worksheets whose display name is not the present one.
std::vector<std::string> Misnamed_Worksheets() {
    std::vector<std::string> items;
    Recordset rows =
        db.OpenRecordset("SELECT Item, ItemName FROM Worksheets WHERE Calc_Lvl < 900;", RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string item = Nz_Str(rows["Item"]);
        if (Nz_Str(rows["ItemName"]) != WorksheetName(item)) items.push_back(item);
    }
    return items;
}

bool Registry_Is_Wrong() {
    for (const RegistryRepair& repair : kRegistryRepairs) {
        if (Any_Row(repair.wrong)) return true;
    }
    return !Has_ItemName() || !Misnamed_Worksheets().empty();
}

void Repair_Registry() {
    for (const RegistryRepair& repair : kRegistryRepairs) db.Execute(repair.statement);
    if (!Has_ItemName()) {
        TableDef worksheets = db.TableDefs().Item("Worksheets");
        worksheets.Fields_Append(worksheets.CreateField("ItemName", FieldType::Text, 100));
    }
    for (const std::string& item : Misnamed_Worksheets()) {
        db.Execute(
            Sql("Update Worksheets Set ItemName=", Quoted(WorksheetName(item)), " Where Item=", Quoted(item), ";"));
    }
}

Pieces Registry_Pieces() {
    if (!Registry_Is_Wrong()) return {};
    return {{"Worksheets", Repair_Registry}};
}

// The steps in their order. Each looks at what those before it have done, and only reads.
constexpr Pieces (*kSteps[])() = {Chart_Pieces, Removal_Pieces, Layout_Pieces, Missing_Pieces, Registry_Pieces};

// A step that cannot be judged, for want of a table, has nothing to bring up to date.
Pieces Due(Pieces (*step)()) {
    try {
        return step();
    } catch (const DbError& error) {
        if (error.Ends_Work()) throw;
        return {};
    }
}

// The older file stays beside the report as it was.
void Keep_Old_File() {
    const std::filesystem::path report = Native_Path(openReport.CRFPath);
    std::filesystem::path kept = report;
    kept.replace_extension(".before-upgrade.CRF");
    for (int next = 2; !DBEngine::CopyToNewFile(report.string(), kept.string()); ++next) {
        kept = report;
        kept.replace_extension(Sql(".before-upgrade (", next, ").CRF"));
    }
}

void Run_Steps() {
    for (auto* step : kSteps) {
        for (const Piece& piece : Due(step)) Run_Step(piece.item, piece.run);
    }
}

}  // namespace

bool CRF_Needs_Upgrade() {
    return std::ranges::any_of(kSteps, [](auto* step) { return !Due(step).empty(); });
}

void Upgrade_CRF() {
    if (db.Is_Read_Only() || !CRF_Needs_Upgrade()) return;
    Keep_Old_File();
    Keep_Backup();
    Job job(db);
    Start_Msg_Log(kLogPrefix);
    Run_Steps();
    job.Keep();  // of a worksheet whose step failed, too: the others are up to date
    End_Msg_Log(kLogPrefix);
}

void Follow_Fiscal_Year() {
    for (auto* step : kSteps) {
        for (const Piece& piece : Due(step)) piece.run();
    }
}

void Upgrade_Copy() {
    Start_Msg_Log(kLogPrefix);
    Run_Steps();
    constexpr bool kQuiet = true;
    End_Msg_Log(kLogPrefix, kQuiet);
}

}  // namespace tallmar
