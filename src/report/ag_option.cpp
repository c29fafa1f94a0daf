#include "report/ag_option.h"

#include <span>

#include "common/item.h"
#include "common/numbers.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "report/registry.h"

namespace tallmar {

namespace {

// What the exchange does to one worksheet. In the texts <T> is the table, <old> and <new> are the line numbers,
// <oldcol> and <newcol> the same times 100, <group> the group code of the new line.
struct Exchange {
    ItemPattern items;
    std::span<const std::string_view> fields;  // renamed from <field>_<oldcol>
    std::span<const std::string_view> statements;
};

constexpr std::string_view kNoFields[1] = {};
constexpr std::string_view kMoney[] = {"CC_"};
constexpr std::string_view kStatistics[] = {"CC_", "Recon_"};

constexpr std::string_view kA[] = {
    "UPDATE A SET LineNum = <new>, CCNum = <new>, CCGroup = <group> WHERE (CCNum=<old>);"};
constexpr std::string_view kA1ToA3[] = {"UPDATE <T> SET LineNum = <new> WHERE (LineNum=<old>);"};
constexpr std::string_view kA4[] = {"UPDATE A4 SET Col_3 = <new> WHERE Col_3=<old> and LineNum<30;",
                                    "UPDATE A4 SET Col_6 = <new> WHERE Col_6=<old> and LineNum<30;"};
constexpr std::string_view kA5[] = {"UPDATE A5 SET [Col_4] = <new> WHERE [Col_4]=<old>;"};
constexpr std::string_view kB[] = {"UPDATE <T> SET LineNum = <new>, CCNum = <new> WHERE (CCNum=<old>);"};
constexpr std::string_view kK5p2[] = {"UPDATE <T>X SET ColCCNum = <new> WHERE ColCCNum=<old>;"};

constexpr Exchange kExchanges[] = {
    {"A", std::span(kNoFields, 0), kA},
    {"A1", std::span(kNoFields, 0), kA1ToA3},
    {"A2", std::span(kNoFields, 0), kA1ToA3},
    {"A3", std::span(kNoFields, 0), kA1ToA3},
    {"A4", std::span(kNoFields, 0), kA4},
    {"A5", std::span(kNoFields, 0), kA5},
    {"B", kMoney, kB},
    {"B1", kStatistics, kB},
    {"K5p2h#", kStatistics, kK5p2},
};

// Internal tables, which the walk over the worksheets does not meet, and the chart at the end.
struct InternalExchange {
    std::string_view table, statement;
};
constexpr InternalExchange kInternalExchanges[] = {
    {"B1X", "UPDATE B1X SET RowCCNum = <new> WHERE (RowCCNum=<old>);"},
    {"B1X", "UPDATE B1X SET ColCCNum = \"CC_<newcol>\" WHERE (ColCCNum=\"CC_<oldcol>\");"},
    {"StatLinks", "UPDATE StatLinks SET FromCCNum = <new> WHERE (FromCCNum=<old>);"},
    {"StatLinks", "UPDATE StatLinks SET ToCCNum = <new> WHERE (ToCCNum=<old>);"},
    {"CostCenters",
     "UPDATE CostCenters SET LineNum = <new>, CCNum = <new>, LineType = \"<type>\", CCGroup = <group> "
     "WHERE (CCNum=<old>);"},
};

struct Direction {
    Currency from, to;
    std::string_view fromText, toText;
    std::string_view lineType;  // of the line in the chart afterwards
};
constexpr Direction kSplit = {5_cur, 5.01_cur, "5", "5.01", "U"};
constexpr Direction kUnsplit = {5.01_cur, 5_cur, "5.01", "5.00", "S"};

constexpr std::string_view kLiveWorksheets =
    "SELECT Item From Worksheets Where (KillDate <= MakeDate Or KillDate Is Null) And Calc_Lvl < 999 ORDER BY Item;";

std::string Column_Number(Currency line) {
    return std::to_string(line.Scaled() / (Currency::kScale / 100));
}

std::string Fill_In(std::string_view statement, std::string_view table, const Direction& direction) {
    std::string text = Replace(statement, "<T>", table);
    text = Replace(text, "<old>", direction.fromText);
    text = Replace(text, "<new>", direction.toText);
    text = Replace(text, "<oldcol>", Column_Number(direction.from));
    text = Replace(text, "<newcol>", Column_Number(direction.to));
    text = Replace(text, "<type>", direction.lineType);
    return Replace(text, "<group>", std::to_string(CCGroupFor(direction.to)));
}

void Rename_Fields(const std::string& table, std::span<const std::string_view> stems, const Direction& direction) {
    TableDef def = db.TableDefs().Item(table);
    for (const std::string_view stem : stems) {
        const std::string from = Sql(stem, Column_Number(direction.from));
        if (def.Shape().Find_Field(from) != nullptr) def.Field_Name(from, Sql(stem, Column_Number(direction.to)));
    }
}

void Exchange_AG(const Direction& direction) {
    for (const std::string& item : Read_Items(kLiveWorksheets)) {
        for (const Exchange& exchange : kExchanges) {
            if (!exchange.items.Matches(item)) continue;
            Rename_Fields(item, exchange.fields, direction);
            for (const std::string_view statement : exchange.statements) {
                db.Execute(Fill_In(statement, item, direction));
            }
        }
    }
    for (const InternalExchange& exchange : kInternalExchanges) {
        if (TableExists(exchange.table, true)) db.Execute(Fill_In(exchange.statement, exchange.table, direction));
    }
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

// The option as the report holds it; 0 where there is none.
int Read_Option() {
    try {
        return static_cast<int>(Val(Nz_Str(db.Read_Row("SELECT Col_1 From S2 WHERE LineNum=26;")["Col_1"])));
    } catch (const DbError& error) {
        if (error.Ends_Work()) throw;
        return 0;
    }
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

void Load_AGOption() {
    AGOption = Read_Option();
}

int CCGroupFor(Currency ccNum) {
    const auto hundredfold = static_cast<int>(ccNum.Scaled() / (Currency::kScale / 100));
    if (ccNum.Int() != 5_cur || Read_Option() != 1 || ccNum == 5.01_cur) return hundredfold;
    return hundredfold + (ccNum >= 5.02_cur && ccNum <= 5.03_cur ? 19 : 20);
}

void SplitAG() {
    Exchange_And_Keep(kSplit);
}

void UnsplitAG() {
    Exchange_And_Keep(kUnsplit);
}

void Follow_AG_Option() {
    const int option = Read_Option();
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
