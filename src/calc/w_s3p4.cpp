#include <array>

#include "calc/w_s3.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 118},
    Column{"Col_1", FieldType::Double},
    Column{"Col_2", FieldType::Double},
    Column{"Col_3", FieldType::Double},
    Column{"Col_4", FieldType::Double},
    Column{"Col_5", FieldType::Double},
    Column{"Col_6", FieldType::Double},
    Column{"Col_7", FieldType::Double},
};

constexpr const char* kZeroes = "0,0,0,0,0,0,0";

}  // namespace

constexpr std::array<FixedRow, 18> kLinesS3p4{{
    {30_cur, "Skilled Nursing Visits", kZeroes},
    {31_cur, "Skilled Nursing Visits Charges", kZeroes},
    {32_cur, "Physical Therapy Visits", kZeroes},
    {33_cur, "Physical Therapy Visits Charges", kZeroes},
    {34_cur, "Occupational Therapy Visits", kZeroes},
    {35_cur, "Occupational Therapy Visits Charges", kZeroes},
    {36_cur, "Speech Pathology Visits", kZeroes},
    {37_cur, "Speech Pathology Visits Charges", kZeroes},
    {38_cur, "Medical Social Service Visits", kZeroes},
    {39_cur, "Medical Social Service Visits Charges", kZeroes},
    {40_cur, "Home Health Aide Visits", kZeroes},
    {41_cur, "Home Health Aide Visits Charges", kZeroes},
    {42_cur, "Total Visits (Sum of lines 30, 32, 34, 36, 38, 40)", kZeroes, LineKind::Total},
    {43_cur, "Other Charges", kZeroes},
    {44_cur, "Total Charges (Sum of lines 31, 33, 35, 37, 39, 41, 43)", kZeroes, LineKind::Total},
    {45_cur, "Total Number of Episodes", kZeroes},
    {46_cur, "Total Number of Outlier Episodes", "Null,0,Null,0,0,0,0"},
    {47_cur, "Total Medical Supply Charges", kZeroes},
}};

namespace {

constexpr const char* kVisitLines = "30,32,34,36,38,40";
constexpr const char* kChargeLines = "31,33,35,37,39,41,43";
constexpr const char* kSums =
    "SELECT Sum(Col_1) AS SumOfCol_1, Sum(Col_2) AS SumOfCol_2, Sum(Col_3) AS SumOfCol_3, Sum(Col_4) AS SumOfCol_4, "
    "Sum(Col_5) AS SumOfCol_5, Sum(Col_6) AS SumOfCol_6 From S3p4 WHERE (((LineNum) In (";
constexpr std::array<std::string_view, 6> kTotals{"Col_1", "Col_2", "Col_3", "Col_4", "Col_5", "Col_6"};

}  // namespace

void Build_S3p4() {
    Build_Table("S3p4", kColumns, "LineNum, Description, Col_1, Col_2, Col_3, Col_4, Col_5, Col_6, Col_7", kLinesS3p4,
                "ndxS3p4");
}

void Calc_S3p4() {
    Recordset rows = db.OpenRecordset("Select * From S3p4 Where LineNum In(42, 44) Order by LineNum");
    for (; !rows.Eof(); rows.MoveNext()) {
        const bool visits = rows["LineNum"].To_Currency() == 42_cur;
        const Row sums = db.Read_Row(Sql(kSums, visits ? kVisitLines : kChargeLines, ")));"));
        rows.Edit();
        int column = 0;
        for (const std::string_view field : kTotals) rows.Fields(field).Set(sums[column++]);
        rows.Update();
    }
    rows.Close();
    // Columns 1 and 3 may be shaded; a Null in another leaves no total.
    db.Execute(
        "UPDATE S3p4 SET Col_7 = IIf(IsNull([Col_1]),0,[Col_1])+[Col_2]+IIf(IsNull([Col_3]),0,[Col_3])"
        "+[Col_4]+[Col_5]+[Col_6];");
}

}  // namespace tallmar
