// The open report of a test, and the words in which all tests fill and read one.
//
//     Report r(fy2016);
//     r.Cell("A", 5, 3, 1200);
//     r.Calc();
//     EXPECT_CELL("A", 5, 6, 1200);
//
// One at a time, since there is one open report. Where every test of a fixture needs it, support/report_test.h has the
// same as a base class.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "common/dates.h"
#include "common/item.h"
#include "report/entry_checks.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

namespace tallmar {

// Before the cost limits end; across their end; with S-2-1 and the O series.
inline const FiscalYear fy1999{Date_Of(1998, 10, 1), Date_Of(1999, 9, 30)};
inline const FiscalYear fy2000{Date_Of(2000, 1, 1), Date_Of(2000, 12, 31)};
inline const FiscalYear fy2016{Date_Of(2015, 10, 1), Date_Of(2016, 9, 30)};
inline FiscalYear Year(const char* start, const char* end) {
    return {*Parse_Date(start), *Parse_Date(end)};
}

// A line as a test writes it: 5, 13.2, 23.2_cur.
struct LineRef {
    Currency line;
    LineRef(Currency value) : line(value) {}
    LineRef(int value) : line(value) {}
    LineRef(double value) : line(Value(value).To_Currency()) {}
};

// A column as a test writes it: 3 is Col_3, 1101 is Col_1101, others by name: "CC_100".
struct ColumnRef {
    std::string name;
    ColumnRef(int number) : name("Col_" + std::to_string(number)) {}
    ColumnRef(const char* field) : name(field) {}
    ColumnRef(std::string field) : name(std::move(field)) {}
    ColumnRef(std::string_view field) : name(field) {}
};

class Report {
  public:
    // A platform and a folder: the test begins a report itself.
    Report() = default;
    // A whole new report of the program's catalogue, in memory. Fails the test where its assembly has messages.
    explicit Report(const FiscalYear& year);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    // A report in memory that has its registry, log and chart, and of the catalogue only `items`: what stands around
    // them can be put in by hand.
    void Begin(const FiscalYear& year, std::initializer_list<const char*> items = {});

    // Stores `value` as a statement does. A row or column that is not there fails the test.
    static void Cell(std::string_view item, const LineRef& line, const ColumnRef& column, const Value& value);
    static Value Cell(std::string_view item, const LineRef& line, const ColumnRef& column);
    // A new row: Add_Row("A4", "LineNum, Col_3, Col_4", "1, 5, 100").
    static void Add_Row(std::string_view item, std::string_view fields, std::string_view values);
    // A line of the chart that the form names by itself.
    static void Add_Cost_Center(Currency line, std::string_view name);
    // Any action statement; the rows it changed.
    static std::int64_t Execute(std::string_view sql);
    // The first field of the first row; Null where there is none.
    static Value Read(std::string_view select);
    // The rows of a table, or of "A WHERE ...".
    static std::int32_t Count(std::string_view table);
    // The first field of every row, blanks between; Null is "-".
    static std::string Column(std::string_view select);
    // A field in line order, likewise.
    static std::string List(std::string_view item, const ColumnRef& column, std::string_view where = "LineNum>=0");
    // "1 2 13.2": the lines in order.
    static std::string Lines(std::string_view item, std::string_view where = "LineNum>=0");

    // Calculates the whole report. A message of the run fails the test.
    void Calc();
    // The same; its messages: level, worksheet, text.
    std::vector<Platform::BatchMessage> Calc_With_Messages();
    // One worksheet by its family, as a step of a rebuild and of the chain. Errors reach the test.
    static void Build(const Item& item);
    static void Calc(const Item& item);

    FakePlatform platform;
    TempFolder folder;
};

// The cell equals `expected`: amounts exactly to four places, other numbers within a billionth, texts to the letter,
// and Null only Null.
testing::AssertionResult Cell_Is(std::string_view item, const LineRef& line, const ColumnRef& column,
                                 const Value& expected);

#define EXPECT_CELL(item, line, column, expected) EXPECT_TRUE(::tallmar::Cell_Is(item, line, column, expected))
// A cell that the form shades.
#define EXPECT_SHADED(item, line, column) EXPECT_CELL(item, line, column, Null)

}  // namespace tallmar
