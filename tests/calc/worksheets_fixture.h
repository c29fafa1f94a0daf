// A report of the chart and only those worksheets that a test names, so that a neighbour can be put in by hand.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "catalogue.h"
#include "common/dates.h"
#include "common/sql_text.h"
#include "common/worksheets.h"
#include "report/chart.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/run_log.h"
#include "support/report_fixture.h"

namespace tallmar {

inline FiscalYear Year(const char* start, const char* end) {
    return {*Parse_Date(start), *Parse_Date(end)};
}
inline const FiscalYear fySplit = Year("7/1/2000", "6/30/2001");

class WorksheetTest : public testing::Test {
  protected:
    // The report with its registry, log and chart. A test may change the chart before it builds worksheets.
    void Begin(const FiscalYear& year) {
        openReport = {};
        openReport.FYStart = year.start;
        openReport.FYEnd = year.end;
        openReport.ProviderNumber = "14-7100";
        openReport.ProviderName = "Tallmar Home Health";
        Install_Catalogue(All_Families());
        db = DBEngine::CreateDatabase(folder_.File("worksheets.CRF"), ";LANGID=0x0409;CP=1252;COUNTRY=0");
        Build_Worksheets();
        Build_Log();
        Build_CC();
    }
    void Begin(const FiscalYear& year, std::initializer_list<const char*> items) {
        Begin(year);
        for (const char* item : items) Build(item);
    }
    void TearDown() override { openReport = {}; }

    static void Build(const Item& item) { Find_Family(item)->build(item); }
    static void Calc(const Item& item) { Find_Family(item)->calc(item); }

    static void Add_Cost_Center(Currency line, const char* name) {
        db.Execute(Sql("INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName) VALUES (", line,
                       ",'S',", line, ",", static_cast<int>(line.Scaled() / 100), ",'A',9,", Quoted(name), ");"));
    }
    static void Put(const char* item, Currency line, const char* field, const Value& value) {
        const auto rows = db.Execute(Sql("UPDATE ", item, " SET ", field, "=", value, " WHERE LineNum = ", line, ";"));
        EXPECT_EQ(rows, 1) << item << " line " << line.To_Text();
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
    FakePlatform platform_;
    TempFolder folder_;
};

// A cell that the form shades.
#define EXPECT_SHADED(item, line, field) EXPECT_CELL(item, line, field, Null)

}  // namespace tallmar
