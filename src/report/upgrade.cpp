#include "report/upgrade.h"

#include <filesystem>

#include "common/atomic_file.h"
#include "common/dates.h"
#include "common/db/sql_text.h"
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

namespace tallmar {

namespace {

constexpr std::string_view kLogPrefix = "Junk";

std::span<const UpgradeStep> worksheetSteps;

bool Any_Row(std::string_view select) {
    return static_cast<bool>(db.Read_Row(select));
}

// Worksheets of the periods before 10/1/2000.
constexpr std::string_view kOldWorksheets =
    "SELECT Item FROM Worksheets WHERE Item In (\"A1\", \"A2\", \"A3\") Or Item Like \"A83*\";";

bool Old_Worksheets_Are_Due() {
    return FYStart >= kCostLimitsEnd && Any_Row(kOldWorksheets);
}

void Remove_Old_Worksheets() {
    for (const std::string& item : Read_Items(kOldWorksheets)) Drop_Worksheet(item);
}

bool S21_Is_Due() {
    return FYStart >= kS21From && Find_Family("S21") != nullptr &&
           !Any_Row("SELECT Item FROM Worksheets WHERE Item=\"S21\";");
}

void Add_S21() {
    Build_Worksheet("S21");
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

bool Registry_Is_Due() {
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

constexpr UpgradeStep kFirstSteps[] = {
    {"CostCenters", Chart_Needs_Upgrade, Upgrade_Chart},
    {"A1", Old_Worksheets_Are_Due, Remove_Old_Worksheets},
};
constexpr UpgradeStep kLastSteps[] = {
    {"S21", S21_Is_Due, Add_S21},
    {"Worksheets", Registry_Is_Due, Repair_Registry},
};

template <class Visitor>
void For_Each_Step(Visitor visit) {
    for (const std::span<const UpgradeStep> steps :
         {std::span<const UpgradeStep>(kFirstSteps), worksheetSteps, std::span<const UpgradeStep>(kLastSteps)}) {
        for (const UpgradeStep& step : steps) visit(step);
    }
}

// A step that cannot be judged, for want of a table, has nothing to bring up to date.
bool Is_Needed(const UpgradeStep& step) {
    try {
        return step.needed();
    } catch (const DbError&) {
        return false;
    }
}

// The older file stays beside the report as it was.
void Keep_Old_File() {
    std::filesystem::path kept = Native_Path(CRFPath);
    kept.replace_extension(".before-upgrade.CRF");
    Copy_File_Atomically(Native_Path(CRFPath), kept.string());
}

}  // namespace

void Install_Upgrade_Steps(std::span<const UpgradeStep> steps) {
    worksheetSteps = steps;
}

bool CRF_Needs_Upgrade() {
    bool needed = false;
    For_Each_Step([&](const UpgradeStep& step) { needed = needed || Is_Needed(step); });
    return needed;
}

void Upgrade_CRF() {
    if (db.Is_Read_Only() || !CRF_Needs_Upgrade()) {
        Tell_Forbidden_Sublines();
        return;
    }
    Keep_Old_File();
    Keep_Backup();
    Job job(db);
    Start_Msg_Log(kLogPrefix);
    Tell_Forbidden_Sublines();
    For_Each_Step([](const UpgradeStep& step) {
        Run_Step(step.name, [&] {
            if (Is_Needed(step)) step.run();
        });
    });
    job.Commit();
    End_Msg_Log(kLogPrefix);
}

}  // namespace tallmar
