#include <array>

#include "calc/w_s3.h"
#include "calc/worksheet.h"
#include "report/run_log.h"

namespace tallmar {

namespace {

// Title XVIII visits and patients, other visits and patients, totals.
constexpr std::array kColumns{
    Column{"LineNum"}, Column{"Description", FieldType::Text, 40},
    Column{"Col_1"},   Column{"Col_2"},
    Column{"Col_3"},   Column{"Col_4"},
    Column{"Col_5"},   Column{"Col_6"},
};

constexpr const char* kAll = "0,0,0,0,0,0";
constexpr const char* kVisitsOnly = "0,Null,0,Null,0,Null";
constexpr const char* kPatientsOnly = "Null,0,Null,0,Null,0";

}  // namespace

constexpr std::array<FixedRow, 13> kLinesS3p1{{
    {0_cur, nullptr, "Null,Null,Null,Null,Null,Null", LineKind::Shaded},
    {1_cur, "Skilled Nursing", kAll},
    {2_cur, "Physical Therapy", kAll},
    {3_cur, "Occupational Therapy", kAll},
    {4_cur, "Speech Pathology", kAll},
    {5_cur, "Medical Social Services", kAll},
    {6_cur, "Home Health Aide", kAll},
    {7_cur, "All Other Services", "Null,Null,0,0,0,0"},
    {8_cur, "Total Visits", kVisitsOnly, LineKind::Total},
    {9_cur, "Home Health Aide Hours", kVisitsOnly},
    {10_cur, "Unduplicated Census Count", kPatientsOnly},
    {10.01_cur, "Unduplicated Census Count Pre 10/1/2000", kPatientsOnly},
    {10.02_cur, "Unduplicated Census Count Post 9/30/2000", kPatientsOnly},
}};

namespace {

constexpr std::array<std::string_view, 3> kVisits{"Col_1", "Col_3", "Col_5"};

// A comparison with Null selects nothing: the split lines keep what was typed.
constexpr std::array kSplitTotals{
    "UPDATE S3p1 SET Col_5 = IIF(IsNull(Col_1),0,Col_1) + IIF(IsNull(Col_3),0,Col_3) Where Col_5<>Null;",
    "UPDATE S3p1 SET Col_6 = IIF(IsNull(Col_2),0,Col_2) + IIF(IsNull(Col_4),0,Col_4) Where Col_6<>Null;",
};

void Log_Line(std::string_view message) {
    Log_Calc("W_S3p1_", "Calc_S3p1", "S3p1", message);
}

}  // namespace

void Build_S3p1() {
    Build_Table("S3p1", kColumns, "LineNum, Description,Col_1,Col_2,Col_3,Col_4,Col_5,Col_6", kLinesS3p1, "ndx");
}

void Calc_S3p1() {
    Log_Line("Worksheet S-3 Part-1 Calculation");
    const Row totals = db.Read_Row(
        "SELECT SUM(Col_1) AS TotAmt1, SUM(Col_3) AS TotAmt3, SUM(Col_5) AS TotAmt5 FROM S3p1 "
        "WHERE (LineNum > 0) And (LineNum < 8);");
    Store_Row("S3p1", kVisits, totals, "LineNum = 8");
    if (!Is_Cost_Limit_Period()) db.Execute("Update S3p1 Set Col_2=0, Col_4=0, Col_6=0 Where LineNum>10;");
    if (Is_Split_Period()) Execute_All(kSplitTotals);
    Log_Line("Worksheet S-3 Part-1 calculation completed.");
}

}  // namespace tallmar
