#include "calc/w_b.h"

#include <array>

#include "calc/stat_columns.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/message_log.h"
#include "report/open_report.h"

namespace tallmar {

constexpr std::array<FixedRow, 1> kLinesB{{{29_cur, "TOTAL", "'T'", LineKind::Total}}};

namespace {

constexpr std::string_view kCapital = "CCType='G' and CCNum < 5";
constexpr std::string_view kAdministrative = "(CCType='G') and (INT(CCNum) = 5)";
constexpr std::string_view kNoCapital = "PROBLEM in Build_B: No records found with CCType='G' and CCNum < 5.";

void Append_Amount(TableDef& table, std::string_view name) {
    table.Fields_Append(table.CreateField(name, FieldType::Currency));
}

// A column for the record found, and for each further one that meets the criterion.
void Append_Columns(TableDef& table, Recordset& chart, std::string_view criterion) {
    while (!chart.NoMatch()) {
        Append_Amount(table, CC_Column(Nz_Currency(chart["LineNum"])));
        chart.FindNext(criterion);
    }
}

}  // namespace

void Build_B() {
    TableDef table = db.CreateTableDef("B");
    Append_Amount(table, "LineNum");
    Append_Amount(table, "CCNum");
    table.Fields_Append(table.CreateField("CCName", FieldType::Text, 40));
    table.Fields_Append(table.CreateField("CCType", FieldType::Text, 1));
    table.Fields_Append(table.CreateField("LineType", FieldType::Text, 1));
    Append_Amount(table, "NetExpenses");

    Recordset chart = db.OpenRecordset("SELECT * FROM CostCenters ORDER BY LineNum");
    chart.FindFirst(kCapital);
    if (chart.NoMatch()) {
        The_Platform().Beep();
        Report_Error("B", kNoCapital, kExclamation);
    }
    Append_Columns(table, chart, kCapital);
    Append_Amount(table, "SubTotal");
    // Goes on from the last capital cost center, so that the order of the chart matters.
    chart.FindNext(kAdministrative);
    Append_Columns(table, chart, kAdministrative);
    chart.Close();
    Append_Amount(table, "Total");
    db.TableDefs().Append(table);
    db.Execute("CREATE UNIQUE INDEX ndx ON B (LineNum);");
    Fill_B();
    Register_Worksheet("B");
}

void Fill_B() {
    db.Execute("INSERT INTO B  SELECT LineNum, CCNum, CCName, CCType, LineType FROM CostCenters;");
    Insert_Rows("B", "LineNum,CCName,LineType", kLinesB);
    Recordset generalService =
        db.OpenRecordset("SELECT * FROM CostCenters Where CCType=\"G\" ORDER BY LineNum", RecordsetType::Snapshot);
    for (; !generalService.Eof(); generalService.MoveNext()) {
        const Currency line = Nz_Currency(generalService["LineNum"]);
        db.Execute(Sql("UPDATE B SET ", CC_Column(line), "=0 WHERE LineNum >= ", line));
    }
    generalService.Close();
    db.Execute("UPDATE B SET NetExpenses=0 ");
    db.Execute("UPDATE B SET SubTotal=0 WHERE LineNum >= 5;");
    db.Execute("UPDATE B SET Total = 0 WHERE LineNum >= 6;");
}

}  // namespace tallmar
