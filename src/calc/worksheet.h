// What every worksheet module does alike: make its table, fill its fixed rows, store its totals.
//
// A build is Create_Table (report/tables.h), Insert_Rows and whatever else the form demands, then Finish_Table;
// Build_Table is the three in one. All work on the open report and throw DbError.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "common/currency.h"
#include "common/item.h"
#include "common/lines.h"
#include "common/value.h"
#include "report/open_report.h"
#include "report/tables.h"

namespace tallmar {

// INSERT INTO <item> (<fields>) VALUES (<line>,<label>,<values>); a row. `fields` names the line, the label and the
// fields of `values`: "LineNum, Description,Col_1,Col_2". A label of the form may be longer than its field.
void Insert_Rows(const Item& item, std::string_view fields, std::span<const FixedRow> rows);
// The registry's "Make", on the level of the catalogue. Requires an item of a family.
void Register_Worksheet(const Item& item);
// The unique index on LineNum (none where `index` is empty), and that.
void Finish_Table(const Item& item, std::string_view index);
void Build_Table(const Item& item, std::span<const Column> columns, std::string_view fields,
                 std::span<const FixedRow> rows, std::string_view index);

// Runs the statements one after another.
void Execute_All(std::span<const char* const> statements);

// Sums `columns` over the rows that meet the WHERE text `rows` and writes the sums into the same columns of the rows
// that meet `total`, in one statement. A Null sum is written as 0.
void Store_Totals(const Item& item, std::span<const std::string_view> columns, std::string_view rows,
                  std::string_view total);
// Writes the first columns of `values`, by position, into `columns`. A Null, and a row that is not there, give 0.
void Store_Row(const Item& item, std::span<const std::string_view> columns, const Row& values, std::string_view where);

// The first column of the first row of a SELECT; 0 where it is Null or there is no row.
Currency Read_Currency(std::string_view select);
double Read_Number(std::string_view select);

// "IIF(IsNull(Col_1),0,Col_1)": a shaded cell counts as 0.
std::string Guarded(std::string_view field);
// The guarded fields joined by +.
std::string Guarded_Sum(std::span<const std::string_view> fields);

// The fiscal year begins before 10/1/2000: cost limits apply, A-1 to A-3 and A-8-3 are in use.
bool Is_Cost_Limit_Period();
// It begins before 10/1/2000 and ends on or after it.
bool Is_Split_Period();

}  // namespace tallmar
