#include "calc/w_b1.h"

#include <array>
#include <vector>

#include "calc/stat_columns.h"
#include "calc/w_b.h"
#include "calc/worksheet.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/chart.h"
#include "report/open_report.h"

namespace tallmar {

constexpr std::array<FixedRow, 3> kLinesB1{{
    {29_cur, "Total", "29.00,'S','N'", LineKind::Total},
    {30_cur, "Cost to be Allocated per B", "30.00,'S','N'"},
    {31_cur, "Unit Cost Multiplier", "31.00,'S','N'"},
}};

namespace {

constexpr std::array kRebuilt{"B", "B1X", "StatLinks"};

constexpr std::array kFixedColumns{
    Column{"LineNum"},
    Column{"CCNum"},
    Column{"CCName", FieldType::Text, 40},
    Column{"CCType", FieldType::Text, 1},
    Column{"LineType", FieldType::Text, 1},
};

constexpr std::array kB1XColumns{
    Column{"RowCCNum"},
    Column{"ColCCNum", FieldType::Text, 8},
    Column{"Amount", FieldType::Double},
};
constexpr std::array kStatLinksColumns{Column{"FromCCNum"}, Column{"ToCCNum"}};

void Delete_If_There(const char* table) {
    TableDefs tables = db.TableDefs();
    if (tables.Has(table)) tables.Delete(table);
}

void Append_Statistic(TableDef& table, std::string_view name) {
    table.Fields_Append(table.CreateField(name, FieldType::Double));
}

}  // namespace

void Build_B1() {
    db.TableDefs().Refresh();
    for (const char* table : kRebuilt) Delete_If_There(table);
    Build_B();
    Build_B1X();
    Build_StatLinks();

    TableDef table = db.CreateTableDef("B1");
    for (const Column& column : kFixedColumns) {
        table.Fields_Append(table.CreateField(column.name, column.type, column.size));
    }
    Recordset chart = db.OpenRecordset(
        "SELECT CCNum, CCType, StatLabel1, StatLabel2 From CostCenters Where CCType='G' ORDER BY LineNum;",
        RecordsetType::Snapshot);
    for (; !chart.Eof(); chart.MoveNext()) {
        const Currency ccNum = Nz_Currency(chart["CCNum"]);
        if (Is_Accumulated_Cost(chart["StatLabel1"], chart["StatLabel2"])) {
            Append_Statistic(table, Recon_Column(ccNum));
        }
        Append_Statistic(table, CC_Column(ccNum));
    }
    chart.Close();
    db.TableDefs().Append(table);
    db.Execute("INSERT INTO B1 SELECT LineNum, CCNum, CCName, CCType, LineType FROM CostCenters;");
    Insert_Rows("B1", "LineNum,CCName,CCNum,CCType,LineType", kLinesB1);
    ShapeStats("B1");
    db.Execute("CREATE UNIQUE INDEX ndxB1 ON B1 (CCNum);");
    Register_Worksheet("B1");
    Store_CC_Counts();
}

void Build_B1X() {
    Create_Table("B1X", kB1XColumns);
    Register_Worksheet("B1X");
}

void Build_StatLinks() {
    Create_Table("StatLinks", kStatLinksColumns);
    Register_Worksheet("StatLinks");
}

void Apply_StatLinks() {
    Recordset links = db.OpenRecordset("SELECT * FROM StatLinks ORDER BY ToCCNum;", RecordsetType::Snapshot);
    for (; !links.Eof(); links.MoveNext()) {
        const Currency to = Nz_Currency(links["ToCCNum"]);
        db.Execute(Sql("UPDATE B1 SET B1.", CC_Column(to), " = [", CC_Column(Nz_Currency(links["FromCCNum"])),
                       "] WHERE B1.LineNum BETWEEN ", to + 0.01_cur, " AND 28.99;"));
        Apply_B1X();
        The_Platform().Do_Events();
    }
    links.Close();
}

void Apply_B1X() {
    const TableDef statistics = db.TableDefs().Item("B1");
    Recordset columns = db.OpenRecordset("SELECT Distinct ColCCNum FROM B1X;", RecordsetType::Snapshot);
    for (; !columns.Eof(); columns.MoveNext()) {
        const std::string column = Nz_Str(columns["ColCCNum"]);
        if (statistics.Shape().Find_Field(column) != nullptr) {
            db.Execute(Sql("UPDATE B1 INNER JOIN B1X ON B1.LineNum = B1X.RowCCNum SET B1.", column,
                           " = [Amount] WHERE B1X.ColCCNum=\"", column, "\";"));
        } else {
            db.Execute(Sql("Delete From B1X Where ColCCNum='", column, "';"));
        }
    }
    columns.Close();
}

}  // namespace tallmar
