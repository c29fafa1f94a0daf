// The step-down: one pass over the columns of B-1, each allocated to the lines below its cost center before the next.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "calc/stat_columns.h"
#include "calc/w_b.h"
#include "calc/w_b1.h"
#include "calc/worksheet.h"
#include "common/numbers.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "db/convert.h"
#include "report/message_log.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

constexpr int kFirstColumn = 5;  // of B1: the statistics begin; of B: NetExpenses
constexpr Currency kTotalLine = 29_cur;
constexpr Currency kCostLine = 30_cur;
constexpr Currency kUnitLine = 31_cur;

constexpr std::string_view kNoLine = "CALC_B1: No record found with LineNum = ";
constexpr std::string_view kNoBTotal = "CALC_B1: No B record found with LineNum = 29.";

// Option 1 splits administrative and general costs into shared (5.01), reimbursable (5.02) and nonreimbursable (5.03).
constexpr std::array kOption1Line502{
    "UPDATE B1 INNER JOIN B ON B1.LineNum = B.LineNum SET B1.CC_502 = IIF(IsNull([B].[SubTotal]),0,[B].[SubTotal])"
    " + IIF(IsNull([B].[CC_501]),0,[B].[CC_501]) WHERE B1.LineNum >= 6 And B1.LineNum < 15;",
    "UPDATE B1 SET CC_502 = 0 WHERE LineNum >= 15 AND LineNum < 29;",
};
constexpr std::array kOption1Line503{
    "UPDATE B1 INNER JOIN B ON B1.LineNum = B.LineNum SET B1.CC_503 = IIF(IsNull([B].[SubTotal]),0,[B].[SubTotal])"
    " + IIF(IsNull([B].[CC_501]),0,[B].[CC_501]) + IIF(IsNull([B].[CC_502]),0,[B].[CC_502])"
    " WHERE B1.LineNum >= 15 And B1.LineNum < 24;",
    "UPDATE B1 SET CC_503 = 0 WHERE (LineNum >= 6 AND LineNum < 15) OR (LineNum >= 24 AND LineNum < 29);",
};

// The records of B as they were read after the net expenses were brought in. What is stored in a column of a cost
// center goes into the table and in here alike; SubTotal and Total are kept in the table only.
struct Allocation {
    std::vector<FieldDef> fields;
    std::vector<Currency> lines;
    std::vector<std::vector<Value>> records;
    int record = -1;  // the current one
    int totalRecord = -1;
    int lineTypeField = -1;
    int subTotalField = 0;
};

struct Statistics {
    std::vector<FieldDef> fields;
    std::vector<Currency> lines;
    bool hasCostLine = false;
    bool hasUnitLine = false;
};

void Report_Missing(std::string_view prompt) {
    Report_Error("B1", prompt);
}

// The first record of the line; -1 where there is none.
int Find_Line(const std::vector<Currency>& lines, Currency line) {
    const auto found = std::lower_bound(lines.begin(), lines.end(), line);
    return found == lines.end() || *found != line ? -1 : static_cast<int>(found - lines.begin());
}

std::vector<Currency> Read_Lines(std::string_view select) {
    std::vector<Currency> lines;
    for (Recordset rows = db.OpenRecordset(select, RecordsetType::Snapshot); !rows.Eof(); rows.MoveNext()) {
        lines.push_back(Nz_Currency(rows.Fields(0).Value()));
    }
    return lines;
}

