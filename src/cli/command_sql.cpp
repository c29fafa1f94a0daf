// Statements of the report's SQL dialect, one or many, all in one transaction.
#include <istream>
#include <string>

#include "cli/commands.h"
#include "cli/json_text.h"
#include "cli/open_for_command.h"
#include "common/text.h"
#include "report/backup.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

void Print_Rows(const std::string& select, std::ostream& out) {
    for (Recordset rows = db.OpenRecordset(select, RecordsetType::Snapshot); !rows.Eof(); rows.MoveNext()) {
        JsonObject object;
        for (int i = 0; i < rows.Fields_Count(); ++i) object.Add(rows.Fields(i).Name(), rows.Fields(i).Value());
        out << object.Text() << '\n';
    }
}

void Run_Statement(const std::string& statement, std::ostream& out) {
    if (Database::Is_Select(statement)) {
        Print_Rows(statement, out);
    } else {
        out << "{\"rows\":" << db.Execute(statement) << "}\n";
    }
}

void Run_Lines(CommandContext& context) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::string line;
    for (long number = 1; std::getline(context.in, line); ++number) {
        if (number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (Trim(line).empty()) continue;
        try {
            Run_Statement(line, context.out);
        } catch (const DbError&) {
            context.err << "line " << number << ": ";
            throw;
        }
    }
}

}  // namespace

int Run_Sql(CommandContext& context) {
    const std::string& statement = context.arguments.statement;
    const bool reads = statement != "-" && Database::Is_Select(statement);
    const OpenedReport report(context.arguments.file, reads ? OpenedReport::Use::Reading : OpenedReport::Use::Changing);
    if (!report) return 1;
    if (reads) {
        Print_Rows(statement, context.out);
        return 0;
    }
    Keep_Backup();
    Job job(db);
    try {
        if (statement != "-") {
            Run_Statement(statement, context.out);
        } else {
            Run_Lines(context);
        }
        job.Commit();
    } catch (...) {
        // All or nothing: what the lines before did goes as well.
        job.Roll_Back();
        throw;
    }
    return 0;
}

}  // namespace tallmar
