// Cells from a CSV file or standard input, through the checks of the worksheets' edit forms.
#include <fstream>
#include <istream>
#include <map>
#include <optional>

#include "cli/change_report.h"
#include "cli/open_for_command.h"
#include "cli/refusals.h"
#include "common/csv.h"
#include "common/text.h"
#include "report/open_report.h"
#include "screens/cell_batch.h"

namespace tallmar {

namespace {

constexpr std::size_t kFields = 4;  // Item, LineNum, Column, Value

struct CellList {
    std::vector<CellText> cells;
    std::vector<long> lines;  // where in the file each cell is
};

bool Is_Head(const CsvRecord& record) {
    return Same_Text(record.fields[0], "Item") && Same_Text(record.fields[1], "LineNum") &&
           Same_Text(record.fields[2], "Column") && Same_Text(record.fields[3], "Value");
}

// Worksheets are named as tables are, without regard to case: the name as the report spells it, or as given.
std::string Spelled(std::string_view item) {
    const TableDefs tables = db.TableDefs();
    return tables.Has(item) ? tables.Item(item).Name() : std::string(item);
}

CellList Read_Cells(std::istream& in, Refusals& refusals) {
    CellList list;
    CsvReader reader(in);
    std::map<std::string, std::string, std::less<>> items;  // as given, and as the report spells them
    for (bool first = true; auto record = reader.Next(); first = false) {
        if (!record->trouble.empty()) {
            refusals.Add(record->line, record->trouble);
        } else if (record->fields.size() != kFields) {
            refusals.Add(record->line, "A cell is Item,LineNum,Column,Value.");
        } else if (!first || !Is_Head(*record)) {
            auto& fields = record->fields;
            const std::string_view given = Trim(fields[0]);
            auto item = items.find(given);
            if (item == items.end()) item = items.emplace(given, Spelled(given)).first;
            list.cells.push_back(
                {item->second, std::string(Trim(fields[1])), std::string(Trim(fields[2])), std::move(fields[3])});
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
    const std::vector<std::optional<Refusal>> refused = Enter_Cells(list.cells, listener);
    context.platform.Name_Boxes("");
    for (std::size_t i = 0; i < refused.size(); ++i) {
        if (refused[i]) refusals.Add(list.lines[i], refused[i]->title + ": " + refused[i]->text);
    }
}

}  // namespace

int Run_Enter(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Changing);
    if (!report) return kExitFailed;

    std::ifstream file;
    const std::string& path = context.arguments.cells;
    const bool fromFile = !path.empty() && path != "-";
    if (fromFile) {
        file.open(path, std::ios::binary);
        // A folder opens but does not read.
        if (!file || (file.peek() == std::ifstream::traits_type::eof() && !file.eof())) {
            context.err << path << " cannot be read.\n";
            return kExitFailed;
        }
    }
    std::istream& in = fromFile ? file : context.in;
    Refusals refusals;
    std::vector<std::string> dropped;
    const CellList list = Read_Cells(in, refusals);
    if (in.bad()) {
        context.err << (fromFile ? path : "Standard input") << " cannot be read.\n";
        return kExitFailed;
    }
    if (!list.cells.empty()) {
        Change_Report(context, [&] { Enter(list, context, refusals, dropped); });
    }
    refusals.Print(context.err);
    for (const std::string& text : dropped) context.err << One_Line(text) << '\n';
    return refusals.Empty() && dropped.empty() ? kExitDone : kExitFailed;
}

}  // namespace tallmar