Statistics Open_Statistics() {
    Statistics b1{.fields = db.TableDefs().Item("B1").Shape().fields,
                  .lines = Read_Lines("SELECT LineNum FROM B1 ORDER BY LineNum;")};
    // The field of this name is none that a build makes; it is asked for all the same.
    const bool found = std::ranges::any_of(b1.fields, [](const FieldDef& f) { return Same_Text(f.name, "Col_400"); });
    if (found) db.Execute("UPDATE B1 SET CC_400 = 0 WHERE LineNum>=13 And LineNum<14;");
    // The test on line 30 reads the current record, and an empty table has none.
    if (b1.lines.empty()) throw DbError(DbErrorCode::NoCurrentRecord);
    b1.hasCostLine = Find_Line(b1.lines, kCostLine) >= 0;
    if (!b1.hasCostLine) Report_Missing(Sql(kNoLine, kCostLine, "."));
    b1.hasUnitLine = Find_Line(b1.lines, kUnitLine) >= 0;
    if (!b1.hasUnitLine) Report_Missing(Sql(kNoLine, kUnitLine, "."));
    return b1;
}

int Field_Position(const std::vector<FieldDef>& fields, std::string_view name) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (Same_Text(fields[i].name, name)) return static_cast<int>(i);
    }
    throw DbError(DbErrorCode::ItemNotFound, name);
}

const std::string& Field_Name(const std::vector<FieldDef>& fields, int position) {
    if (position >= static_cast<int>(fields.size())) {
        throw DbError(DbErrorCode::ItemNotFound, std::to_string(position));
    }
    return fields[static_cast<std::size_t>(position)].name;
}

Value& Cell(Allocation& b, int record, int field) {
    return b.records[static_cast<std::size_t>(record)][static_cast<std::size_t>(field)];
}

// A cell that has the value already is not written again.
void Store(Allocation& b, int record, int field, const Value& value) {
    const FieldDef& def = b.fields[static_cast<std::size_t>(field)];
    const Currency line = b.lines[static_cast<std::size_t>(record)];
    Value stored;
    try {
        stored = Convert_For_Field(value, def);
    } catch (const DbError& error) {
        if (error.Code() != DbErrorCode::Overflow) throw;
        throw DbError(error.Code(), {"B", line.To_Text(), def.name});
    }
    Value& cell = Cell(b, record, field);
    if (cell == stored) return;
    db.Execute(Sql("UPDATE B SET ", def.name, " = ", stored, " WHERE LineNum = ", line, ";"));
    cell = std::move(stored);
}

// Net expenses from A, then the records, then the total.
Allocation Open_Allocation() {
    db.Execute(
        "UPDATE A RIGHT JOIN B ON A.LineNum = B.LineNum SET B.NetExpenses = IIf(IsNull([A].[Col_10]),0,[A].[Col_10])"
        " WHERE B.LineType<>\"T\";");
    Allocation b;
    b.fields = db.TableDefs().Item("B").Shape().fields;
    b.lineTypeField = Field_Position(b.fields, "LineType");
    Recordset rows = db.OpenRecordset("SELECT * FROM B ORDER BY LineNum;", RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        b.lines.push_back(Nz_Currency(rows.Fields("LineNum").Value()));
        std::vector<Value>& record = b.records.emplace_back();
        for (int i = 0; i < rows.Fields_Count(); ++i) record.push_back(rows.Fields(i).Value());
    }
    rows.Close();
    b.totalRecord = Find_Line(b.lines, kTotalLine);
    if (b.totalRecord < 0) {
        Report_Missing(kNoBTotal);
        throw DbError(DbErrorCode::NoCurrentRecord);
    }
    b.record = b.totalRecord;
    Store(b, b.record, Field_Position(b.fields, "NetExpenses"),
          Read_Currency("SELECT SUM(NetExpenses) as TotAmt FROM B WHERE LineNum < 29;"));
    return b;
}

void Store_Statistic(std::string_view column, double value, Currency line) {
    db.Execute(Sql("UPDATE B1 SET ", column, " = ", value, " WHERE LineNum = ", line, ";"));
}

