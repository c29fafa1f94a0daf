#include "report/message_log.h"

#include <algorithm>

#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "report/tables.h"

namespace tallmar {

namespace {

constexpr Column kErrLogFields[] = {
    {"ErrLevel", FieldType::Text, 1},
    {"ErrForm", FieldType::Text, 12},
    {"ErrMessage", FieldType::Memo},
};

struct IconLevel {
    int icon;
    std::string_view level;
};
// In this order: the exclamation icon holds the bit of the stop icon.
constexpr IconLevel kIconLevels[] = {{kStop, "E"}, {kInformation, "I"}, {kQuestion, "W"}};

struct TitleLevel {
    std::string_view word, level;
};
constexpr TitleLevel kTitleLevels[] = {{"ERROR", "E"}, {"WARNING", "W"}, {"INFO", "I"}};

std::string_view Level_Of(int buttons, const std::string& title) {
    for (const TitleLevel& row : kTitleLevels) {
        if (title.find(row.word) != std::string::npos) return row.level;
    }
    for (const IconLevel& row : kIconLevels) {
        if ((buttons & row.icon) != 0) return row.level;
    }
    return "I";
}

// The worksheet that a title names: "Error: Worksheet A-4 line 3" is about A-4.
std::string Form_Of(std::string_view title) {
    constexpr std::string_view kWorksheet = "WORKSHEET", kTable = "TABLE";
    const std::string upper = To_Upper(title);
    std::string_view form;
    if (const std::size_t at = upper.find(kWorksheet); at != std::string::npos) {
        form = Trim(title.substr(std::min(at + kWorksheet.size() + 1, title.size())));
    } else if (const std::size_t table = upper.find(kTable); table != std::string::npos) {
        form = title.substr(std::min(table + kTable.size() + 1, title.size()));
    } else {
        return "CRF";
    }
    return std::string(form.substr(0, form.find(' ')));
}

std::string Log_Table(std::string_view prefix) {
    return std::string(prefix) + "ErrLog";
}

// An old log is emptied, not made again: with every change of the tables all statements are compiled again.
bool Is_Log(const std::string& table) {
    TableDefs tables = db.TableDefs();
    tables.Refresh();
    if (!tables.Has(table)) return false;
    const TableShape shape = tables.Item(table).Shape();
    return shape.indexes.empty() &&
           std::ranges::equal(shape.fields, kErrLogFields, [](const FieldDef& field, const Column& row) {
               return field == FieldDef{std::string(row.name), row.type, row.size};
           });
}

void Show_Log(std::string_view prefix) {
    if (Msg_Log_Count(prefix) == 0) return;
    const std::string table = Log_Table(prefix);
    std::vector<Platform::BatchMessage> messages;
    Recordset rows =
        db.OpenRecordset(Sql("Select * From ", table, " Order By ErrForm, ErrLevel;"), RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        messages.push_back({Nz_Str(rows["ErrLevel"]), Nz_Str(rows["ErrForm"]), Nz_Str(rows["ErrMessage"])});
    }
    rows.Close();
    The_Platform().Show_Batch_Messages(Sql("The following messages were generated during the ", prefix, " process."),
                                       messages);
}

}  // namespace

void Start_Msg_Log(std::string_view prefix) {
    const std::string table = Log_Table(prefix);
    if (Is_Log(table)) {
        db.Execute(Sql("DELETE * FROM ", table, ";"));
    } else {
        if (TableDefs tables = db.TableDefs(); tables.Has(table)) tables.Delete(table);
        Create_Table(table, kErrLogFields);
        db.TableDefs().Refresh();
    }
    openReport.MsgLogPrefix = prefix;
}

void End_Msg_Log(std::string_view prefix, bool quiet) {
    struct Release {
        ~Release() { openReport.MsgLogPrefix.clear(); }
    } release;
    if (!quiet) Show_Log(prefix);
}

std::size_t Msg_Log_Count(std::string_view prefix) {
    const std::string table = Log_Table(prefix);
    TableDefs tables = db.TableDefs();
    tables.Refresh();
    if (!tables.Has(table)) return 0;
    const Row count = db.Read_Row(Sql("Select Count(ErrMessage) as Cnt From ", table, ";"));
    return static_cast<std::size_t>(count["Cnt"].To_Long());
}

namespace {

void Add_Row(std::string_view level, std::string_view form, std::string_view prompt) {
    db.Execute(Sql("Insert INTO ", Log_Table(openReport.MsgLogPrefix), " (ErrLevel,ErrForm,ErrMessage) VALUES (\"",
                   level, "\", \"", form, "\", \"", prompt, "\");"));
}

}  // namespace

Answer Report_Msg(std::string_view prompt, int buttons, std::string_view title) {
    if (openReport.MsgLogPrefix.empty()) return The_Platform().Message_Box(prompt, buttons, title);
    Add_Row(Level_Of(buttons, To_Upper(title)), Form_Of(title), prompt);
    return Answer::None;
}

void Report_Error(const Item& item, std::string_view prompt, int icon) {
    if (!openReport.MsgLogPrefix.empty()) return Add_Row("E", item.Name(), prompt);
    The_Platform().Message_Box(prompt, icon, "Error: Worksheet " + item.Name());
}

}  // namespace tallmar
