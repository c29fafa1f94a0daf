#include "calc/w_d1.h"

#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 255},
    Column{"Col_1", FieldType::Date},
    Column{"Col_2"},
    Column{"Col_3", FieldType::Date},
    Column{"Col_4"},
};

constexpr const char* kAmounts = "Null,0,Null,0";

}  // namespace

constexpr std::array<FixedRow, 6> kLinesD1{{
    {1_cur, "Total interim payments paid to provider", kAmounts},
    {2_cur,
     "Interim payments payable on individual bills either submitted or to be submitted to the intermediary, for "
     "services rendered in the cost reporting period",
     kAmounts},
    {3.01_cur, "Program to Provider lump sum adjustment", kAmounts},
    {3.5_cur, "Provider to Program lump sum adjustment", kAmounts},
    {3.99_cur, "SUBTOTAL", kAmounts, LineKind::Total},
    {4_cur, "TOTAL INTERIM PAYMENTS", kAmounts, LineKind::Total},
}};

namespace {

struct Payments {
    Currency partA, partB;
};

Payments Sum_Payments(const char* where) {
    const Row row = db.Read_Row(Sql("SELECT SUM(Col_2) AS Sum2,SUM(Col_4) AS Sum4 FROM D1 WHERE ", where, ";"));
    return {Nz_Currency(row["Sum2"]), Nz_Currency(row["Sum4"])};
}

void Store_Payments(const Payments& payments, Currency line) {
    db.Execute(Sql("UPDATE D1 SET Col_2=", payments.partA, ", Col_4=", payments.partB, " WHERE LineNum=", line, ";"));
}

}  // namespace

void Build_D1() {
    Build_Table("D1", kColumns, "LineNum,Description,Col_1,Col_2,Col_3,Col_4", kLinesD1, "ndx");
}

void Calc_D1() {
    const Payments toProvider = Sum_Payments("LineNum BETWEEN 3.01 AND 3.49");
    const Payments toProgram = Sum_Payments("LineNum BETWEEN 3.50 AND 3.98");
    Store_Payments({toProvider.partA - toProgram.partA, toProvider.partB - toProgram.partB}, 3.99_cur);
    Store_Payments(Sum_Payments("LineNum IN(1,2,3.99)"), 4_cur);
}

}  // namespace tallmar