// SubTotal, once, when the pass is at its position in B. The tables line up on the first column of line 5.
void Calc_B_SubTotal(Allocation& b, int position) {
    const int count = static_cast<int>(b.fields.size());
    if (position >= count || Field_Name(b.fields, position) != "SubTotal") return;
    b.subTotalField = position;
    std::string update = "UPDATE B SET SubTotal = NetExpenses";
    for (int i = kFirstColumn + 1; i < count && Field_Name(b.fields, i) != "SubTotal"; ++i) {
        update += Sql("+", Field_Name(b.fields, i));
    }
    db.Execute(Sql(update, " WHERE LineNum >= 4;"));
    const Currency total = Read_Currency("SELECT SUM(SubTotal) as TotAmt FROM B WHERE LineNum Between 5 And 28.99;");
    db.Execute(Sql("UPDATE B SET SubTotal = ", total, " WHERE LineNum = 29;"));
}

// Net expenses of the current record and what the earlier columns have allocated to it.
double Cost_To_Allocate(Allocation& b, Currency cc) {
    double cost = 0;
    for (int i = kFirstColumn; i < static_cast<int>(b.fields.size()); ++i) {
        const std::string& name = Field_Name(b.fields, i);
        const bool net = name == "NetExpenses";
        if (!net && !Is_CC_Column(name)) continue;
        if (cc <= (net ? Currency{} : Column_CC(name))) break;
        cost += Nz_Double(Cell(b, b.record, i));
    }
    return Round_Half(cost, 0);
}

// Option 2: every subline of 5 takes what the sublines before it have allocated into its base.
void Accumulate_Option_2(const Statistics& b1, const Allocation& b, std::string_view column) {
    for (int i = kFirstColumn; i < static_cast<int>(b1.fields.size()); ++i) {
        const std::string& name = Field_Name(b1.fields, i);
        const std::string last3 = Right(name, 3);
        if (last3 != Right(column, 3) || !Begins_With(name, "Recon_5")) continue;
        std::string sum;
        const int own = static_cast<int>(Val(Right(name, 2)));
        for (int j = 1; j < own; ++j) {
            const std::string earlier = CC_Column(5_cur + Currency::From_Scaled(j * (Currency::kScale / 100)));
            const bool there =
                std::ranges::any_of(b.fields, [&](const FieldDef& field) { return Same_Text(field.name, earlier); });
            if (there) sum += Sql(" + IIF(IsNull([B].[", earlier, "]),0,[B].[", earlier, "])");
        }
        db.Execute(Sql("UPDATE B1 INNER JOIN B ON B1.LineNum = B.LineNum SET B1.CC_", last3,
                       " = IIF(IsNull([B].[SubTotal]),0,[B].[SubTotal]) ", sum,
                       " WHERE B1.LineNum >= ", Column_CC(name), " And B1.LineNum < 29;"));
    }
}

void Accumulate(const Statistics& b1, const Allocation& b, std::string_view column, Currency cc) {
    if (openReport.AGOption == 1 && cc == 5.02_cur) {
        Execute_All(kOption1Line502);
    } else if (openReport.AGOption == 1 && cc == 5.03_cur) {
        Execute_All(kOption1Line503);
    } else if (openReport.AGOption == 2) {
        Accumulate_Option_2(b1, b, column);
    } else {
        db.Execute(Sql("UPDATE B1 INNER JOIN B ON B1.LineNum = B.LineNum SET B1.", column,
                       " = [B].[SubTotal] WHERE B1.LineNum > ", cc, " And B1.LineNum < 29;"));
    }
}

// "LineNum BETWEEN 5.01 AND 28.99": the lines that a column can allocate to.
std::string Below(Currency cc) {
    return Sql("LineNum BETWEEN ", cc + 0.01_cur, " AND 28.99");
}

