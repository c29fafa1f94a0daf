#include "calc/worksheet.h"

#include <stdexcept>

#include "common/dates.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "common/worksheets.h"
#include "report/registry.h"

namespace tallmar {

namespace {

// The label's field: "LineNum, Description,Col_1" names it behind the line.
std::string Second_Field(std::string_view fields) {
    const std::size_t begin = fields.find(',') + 1;
    return std::string(Trim(fields.substr(begin, fields.find(',', begin) - begin)));
}

FieldDef Find_Field(const Item& item, std::string_view field) {
    const TableShape shape = db.TableDefs().Item(item.Name()).Shape();
    const FieldDef* found = shape.Find_Field(field);
    if (found == nullptr) throw DbError(DbErrorCode::UnknownField, field);
    return *found;
}

// A total that overflows belongs to the line that it is for, not to those it is of.
Row Read_Totals(const Item& item, const std::string& select, std::string_view total) {
    try {
        return db.Read_Row(select);
    } catch (const DbError& error) {
        if (error.Code() != DbErrorCode::Overflow) throw;
        const Row line = db.Read_Row(Sql("SELECT LineNum FROM ", item.Name(), " WHERE ", total, ";"));
        throw DbError(error.Code(), {item.Name(), Nz_Str(line[0]), error.Where().field});
    }
}

}  // namespace

void Insert_Rows(const Item& item, std::string_view fields, std::span<const FixedRow> rows) {
    if (rows.empty()) return;
    const std::string head = Sql("INSERT INTO ", item.Name(), " (", fields, ") VALUES (");
    const std::string labelField = Second_Field(fields);
    const FieldDef label = Find_Field(item, labelField);
    for (const FixedRow& row : rows) {
        const std::string_view values = row.values;
        const bool tooLong =
            row.label != nullptr && Has_Size(label.type) && Length(row.label) > static_cast<std::size_t>(label.size);
        db.Execute(Sql(head, row.line, ",", row.label == nullptr || tooLong ? "Null" : Quoted(row.label),
                       values.empty() ? "" : ",", values, ");"));
        if (tooLong) db.Write_Label(item.Name(), labelField, row.line, row.label);
    }
}

void Register_Worksheet(const Item& item) {
    const WorksheetFamily* family = Find_Family(item);
    if (family == nullptr) throw std::invalid_argument("no worksheet family: " + item.Name());
    Edit_Worksheets(item.Name(), "Make", family->level);
}

void Finish_Table(const Item& item, std::string_view index) {
    if (!index.empty()) db.Execute(Sql("CREATE UNIQUE INDEX ", index, " ON ", item.Name(), " (LineNum);"));
    Register_Worksheet(item);
}

void Build_Table(const Item& item, std::span<const Column> columns, std::string_view fields,
                 std::span<const FixedRow> rows, std::string_view index) {
    Create_Table(item.Name(), columns);
    Insert_Rows(item, fields, rows);
    Finish_Table(item, index);
}

void Execute_All(std::span<const char* const> statements) {
    for (const char* statement : statements) db.Execute(statement);
}

void Store_Totals(const Item& item, std::span<const std::string_view> columns, std::string_view rows,
                  std::string_view total) {
    std::string select = "SELECT ";
    for (const std::string_view column : columns) {
        const std::string_view number = column.substr(column.find('_') + 1);
        select += Sql(column == columns.front() ? "" : ", ", "Sum(", column, ") AS Tot_", number);
    }
    Store_Row(item, columns, Read_Totals(item, Sql(select, " FROM ", item.Name(), " WHERE ", rows, ";"), total), total);
}

void Store_Row(const Item& item, std::span<const std::string_view> columns, const Row& values, std::string_view where) {
    std::string update = Sql("UPDATE ", item.Name(), " SET ");
    int position = 0;
    for (const std::string_view column : columns) {
        const Value value = values ? Nz_Num(values[position], 0) : Value(0);
        update += Sql(position == 0 ? "" : ",", column, "=", value);
        ++position;
    }
    db.Execute(Sql(update, " WHERE ", where, ";"));
}

Currency Read_Currency(std::string_view select) {
    const Row row = db.Read_Row(select);
    return row ? Nz_Currency(row[0]) : Currency{};
}

double Read_Number(std::string_view select) {
    const Row row = db.Read_Row(select);
    return row ? Nz_Double(row[0]) : 0.0;
}

std::string Guarded(std::string_view field) {
    return Sql("IIF(IsNull(", field, "),0,", field, ")");
}

std::string Guarded_Sum(std::span<const std::string_view> fields) {
    std::string sum;
    for (const std::string_view field : fields) sum += Sql(sum.empty() ? "" : "+", Guarded(field));
    return sum;
}

bool Is_Cost_Limit_Period() {
    return openReport.FYStart < kCostLimitsEnd;
}

bool Is_Split_Period() {
    return openReport.FYStart < kCostLimitsEnd && openReport.FYEnd >= kCostLimitsEnd;
}

}  // namespace tallmar
