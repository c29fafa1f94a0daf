#include "calc/w_dp2.h"

#include <array>

#include "calc/worksheet.h"
#include "common/dates.h"
#include "common/variant.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 255}, Column{"Col_1"},
                              Column{"Col_2"}};

constexpr const char* kBoth = "0,0";
constexpr const char* kPartAOnly = "0,Null";
constexpr const char* kPartBOnly = "Null,0";
constexpr const char* kShaded = "Null,Null";

}  // namespace

constexpr std::array<FixedRow, 36> kLinesDp2{{
    {12_cur, "Total reasonable cost", kBoth, LineKind::Total},
    {12.01_cur, "Total PPS Payment - Full Episodes without Outliers", kPartAOnly},
    {12.02_cur, "Total PPS Payment - Full Episodes with Outliers", kPartAOnly},
    {12.03_cur, "Total PPS Payment - LUPA Episodes", kPartAOnly},
    {12.04_cur, "Total PPS Payment - PEP Only Episodes", kPartAOnly},
    {12.05_cur, "Total PPS Payment - SCIC within a PEP Episodes", kPartAOnly},
    {12.06_cur, "Total PPS Payment - SCIC Only Episodes", kPartAOnly},
    {12.07_cur, "Total PPS Outlier Payment - Full Episodes with Outliers", kPartAOnly},
    {12.08_cur, "Total PPS Outlier Payment - PEP Episodes", kPartAOnly},
    {12.09_cur, "Total PPS Outlier Payment - SCIC within a PEP Episodes", kPartAOnly},
    {12.10_cur, "Total PPS Outlier Payment - SCIC Only Episodes", kPartAOnly},
    {12.11_cur, "Total Other Payments", kPartAOnly},
    {12.12_cur, "DME Payment", kPartAOnly},
    {12.13_cur, "Oxygen Payment", kPartAOnly},
    {12.14_cur, "Prosthetics and Orthotics Payment", kPartAOnly},
    {13_cur, "Part B deductibles billed to Medicare patients", kPartBOnly},
    {14_cur, "Subtotal", kShaded, LineKind::Total},
    {15_cur, "Excess resonable cost", kBoth},
    {16_cur, "Subtotal", kShaded, LineKind::Total},
    {17_cur, "Coinsurance billed to Medicare patients", kPartBOnly},
    {18_cur, "Net cost", kShaded},
    {19_cur, "Reimbursible bad debts", kBoth},
    {20_cur, "Pneumococcal Vaccine", kPartBOnly},
    {21_cur, "Total costs - Current cost reporting period", kBoth, LineKind::Total},
    {22_cur, "Amounts applicable to prior cost reporting periods resulting from disposition of depreciable assets",
     kBoth},
    {23_cur, "Recovery of excess depreciation resulting from agencies' termination or decrease in Medicare utilization",
     kBoth},
    {24_cur,
     "Unrefunded charges to beneficiaries for excess costs erroneously collected based on correction of cost limit",
     kBoth},
    {25_cur, "Total cost before sequestration and other adjustments", kShaded, LineKind::Total},
    {25.5_cur, "Other adjustments", kBoth},
    {26_cur, "Sequestration Adjustment", kBoth},
    {27_cur, "Amount reimbursible after sequestration and other adjustments", kShaded},
    {28_cur, "Total interim payments", kShaded, LineKind::Total},
    {28.5_cur, "Tentative settlement (For intermediary use only)", kShaded, LineKind::Shaded},
    {29_cur, "Balance due HHA/Medicare program", kShaded},
    {30_cur, "Protested amounts (nonallowable cost report items) in accordance with CMS Pub. 15-II, section 115.2",
     kBoth},
    {31_cur, "Balance due HHA/Medicare program", kShaded},
}};