// The statistics of an accumulated cost column: the accumulated costs, less the lines that are excluded.
void Reconcile(const Statistics& b1, const Allocation& b, std::string_view column, Currency cc, double cost) {
    const std::string recon = Recon_Column(cc);
    if (Find_Line(b1.lines, cc) < 0) {
        Report_Missing(Sql(kNoLine, cc, "."));
    } else {
        Store_Statistic(recon, 0 - cost, cc);
    }
    Accumulate(b1, b, column, cc);
    Store_Statistic(column, Read_Number(Sql("SELECT SUM(", column, ") as SumTot FROM B1 WHERE ", Below(cc), ";")), cc);
    const std::string own = CC_Column(cc);
    db.Execute(Sql("UPDATE B1X INNER JOIN B1 ON B1X.RowCCNum = B1.CCNum SET B1.", recon, " = -[", own, "], ", own,
                   "=-1 WHERE (((B1X.ColCCNum)=\"", own, "\") AND ((B1X.Amount)=-1));"));
    const double excluded = Read_Number(Sql("SELECT SUM(", recon, ") as SumTot FROM B1 WHERE ", Below(cc), ";"));
    db.Execute(Sql("UPDATE B1 SET ", column, " = ", Guarded(column), " + ", excluded, " WHERE LineNum = ", cc, ";"));
}

// The statistics of a column in the order of b1.lines.
std::vector<Value> Read_Statistics(std::string_view column) {
    std::vector<Value> statistics;
    Recordset rows = db.OpenRecordset(Sql("SELECT ", column, " FROM B1 ORDER BY LineNum;"), RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) statistics.push_back(rows.Fields(0).Value());
    return statistics;
}

// Goes down from the record after the current one to line 29, which becomes the current one. The sum of what it stored.
double Allocate(Allocation& b, const Statistics& b1, const std::vector<Value>& statistics, int field, double unit,
                bool recon) {
    double allocated = 0;
    const int count = static_cast<int>(b.lines.size());
    for (++b.record;; ++b.record) {
        if (b.record >= count) throw DbError(DbErrorCode::NoCurrentRecord);
        const Currency line = b.lines[static_cast<std::size_t>(b.record)];
        if (line >= kTotalLine) return allocated;
        const Value& lineType = Cell(b, b.record, b.lineTypeField);
        if (lineType.Is_Null() || Same_Text(lineType.To_Text(), "T")) continue;
        const int found = Find_Line(b1.lines, line);
        Value share = 0;
        if (found >= 0) {
            const Value& statistic = statistics[static_cast<std::size_t>(found)];
            if (!(recon && Nz_Double(statistic) == -1)) {
                share = statistic.Is_Null() ? Value{} : Value(Round_Half(statistic.To_Double() * unit, 0));
            }
        }
        Store(b, b.record, field, share);
        allocated += Nz_Double(Cell(b, b.record, field));
    }
}

// The rounding difference goes to the line that received the most, of equal ones to the first.
void Allocate_Remainder(Allocation& b, int field, Currency cc, double remainder) {
    int most = -1;
    for (int i = 0; i < static_cast<int>(b.lines.size()); ++i) {
        const Currency line = b.lines[static_cast<std::size_t>(i)];
        if (line < cc + 0.01_cur || line > 28.99_cur) continue;
        const Value& cell = Cell(b, i, field);
        const bool more = most >= 0 && !cell.Is_Null() &&
                          (Cell(b, most, field).Is_Null() || cell.To_Currency() > Cell(b, most, field).To_Currency());
        if (most < 0 || more) most = i;
    }
    if (most < 0) throw DbError(DbErrorCode::NoCurrentRecord);
    const Value& cell = Cell(b, most, field);
    if (!cell.Is_Null()) Store(b, most, field, cell.To_Double() + remainder);
}

// Beyond what an amount can be no statistic means anything: nothing would be allocated by it, or everything.
double Unit_Cost(std::string_view column, double cost, double total) {
    constexpr double kMost = 1e14, kLeast = 1e-14;
    if (!(std::abs(total) >= kLeast && std::abs(total) <= kMost)) {
        throw DbError(DbErrorCode::Overflow, {"B1", kTotalLine.To_Text(), std::string(column)});
    }
    return Round_Half(cost / total, 6);
}

