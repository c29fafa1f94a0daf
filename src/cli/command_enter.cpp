// Cells from a CSV file or standard input, through the checks of the worksheets' edit forms.
#include <fstream>
#include <istream>

#include "cli/commands.h"
#include "cli/open_for_command.h"
#include "common/csv.h"
#include "common/text.h"
#include "report/backup.h"
#include "report/open_report.h"
#include "screens/cell_entry.h"

namespace tallmar {

namespace {

constexpr std::size_t kFields = 4;  // Item, LineNum, Column, Value

struct CellList {
    std::vector<CellText> cells;
    std::vector<long> lines;  // where in the file each cell stands
    bool whole = true;        // no line had to be passed over
};

bool Is_Head(const CsvRecord& record) {
    return record.line == 1 && Same_Text(record.fields[0], "Item") && Same_Text(record.fields[1], "LineNum") &&
           Same_Text(record.fields[2], "Column") && Same_Text(record.fields[3], "Value");
}

void Refuse(std::ostream& err, long line, std::string_view reason) {
    err << "line " << line << ": " << reason << '\n';
}

CellList Read_Cells(std::istream& in, std::ostream& err) {
    CellList list;
    CsvReader reader(in);
    while (auto record = reader.Next()) {
        if (!record->trouble.empty()) {
            Refuse(err, record->line, record->trouble);
            list.whole = false;
        } else if (record->fields.size() != kFields) {
            Refuse(err, record->line, "A cell is Item,LineNum,Column,Value.");
            list.whole = false;
        } else if (!Is_Head(*record)) {
            auto& fields = record->fields;
            list.cells.push_back({std::string(Trim(fields[0])), std::string(Trim(fields[1])),
                                  std::string(Trim(fields[2])), std::move(fields[3])});
            list.lines.push_back(record->line);
        }
    }
    return list;
}

}  // namespace

int Run_Enter(CommandContext& context) {
    const OpenedReport report(context.arguments.file);
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
    const CellList list = Read_Cells(fromFile ? file : context.in, context.err);

    Keep_Backup();
    Job job(db);
    bool refused = !list.whole;
    try {
        const std::vector<CellOutcome> outcomes = Enter_Cells(list.cells);
        for (std::size_t i = 0; i < outcomes.size(); ++i) {
            if (outcomes[i].stored) continue;
            refused = true;
            Refuse(context.err, list.lines[i], outcomes[i].title + ": " + outcomes[i].text);
        }
        job.Commit();
    } catch (...) {
        job.Roll_Back();
        throw;
    }
    return refused ? 1 : 0;
}

}  // namespace tallmar