namespace {

constexpr Date kSequestrationFrom = Date_Of(2013, 4, 1);

// What a line does with the running amounts.
enum class Rule {
    Store,            // the line shows them
    Add,              // what is typed comes on top
    AddPartB,         // ... of Part B only
    Subtract,         // what is typed goes off
    SubtractPartB,    // ... of Part B only
    ExcessCost,       // shows D Part I line 10 and takes it off
    Sequestration,    // goes off; cleared in periods before it
    InterimPayments,  // shows D-1 line 4
    Balance,          // interim payments go off; shows the rest
};

struct LineRule {
    LineRange lines;
    Rule rule;
};

// Lines that no row names stay as they are.
constexpr std::array kRules{
    LineRule{12_cur, Rule::Store},
    LineRule{{12.01_cur, 12.14_cur}, Rule::Add},
    LineRule{13_cur, Rule::SubtractPartB},
    LineRule{14_cur, Rule::Store},
    LineRule{15_cur, Rule::ExcessCost},
    LineRule{16_cur, Rule::Store},
    LineRule{17_cur, Rule::SubtractPartB},
    LineRule{18_cur, Rule::Store},
    LineRule{19_cur, Rule::Add},
    LineRule{20_cur, Rule::AddPartB},
    LineRule{21_cur, Rule::Store},
    LineRule{22_cur, Rule::Add},
    LineRule{{23_cur, 24_cur}, Rule::Subtract},
    LineRule{25_cur, Rule::Store},
    LineRule{{25.5_cur, 25.9999_cur}, Rule::Add},
    LineRule{26_cur, Rule::Sequestration},
    LineRule{27_cur, Rule::Store},
    LineRule{28_cur, Rule::InterimPayments},
    LineRule{29_cur, Rule::Balance},
    LineRule{30_cur, Rule::Subtract},
    LineRule{31_cur, Rule::Store},
};

struct Amounts {
    Currency partA, partB;

    Amounts& operator+=(const Amounts& other) {
        partA += other.partA;
        partB += other.partB;
        return *this;
    }
    Amounts& operator-=(const Amounts& other) {
        partA -= other.partA;
        partB -= other.partB;
        return *this;
    }
};

// The two Part B columns of a line of D Part I together. Zeros for a line that is not there.
Amounts Read_Dp1(const char* select) {
    const Row row = db.Read_Row(select);
    if (!row) return {};
    return {Nz_Currency(row["Col_1"]), Nz_Currency(row["Col_2"]) + Nz_Currency(row["Col_3"])};
}

Amounts Read_Interim_Payments() {
    const Row row = db.Read_Row("SELECT Col_2,Col_4 FROM D1 WHERE LineNum=4");
    if (!row) return {};
    return {Nz_Currency(row["Col_2"]), Nz_Currency(row["Col_4"])};
}

Amounts Read_Line(const Recordset& row) {
    return {Nz_Currency(row["Col_1"]), Nz_Currency(row["Col_2"])};
}

void Store_Line(Recordset& row, const Amounts& amounts) {
    row.Edit();
    row.Fields("Col_1").Set(amounts.partA);
    row.Fields("Col_2").Set(amounts.partB);
    row.Update();
}

void Apply_Rule(Rule rule, Recordset& row, Amounts& running) {
    switch (rule) {
        case Rule::Store:
            Store_Line(row, running);
            break;
        case Rule::Add:
            running += Read_Line(row);
            break;
        case Rule::AddPartB:
            running.partB += Read_Line(row).partB;
            break;
        case Rule::Subtract:
            running -= Read_Line(row);
            break;
        case Rule::SubtractPartB:
            running.partB -= Read_Line(row).partB;
            break;
        case Rule::ExcessCost: {
            const Amounts excess = Read_Dp1("Select * From Dp1 Where LineNum = 10");
            Store_Line(row, excess);
            running -= excess;
            break;
        }
        case Rule::Sequestration:
            if (openReport.FYEnd < kSequestrationFrom) Store_Line(row, {});
            running -= Read_Line(row);
            break;
        case Rule::InterimPayments:
            Store_Line(row, Read_Interim_Payments());
            break;
        case Rule::Balance:
            running -= Read_Interim_Payments();
            Store_Line(row, running);
            break;
    }
}

}  // namespace

void Build_Dp2() {
    Build_Table("Dp2", kColumns, "LineNum,Description,Col_1,Col_2", kLinesDp2, "ndxDp2");
}

void Calc_Dp2() {
    Amounts running = Read_Dp1("Select * From Dp1 Where LineNum = 3");
    running -= Read_Dp1("Select * From Dp1 Where LineNum = 11");
    Recordset rows = db.OpenRecordset("Select * From Dp2 Order By LineNum;");
    for (; !rows.Eof(); rows.MoveNext()) {
        const LineRule* rule = Find_Row(kRules, Nz_Currency(rows["LineNum"]));
        if (rule != nullptr) Apply_Rule(rule->rule, rows, running);
    }
    rows.Close();
}

}  // namespace tallmar
