// A report ready to fill: made as the program makes one, in memory.
//
//     Report r(fy2016);
//     r.Cell("A", 5, 3, 1200);
//     r.Calc();
//     EXPECT_CELL("A", 5, 6, 1200);
//
// One at a time, since the report is the process-wide `db`. The catalogue of the program is installed.
#pragma once

#include <gtest/gtest.h>

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
};

class Report {
  public:
    // Fails the test where the assembly has something to report.
    explicit Report(const FiscalYear& year);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    // Stores `value` as a statement does. A row or column that is not there fails the test.
    void Cell(std::string_view item, const LineRef& line, const ColumnRef& column, const Value& value);
    Value Cell(std::string_view item, const LineRef& line, const ColumnRef& column) const;
    // Any action statement; the rows it changed.
    std::int64_t Execute(std::string_view sql);
    // The first field of the first row; Null where there is none.
    Value Read(std::string_view select) const;

    // Calculates the whole report. A message of the run fails the test.
    void Calc();
    // The same; its messages: level, worksheet, text.
    std::vector<Platform::BatchMessage> Calc_With_Messages();
    // One worksheet by its family, as a step of a rebuild and of the chain. Errors reach the test.
    void Build(const Item& item);
    void Calc(const Item& item);

    FakePlatform platform;

  private:
    TempFolder folder_;
};

// The cell equals `expected`: amounts exactly to four places, other numbers within a billionth, texts to the letter,
// and Null only Null.
testing::AssertionResult Cell_Is(std::string_view item, const LineRef& line, const ColumnRef& column,
                                 const Value& expected);

#define EXPECT_CELL(item, line, column, expected) EXPECT_TRUE(::tallmar::Cell_Is(item, line, column, expected))

}  // namespace tallmar
