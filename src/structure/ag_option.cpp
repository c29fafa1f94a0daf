#include "structure/ag_option.h"

#include "calc/w_s2.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "structure/cc_group.h"
#include "structure/line_references.h"

namespace tallmar {

namespace {

struct Direction {
    Currency from, to;
    std::string_view lineType;  // of the line in the chart afterwards
};
constexpr Direction kSplit = {5_cur, 5.01_cur, "U"};
constexpr Direction kUnsplit = {5.01_cur, 5_cur, "S"};

void Exchange_AG(const Direction& direction) {
    const auto& [from, to, lineType] = direction;
    for (const std::string& table : Tables_Of_Lines()) Renumber_Line(table, from, to);
    db.Execute(Sql("UPDATE CostCenters SET LineNum = ", to, ", CCNum = ", to, ", LineType = \"", lineType,
                   "\", CCGroup = ", CCGroupFor(to), " WHERE (CCNum=", from, ");"));
}

void Exchange_And_Keep(const Direction& direction) {
    Job job(db);
    try {
        Exchange_AG(direction);
    } catch (const DbError&) {
        job.Keep();  // what was exchanged before the error stays exchanged
        throw;
    }
    job.Keep();
}

bool Has_Line(std::string_view select, Currency line) {
    Recordset rows = db.OpenRecordset(select, RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        if (rows["LineNum"].To_Currency() == line) return true;
    }
    return false;
}

bool Has_Line(Currency line) {
    return Has_Line("Select LineNum, CCGroup From CostCenters Where int(LineNum)=5;", line) ||
           (TableExists("A", true) && Has_Line("Select LineNum, CCGroup From A Where int(LineNum)=5;", line));
}

// No other line of the group is in the chart: with 5.02 beside it, 5.01 keeps its number.
bool Stands_Alone(Currency line) {
    Recordset rows =
        db.OpenRecordset("Select LineNum, CCGroup From CostCenters Where int(LineNum)=5;", RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        if (rows["LineNum"].To_Currency() != line) return false;
    }
    return true;
}

}  // namespace

void SplitAG() {
    Exchange_And_Keep(kSplit);
}

void UnsplitAG() {
    Exchange_And_Keep(kUnsplit);
}

void Follow_AG_Option() {
    const int option = Read_AGOption();
    const Direction& direction = option == 0 ? kUnsplit : kSplit;
    if (Has_Line(direction.from) && !Has_Line(direction.to)) {
        if (option != 0) {
            SplitAG();
        } else if (Stands_Alone(direction.from)) {
            UnsplitAG();
        }
    }
    Load_AGOption();
}

}  // namespace tallmar
