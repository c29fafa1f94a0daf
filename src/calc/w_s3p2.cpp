#include <array>

#include "calc/w_s3.h"
#include "calc/worksheet.h"
#include "report/run_log.h"

namespace tallmar {

namespace {

// Staff, contract, total.
constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 40}, Column{"Col_1"},
                              Column{"Col_2"}, Column{"Col_3"}};

}  // namespace

constexpr std::array<FixedRow, 18> kLinesS3p2{{
    {0_cur, "Number of hours in normal work week", "0,Null,Null"},
    {11_cur, "Administrator & Assistant Administrator(s)", "0,0,0"},
    {12_cur, "Director and Assistant Directors(s)", "0,0,0"},
    {13_cur, "Other Administrative Personnel", "0,0,0"},
    {14_cur, "Direct Nursing Service", "0,0,0"},
    {15_cur, "Nursing Supervisor", "0,0,0"},
    {16_cur, "Physical Therapy Service", "0,0,0"},
    {17_cur, "Physical Therapy Supervisor", "0,0,0"},
    {18_cur, "Occupational Therapy Service", "0,0,0"},
    {19_cur, "Occupational Therapy Supervisor", "0,0,0"},
    {20_cur, "Speech Pathology Service", "0,0,0"},
    {21_cur, "Speech Pathology Supervisor", "0,0,0"},
    {22_cur, "Medical Social Service", "0,0,0"},
    {23_cur, "Medical Social Supervisor", "0,0,0"},
    {24_cur, "Home Health Aide", "0,0,0"},
    {25_cur, "Home Health Aide Supervisor", "0,0,0"},
    {26_cur, nullptr, "0,0,0"},
    {27_cur, nullptr, "0,0,0"},
}};

namespace {

void Log_Line(std::string_view message) {
    Log_Calc("W_S3p2_", "Calc_S3p2", "S3p2", message);
}

}  // namespace

void Build_S3p2() {
    Build_Table("S3p2", kColumns, "LineNum, Description,Col_1,Col_2,Col_3", kLinesS3p2, "ndx");
}

void Calc_S3p2() {
    Log_Line("Worksheet S-3 Part-2 Calculation");
    db.Execute("UPDATE S3p2 SET Col_3 = IIF(IsNull(Col_1),0,Col_1) + IIF(IsNull(Col_2),0,Col_2) WHERE LineNum > 0;");
    Log_Line("Worksheet S-3 Part-2 calculation completed.");
}

}  // namespace tallmar
