#include "calc/driver.h"

#include <algorithm>
#include <vector>

#include "calc/sync_cp2.h"
#include "calc/w_s2.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "common/worksheets.h"
#include "report/backup.h"
#include "report/message_log.h"
#include "report/open_report.h"
#include "report/run_log.h"
#include "report/step.h"

namespace tallmar {

namespace {

constexpr std::string_view kLogPrefix = "CalcAll";
constexpr std::string_view kSelection =
    "SELECT * FROM Worksheets WHERE Calc_Lvl < 900 AND KillDate <= MakeDate ORDER BY Calc_Lvl;";

// A worksheet that needs a figure of a later one is calculated again behind it.
struct SecondPass {
    std::string_view behind;
    const char* item;
};
constexpr SecondPass kSecondPasses[] = {{"F2", "F"}};

struct Selected {
    std::int32_t level;
    std::string item;
    auto operator<=>(const Selected&) const = default;
};

std::vector<Selected> Read_Selection() {
    std::vector<Selected> selection;
    Recordset rows = db.OpenRecordset(kSelection, RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        selection.push_back({rows["Calc_Lvl"].To_Long(), Nz_Str(rows["Item"])});
    }
    rows.Close();
    std::ranges::sort(selection);
    return selection;
}

bool Has_Line_Break(std::string_view text) {
    return text.find_first_of("\r\n") != text.npos;
}

std::vector<int> Text_Fields(const Recordset& rows) {
    std::vector<int> positions;
    for (int i = 0; i < rows.Fields_Count(); ++i) {
        if (Has_Size(rows.Fields(i).Type())) positions.push_back(i);
    }
    return positions;
}

bool Has_Line_Break(const std::string& select) {
    Recordset rows = db.OpenRecordset(select, RecordsetType::Snapshot);
    const std::vector<int> texts = Text_Fields(rows);
    if (texts.empty()) return false;
    for (; !rows.Eof(); rows.MoveNext()) {
        for (const int position : texts) {
            if (Has_Line_Break(std::string_view(Nz_Str(rows.Fields(position).Value())))) return true;
        }
    }
    return false;
}

// Takes the line breaks out of the text fields of every row; memos keep theirs.
void Clean_Texts(const Item& item) {
    const std::string select = Sql("Select * From ", item.Name(), ";");
    if (!Has_Line_Break(select)) return;
    Recordset rows = db.OpenRecordset(select);
    const std::vector<int> texts = Text_Fields(rows);
    for (; !rows.Eof(); rows.MoveNext()) {
        bool changed = false;
        for (const int position : texts) {
            std::string text = Nz_Str(rows.Fields(position).Value());
            if (!Has_Line_Break(std::string_view(text))) continue;
            std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
            if (!changed) rows.Edit();
            changed = true;
            rows.Fields(position).Set(text);
        }
        if (changed) rows.Update();
    }
}

void Dispatch(const Item& item) {
    const WorksheetFamily* family = Find_Family(item);
    if (family == nullptr || family->calc == nullptr || Have_Ended(family->years, openReport.FYStart)) return;
    family->calc(item);
}

bool Is_Selected(const std::vector<Selected>& selection, std::string_view item) {
    return std::ranges::any_of(selection, [&](const Selected& row) { return row.item == item; });
}

void Calc_Worksheets() {
    Run_Step("S3p3", Sync_Cp2);
    const std::vector<Selected> selection = Read_Selection();
    for (const Selected& row : selection) {
        The_Platform().Progress(Sql(" Calculating level ", row.level, ": ", row.item));
        The_Platform().Do_Events();
        const Item item(row.item);
        Run_Step(item, [&] {
            Clean_Texts(item);
            Dispatch(item);
        });
        for (const SecondPass& pass : kSecondPasses) {
            if (row.item == pass.behind && Is_Selected(selection, pass.item)) {
                Run_Step(pass.item, [&] { Dispatch(pass.item); });
            }
        }
    }
}

// Whatever ends the run, messages are boxes again and the progress text goes.
struct RunEnd {
    ~RunEnd() {
        openReport.MsgLogPrefix.clear();
        The_Platform().Progress("");
    }
};

}  // namespace

void Calc_All() {
    const RunEnd end;
    Keep_Backup();
    Job job(db);
    Clear_Log('C');
    Load_AGOption();
    Start_Msg_Log(kLogPrefix);
    Calc_Worksheets();
    job.Keep();  // with what a worksheet wrote before its error, which the run's messages name
    openReport.entryAge.Calculated(db, Msg_Log_Count(kLogPrefix));
    The_Platform().Progress(" Calculations completed.");
    End_Msg_Log(kLogPrefix);
}

}  // namespace tallmar