// One column of B-1, or a reconciliation column and its own. Returns the position it ended on.
int Calc_Column(const Statistics& b1, Allocation& b, int position) {
    The_Platform().Do_Events();
    std::string column = Field_Name(b1.fields, position);
    Calc_B_SubTotal(b, position);
    const bool recon = Is_Recon_Column(column);
    if (recon) {
        db.Execute(Sql("UPDATE B1 SET ", column, " = 0 WHERE LineNum BETWEEN ", Column_CC(column), " AND 28.99"));
        column = Field_Name(b1.fields, ++position);
        Calc_B_SubTotal(b, position);
    }
    The_Platform().Progress(Sql("Calculating B1: ", column));
    const Currency cc = Column_CC(column);
    Store_Statistic(column, Read_Number(Sql("SELECT SUM(", Guarded(column), ") as SumTot FROM B1 WHERE ", Below(cc))),
                    cc);

    // A column that has no line allocates from where the pass is.
    const int ownRecord = Find_Line(b.lines, cc);
    if (ownRecord >= 0) b.record = ownRecord;
    const double cost = Cost_To_Allocate(b, cc);
    const int field = Field_Position(b.fields, column);
    Store(b, b.record, field, cost);
    if (!b1.hasCostLine) throw DbError(DbErrorCode::NoCurrentRecord);
    Store_Statistic(column, cost, kCostLine);
    if (recon) Reconcile(b1, b, column, cc, cost);
    Store_Statistic(
        column,
        Read_Number(Sql("SELECT SUM(", column, ") as TotAmt FROM B1 WHERE (", Below(cc), ") AND (", column, "> 0);")),
        kTotalLine);

    const std::vector<Value> statistics = Read_Statistics(column);
    const int ownLine = Find_Line(b1.lines, cc);
    const double total = ownLine < 0 ? 0 : Nz_Double(statistics[static_cast<std::size_t>(ownLine)]);
    const double unit = total == 0 || cost == 0 ? 0 : Unit_Cost(column, cost, total);
    if (!b1.hasUnitLine) throw DbError(DbErrorCode::NoCurrentRecord);
    Store_Statistic(column, unit, kUnitLine);
    if (cost < 0) {
        Store(b, b.totalRecord, field, cost);
        return position;
    }
    const double allocated = Allocate(b, b1, statistics, field, unit, recon);
    if (allocated != cost) Allocate_Remainder(b, field, cc, cost - allocated);
    b.record = b.totalRecord;
    Store(b, b.record, field, Read_Currency(Sql("SELECT SUM(", column, ") as TotAmt FROM B WHERE ", Below(cc), ";")));
    return position;
}

void Store_Total(const Allocation& b) {
    if (b.subTotalField > 0) {
        std::string update = "UPDATE B SET Total = SubTotal";
        for (int i = b.subTotalField + 1; i < static_cast<int>(b.fields.size()); ++i) {
            const std::string& name = Field_Name(b.fields, i);
            if (name == "Total") break;
            update += Sql("+", name);
        }
        db.Execute(Sql(update, " WHERE LineNum >= 6;"));
    }
    const Currency total = Read_Currency("SELECT SUM(Total) as TotAmt FROM B WHERE LineNum Between 6 And 28.99;");
    db.Execute(Sql("UPDATE B SET Total = ", total, " WHERE LineNum = 29;"));
}

}  // namespace

void Calc_B1() {
    db.Execute("Delete * From B;");
    Fill_B();
    Apply_StatLinks();
    The_Platform().Progress("Calculating B1: ");
    const Statistics b1 = Open_Statistics();
    Allocation b = Open_Allocation();
    for (int i = kFirstColumn; i < static_cast<int>(b1.fields.size()); ++i) i = Calc_Column(b1, b, i);
    Store_Total(b);
}

}  // namespace tallmar
