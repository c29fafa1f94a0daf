// A report for worksheet tests: the chart and the worksheets that a test names, and cells by line and column.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "catalogue.h"
#include "common/dates.h"
#include "common/db/sql_text.h"
#include "common/platform.h"
#include "common/worksheets.h"
#include "report/chart.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/run_log.h"

namespace tallmar {

// A message box fails the test; the clock stands still.
class QuietPlatform : public Platform {
  public:
    Answer Message_Box(std::string_view prompt, int, std::string_view title) override {
        ADD_FAILURE() << "unexpected box " << title << ": " << prompt;
        return Answer::Ok;
    }
    void Beep() override {}
    std::optional<std::string> Open_File(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> Save_File(const FileDialog&) override { return std::nullopt; }
    void Show_Batch_Messages(std::string_view, const std::vector<BatchMessage>& rows) override {
        for (const BatchMessage& row : rows) ADD_FAILURE() << row.level << ' ' << row.form << ' ' << row.message;
    }
    void Hourglass(bool) override {}
    void Progress(std::string_view) override {}
    void Do_Events() override {}
    Date Now() override { return Date{44197}; }
    std::string Get_Setting(std::string_view, std::string_view, std::string_view, std::string_view otherwise) override {
        return std::string(otherwise);
    }
    void Save_Setting(std::string_view, std::string_view, std::string_view, std::string_view) override {}
    std::string Program_Folder() override { return {}; }
    void Set_Enabled(std::string_view, bool) override {}
    void Set_Visible(std::string_view, bool) override {}
    void Set_Text(std::string_view, std::string_view) override {}
    bool Close_All_Forms() override { return false; }
    void Refresh_Menus() override {}
    [[noreturn]] void End_Program() override { throw std::logic_error("End_Program"); }
};

struct FiscalYearDates {
    const char* start;
    const char* end;
};
inline constexpr FiscalYearDates kFy2016{"10/1/2015", "9/30/2016"};
inline constexpr FiscalYearDates kFy1999{"10/1/1998", "9/30/1999"};
inline constexpr FiscalYearDates kFySplit{"7/1/2000", "6/30/2001"};

class WorksheetTest : public testing::Test {
  protected:
    // The report with its registry, log and chart. `setUp` may change the chart before the worksheets are built.
    void Begin(FiscalYearDates year) {
        FYStart = *Parse_Date(year.start);
        FYEnd = *Parse_Date(year.end);
        ProviderNumber = "14-7100";
        ProviderName = "Tallmar Home Health";
        MsgLogPrefix.clear();
        LogType = "C";
        AGOption = 0;
        Install_Platform(&platform_);
        Install_Catalogue(All_Families());
        db = DBEngine::CreateDatabase(path_, ";LANGID=0x0409;CP=1252;COUNTRY=0");
        Build_Worksheets();
        Build_Log();
        Build_CC();
    }
    void Begin(FiscalYearDates year, std::initializer_list<const char*> items) {
        Begin(year);
        for (const char* item : items) Build(item);
    }
    void TearDown() override {
        db.Close();
        std::filesystem::remove(path_);
    }

    static void Build(const Item& item) { Find_Family(item)->build(item); }
    static void Calc(const Item& item) { Find_Family(item)->calc(item); }

    static void Add_Cost_Center(Currency line, const char* name) {
        db.Execute(Sql("INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName) VALUES (", line,
                       ",'S',", line, ",", line.To_Double() * 100, ",'A',9,", Quoted(name), ");"));
    }
    static void Put(const char* item, Currency line, const char* field, const Value& value) {
        db.Execute(Sql("UPDATE ", item, " SET ", field, "=", value, " WHERE LineNum = ", line, ";"));
    }
    // A new row: Add_Row("A4", "LineNum, Col_3, Col_4", "1, 5, 100").
    static void Add_Row(const char* item, const char* fields, const std::string& values) {
        db.Execute(Sql("INSERT INTO ", item, " (", fields, ") VALUES (", values, ");"));
    }
    // Null for a row that is not there: Lines() tells which are.
    static Value Get(const char* item, Currency line, const char* field) {
        return db.Read_Row(Sql("SELECT ", field, " FROM ", item, " WHERE LineNum = ", line, ";"))[0];
    }
    // "1 2 13.2": the lines in order.
    static std::string Lines(const char* item, const char* where = "LineNum>=0") {
        return List(item, "LineNum", where);
    }
    // A column in line order, blanks between; Null is "-".
    static std::string List(const char* item, const char* field, const char* where = "LineNum>=0") {
        std::string list;
        Recordset rows = db.OpenRecordset(Sql("SELECT ", field, " FROM ", item, " WHERE ", where, " ORDER BY LineNum;"),
                                          RecordsetType::Snapshot);
        for (; !rows.Eof(); rows.MoveNext()) {
            const Value value = rows.Fields(0).Value();
            list += (list.empty() ? "" : " ") + (value.Is_Null() ? "-" : value.To_Text());
        }
        return list;
    }

  private:
    QuietPlatform platform_;
    std::string path_ = (std::filesystem::temp_directory_path() /
                         ("tallmar-" + std::to_string(::getpid()) + "-" +
                          testing::UnitTest::GetInstance()->current_test_info()->name() + ".CRF"))
                            .string();
};

// A cell that holds this amount or number, whatever its kind; a shaded one that holds nothing.
#define EXPECT_CELL(item, line, field, expected)                           \
    EXPECT_EQ(Get(item, line, field).To_Text(), Value(expected).To_Text()) \
        << item << " " << (line).To_Text() << " " << field
#define EXPECT_SHADED(item, line, field) \
    EXPECT_TRUE(Get(item, line, field).Is_Null()) << item << " " << (line).To_Text() << " " << field

}  // namespace tallmar
