// Cells from a CSV file or standard input, through the checks of the worksheets' edit forms.
#include <fstream>
#include <istream>
#include <map>

#include "cli/commands.h"
#include "cli/open_for_command.h"
#include "common/csv.h"
#include "common/text.h"
#include "report/backup.h"
#include "report/open_report.h"
#include "screens/cell_batch.h"

namespace tallmar {

namespace {

constexpr std::size_t kFields = 4;  // Item, LineNum, Column, Value

// Refused lines with the reason; an entry of the list below has its own line.
using Refusals = std::multimap<long, std::string>;

struct CellList {
    std::vector<CellText> cells;
    std::vector<long> lines;  // where in the file each cell stands
};

bool Is_Head(const CsvRecord& record) {
    return Same_Text(record.fields[0], "Item") && Same_Text(record.fields[1], "LineNum") &&
           Same_Text(record.fields[2], "Column") && Same_Text(record.fields[3], "Value");
}

CellList Read_Cells(std::istream& in, Refusals& refusals) {
    CellList list;
    CsvReader reader(in);
    for (bool first = true; auto record = reader.Next(); first = false) {
        if (!record->trouble.empty()) {
            refusals.emplace(record->line, record->trouble);
        } else if (record->fields.size() != kFields) {
            refusals.emplace(record->line, "A cell is Item,LineNum,Column,Value.");
        } else if (!first || !Is_Head(*record)) {
            auto& fields = record->fields;
            list.cells.push_back({std::string(Trim(fields[0])), std::string(Trim(fields[1])),
                                  std::string(Trim(fields[2])), std::move(fields[3])});
            list.lines.push_back(record->line);
        }
    }
    return list;
}

// What the closing of a form dropped goes to `dropped`.
void Enter(const CellList& list, CommandContext& context, Refusals& refusals, std::vector<std::string>& dropped) {
    const BatchListener listener{
        .cell = [&](std::size_t at) { context.platform.Name_Boxes("line " + std::to_string(list.lines[at]) + ": "); },
        .dropped = [&](std::string_view text) { dropped.emplace_back(text); },
    };
    Job job(db);
    try {
        const std::vector<CellOutcome> outcomes = Enter_Cells(list.cells, listener);
        context.platform.Name_Boxes("");
        for (std::size_t i = 0; i < outcomes.size(); ++i) {
            if (!outcomes[i].stored) refusals.emplace(list.lines[i], outcomes[i].title + ": " + outcomes[i].text);
        }
        job.Commit();
    } catch (...) {
        job.Roll_Back();
        throw;
    }
}

}  // namespace

int Run_Enter(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Changing);
    if (!report) return 1;

    std::ifstream file;
    const std::string& path = context.arguments.cells;
    const bool fromFile = !path.empty() && path != "-";
    if (fromFile) {
        file.open(path, std::ios::binary);
        // A folder opens but does not read.
        if (!file || (file.peek() == std::ifstream::traits_type::eof() && !file.eof())) {
            context.err << path << " cannot be read.\n";
            return 1;
        }
    }
    std::istream& in = fromFile ? file : context.in;
    Refusals refusals;
    std::vector<std::string> dropped;
    const CellList list = Read_Cells(in, refusals);
    if (in.bad()) {
        context.err << (fromFile ? path : "Standard input") << " cannot be read.\n";
        return 1;
    }
    if (!list.cells.empty()) {
        Keep_Backup();
        Enter(list, context, refusals, dropped);
    }
    for (const auto& [line, reason] : refusals) context.err << "line " << line << ": " << One_Line(reason) << '\n';
    for (const std::string& text : dropped) context.err << One_Line(text) << '\n';
    return refusals.empty() && dropped.empty() ? 0 : 1;
}

}  // namespace tallmar
