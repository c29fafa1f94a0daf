#include "report/run_log.h"

#include "common/dates.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/tables.h"

namespace tallmar {

namespace {

constexpr Column kLogFields[] = {
    {"LogType", FieldType::Text, 1}, {"DateTime", FieldType::Date},      {"Severity", FieldType::Text, 7},
    {"Module", FieldType::Text, 32}, {"Procedure", FieldType::Text, 32}, {"Worksheet", FieldType::Text, 16},
    {"Message", FieldType::Memo},
};

constexpr std::string_view kHead =
    "INSERT INTO Log (LogType, [DateTime], Severity, Module, [Procedure], Worksheet, Message) VALUES (";

}  // namespace

void Build_Log() {
    Create_Table("Log", kLogFields);
    db.Execute(Sql(kHead, "'*', '", General_Date(The_Platform().Now()),
                   "', 'F.Y.I.', 'Build_Log', 'Build_Log', 'Log', 'Log table built/initialized.');"));
    Edit_Worksheets("Log", "Make", kInternalLevel);
}

void Clear_Log(char type) {
    if (!TableExists("Log", true)) return;
    db.Execute(Sql("DELETE * FROM Log WHERE LogType = '", std::string_view(&type, 1), "';"));
}

void Log_Calc(std::string_view module, std::string_view procedure, std::string_view worksheet,
              std::string_view message) {
    if (!TableExists("Log", true)) return;
    db.Execute(Sql(kHead, "'C', '", General_Date(The_Platform().Now()), "', 'F.Y.I.', ", Quoted(module), ", ",
                   Quoted(procedure), ", ", Quoted(worksheet), ", ", Quoted(message), ");"));
}

}  // namespace tallmar
