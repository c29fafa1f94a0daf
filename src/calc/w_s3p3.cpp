#include <array>

#include "calc/w_c.h"
#include "calc/w_s3.h"
#include "calc/worksheet.h"
#include "common/dates.h"
#include "common/numbers.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/registry.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 118},
    Column{"Col_1", FieldType::Text, 6},
    Column{"Col_2", FieldType::Text, 6},
};

}  // namespace

constexpr std::array<FixedRow, 1> kLinesS3p3{{
    {28_cur,
     "Enter the total number of MSAs in which Medicare covered services were provided during the cost reporting period",
     "'0'"},
}};

namespace {

// Drug lines of C Part III: 16 of reports that end on or after the first date, 16.2 of those that also begin on or
// before the second.
constexpr Date kDrugLineFrom = Date_Of(2006, 7, 31);
constexpr Date kVaccineLineUntil = kDrugCostsChange;

std::string Drug_Lines() {
    std::string lines;
    if (openReport.FYEnd >= kDrugLineFrom) lines = "16";
    if (openReport.FYEnd >= kDrugLineFrom && openReport.FYStart <= kVaccineLineUntil)
        lines += lines.empty() ? "16.2" : ", 16.2";
    return lines;
}

// The run-time's rounding here, halves to even.
void Cost_Drug_Lines(const std::string& lines) {
    Recordset rows = db.OpenRecordset(Sql("SELECT Col_4, Col_6, Col_9 From Cp3 WHERE LineNum In( ", lines, " );"));
    for (; !rows.Eof(); rows.MoveNext()) {
        const double cost = Nz_Double(rows["Col_6"]) * Nz_Double(rows["Col_4"]);
        rows.Edit();
        rows.Fields("Col_9").Set(Round_Even(cost, 0));
        rows.Update();
    }
    rows.Close();
}

}  // namespace

void Build_S3p3() {
    Build_Table("S3p3", kColumns, "LineNum, Description,Col_1", kLinesS3p3, "ndx");
}

void Store_Code_Counts() {
    const double msas = Read_Number(R"(SELECT Count(LineNum) AS Cnt From S3p3 WHERE Len([Col_1])="4" AND LineNum>28;)");
    const double cbsas =
        Read_Number(R"(SELECT Count(LineNum) AS Cnt From S3p3 WHERE Len([Col_2])="5" AND LineNum>28;)");
    db.Execute(Sql("UPDATE S3p3 SET Col_1 = \"", msas, "\", Col_2 = \"", cbsas, "\" WHERE LineNum=28;"));
}

void Calc_S3p3() {
    Store_Code_Counts();
    const std::string lines = Drug_Lines();
    if (!lines.empty() && TableExists("Cp3", true)) Cost_Drug_Lines(lines);
}

}  // namespace tallmar
