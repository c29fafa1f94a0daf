// Statements of the report's SQL dialect, one or many, all in one transaction.
#include <algorithm>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "cli/change_report.h"
#include "cli/json_text.h"
#include "cli/open_for_command.h"
#include "common/text.h"
#include "common/text_input.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

struct SqlLine {
    long number;  // in standard input; 0 for a statement of the command line
    std::string statement;
};

// Rows are printed as they are read: a SELECT may have more of them than memory holds.
void Print_Rows(const std::string& select, std::ostream& out) {
    db.For_Each_Row(select, [&](const Row& row) {
        JsonObject object;
        for (int i = 0; const std::string& name : *row.Field_Names()) object.Add(name, row[i++]);
        out << object.Text() << '\n';
    });
}

// What cannot be read as a statement is refused when its turn comes.
bool Is_Select(const SqlLine& line) {
    try {
        return Database::Is_Select(line.statement);
    } catch (const DbError&) {
        return false;
    }
}

void Run_Statement(const std::string& statement, std::ostream& out) {
    if (Database::Is_Select(statement)) {
        Print_Rows(statement, out);
    } else {
        out << "{\"rows\":" << db.Execute(statement) << "}\n";
    }
}

void Run_Statements(const std::vector<SqlLine>& lines, CommandContext& context) {
    for (const auto& [number, statement] : lines) {
        try {
            Run_Statement(statement, context.out);
        } catch (const DbError&) {
            if (number > 0) context.err << "line " << number << ": ";
            throw;
        }
    }
}

// Nothing after the words that say why.
std::optional<std::vector<SqlLine>> Read_Statements(CommandContext& context) {
    if (context.arguments.statement != "-") return std::vector<SqlLine>{{0, context.arguments.statement}};
    std::vector<SqlLine> lines;
    std::string line;
    if (Pass_Byte_Order_Mark(context.in) == TextStart::Utf16) {
        context.err << kUtf16Trouble << '\n';
        return std::nullopt;
    }
    for (long number = 1; std::getline(context.in, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!Trim(line).empty()) lines.push_back({number, line});
    }
    if (context.in.bad()) {
        context.err << "Standard input cannot be read.\n";
        return std::nullopt;
    }
    return lines;
}

}  // namespace

int Run_Sql(CommandContext& context) {
    // Read whole before the report is opened: one who types holds nobody up, and half an input is no input.
    const auto lines = Read_Statements(context);
    if (!lines) return kExitFailed;
    const bool reads = std::ranges::all_of(*lines, Is_Select);
    const OpenedReport report(context.arguments.file, reads ? OpenedReport::Use::Reading : OpenedReport::Use::Changing);
    if (!report) return kExitFailed;
    if (reads) {
        // One state of the report for all of them.
        Job job(db, Job::Kind::Reading);
        Run_Statements(*lines, context);
    } else {
        Change_Report(context, [&] { Run_Statements(*lines, context); });
    }
    return kExitDone;
}

}  // namespace tallmar
