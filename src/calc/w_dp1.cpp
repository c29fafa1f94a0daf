#include "calc/w_dp1.h"

#include <algorithm>
#include <array>

#include "calc/w_c.h"
#include "calc/worksheet.h"
#include "common/numbers.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 255}, Column{"Col_1"},
                              Column{"Col_2"}, Column{"Col_3"}};

constexpr const char* kAmounts = "0,0,0";
constexpr const char* kShaded = "Null,Null,Null";

}  // namespace

constexpr std::array<FixedRow, 12> kLinesDp1{{
    {1_cur, "Reasonable Cost of Services", kAmounts},
    {2_cur, "Cost of Services, RHC & FQHC", "Null,Null,0"},
    {3_cur, "Sum of lines 1 & 2", kShaded},
    {4_cur, "Total charges for Title XVIII - Part A and Part B Services - Pre 10/1/2000", kAmounts},
    {4.01_cur, "Total charges for Title XVIII - Part A and Part B Services - Post 9/30/2000", kAmounts},
    {5_cur, "Amount actually collected from patients liable for payment for services on a charge basis", kAmounts},
    {6_cur,
     "Amount that would have been realized from patients liable for payment for services on a charge basis had such "
     "payment been made in accordance with 42 CRF 413.13(b)",
     kAmounts},
    {7_cur, "Ratio of line 5 to 6", kShaded},
    {8_cur, "Total customary charges - title XVIII", kShaded, LineKind::Total},
    {9_cur, "Excess of total customary charges over total reasonable cost", kAmounts},
    {10_cur, "Excess of reasonable cost over customary charges", kAmounts},
    {11_cur, "Primary Payer Amounts", kAmounts},
}};

namespace {

// The vaccine drug columns of C Part III replace the older ones.
constexpr Date kDrug901From = Date_Of(2003, 1, 1);
constexpr Date kLine1FromCp3 = kDrugCostsChange;

using Three = std::array<double, 3>;
constexpr std::array<const char*, 3> kCells{"Col_1", "Col_2", "Col_3"};

struct Flags {
    bool chargeExempt = false;
    bool nominalCharge = false;
};

Flags Read_Flags() {
    Flags flags;
    const Row line21 = db.Read_Row("SELECT Col_1 FROM S2 WHERE LineNum = 21");
    flags.nominalCharge = line21 && Is_Yes(line21["Col_1"]);
    const Row line23 = db.Read_Row("Select Col_1, Col_2 From S2 Where LineNum = 23;");
    flags.chargeExempt = flags.nominalCharge || (line23 && (Is_Yes(line23["Col_1"]) || Is_Yes(line23["Col_2"])));
    return flags;
}

void Store_Drug_Charges(const Flags& flags) {
    if (flags.chargeExempt) {
        db.Execute("Update Dp1 Set Col_1=0,Col_2=0,Col_3=0 Where LineNum=4.01;");
        return;
    }
    const Row sums = db.Read_Row("SELECT Sum(Col_6) AS Sum6, Sum(Col_7) AS Sum7 From Cp3 WHERE LineNum In (16,16.2);");
    db.Execute(Sql("UPDATE Dp1 SET Col_2 = ", Nz_Currency(sums["Sum6"]), ", Col_3 = ", Nz_Currency(sums["Sum7"]),
                   " WHERE LineNum=4.01;"));
    if (openReport.FYEnd < kLine1FromCp3) {
        const Row drugs = db.Read_Row("SELECT Col_6, Col_601 From Cp3 WHERE LineNum=16;");
        if (drugs) {
            db.Execute(Sql("UPDATE Dp1 SET Col_2 = ", Nz_Currency(drugs["Col_6"]) + Nz_Currency(drugs["Col_601"]),
                           " WHERE LineNum=4.01;"));
        }
    }
}

// Lines 19, 22 and 24 of C Part IV.
struct Limit {
    Currency partA, partB, total;
};

Limit Read_Limit(int line) {
    const Row row = db.Read_Row(Sql("SELECT LineNum, Col_3,Col_4,Col_6 FROM Cp4 WHERE LineNum = ", line, ";"));
    if (!row) return {};
    return {Nz_Currency(row["Col_3"]), Nz_Currency(row["Col_4"]), Nz_Currency(row["Col_6"])};
}

// Line 1: Part A, and the two columns of Part B. Dollars.
Three Reasonable_Cost() {
    const Row drugs = db.Read_Row("SELECT Col_9, Col_901 From Cp3 WHERE LineNum=16");
    const double drug9 = drugs ? Nz_Double(drugs["Col_9"]) : 0;
    const double drug901 = drugs ? Nz_Double(drugs["Col_901"]) : 0;
    const Limit cost = Read_Limit(19), perVisit = Read_Limit(22), perBeneficiary = Read_Limit(24);

    Limit least = perBeneficiary;
    double drugCost = Is_Cost_Limit_Period() ? 0 : drug9;
    if (cost.total < perVisit.total && cost.total < perBeneficiary.total) {
        least = cost;
        drugCost = drug9;
    } else if (!(cost.total < perVisit.total) && perVisit.total < perBeneficiary.total) {
        least = perVisit;
        drugCost = drug9;
    }
    Three result{Round_Half(least.partA.To_Double(), 0), Round_Half(least.partB.To_Double() + drugCost, 0), 0};
    if (openReport.FYEnd >= kDrug901From) result[1] = Round_Half(drug901, 0);

    const double drug10 = Read_Number("SELECT Sum(Col_10) AS Sum10 From Cp3 Where Int(LineNum) = 16;");
    if (Is_Cost_Limit_Period()) {
        const double therapy = Read_Number("SELECT Col_8 FROM Cp5 WHERE LineNum = 28;");
        const double supplies = Read_Number("SELECT Sum(Col_10) AS Sum10 From Cp3 Where LineNum = 15;");
        result[2] = Round_Half(therapy + supplies + drug10, 0);
    } else {
        result[2] = drug10;
    }
    return result;
}

Three Read_Cells(const Recordset& row) {
    return {Nz_Double(row["Col_1"]), Nz_Double(row["Col_2"]), Nz_Double(row["Col_3"])};
}

void Store_Cells(Recordset& row, const Three& values) {
    row.Edit();
    for (std::size_t i = 0; i < kCells.size(); ++i) row.Fields(kCells[i]).Set(values[i]);
    row.Update();
}

// What a line does with the amounts of the lines before it.
enum class Rule {
    StoreCost,        // the reasonable cost so far begins here
    AddCost,          // what is typed comes on top
    ShowCost,         // the line shows it
    Charges,          // the charges so far begin with what is typed
    AddCharges,       // what is typed comes on top, but in Part A
    Collected,        // what was collected ...
    Due,              // ... of what was due: the ratio, at most 1
    ShowRatio,        // the line shows it
    Customary,        // the charges, reduced by the ratio
    ExcessOfCharges,  // over the cost
    ExcessOfCost,     // over the charges
};

struct LineRule {
    LineRange lines;
    Rule rule;
};

// Lines that no row names stay as they are.
constexpr std::array kRules{
    LineRule{1_cur, Rule::StoreCost},     LineRule{2_cur, Rule::AddCost},
    LineRule{3_cur, Rule::ShowCost},      LineRule{4_cur, Rule::Charges},
    LineRule{4.01_cur, Rule::AddCharges}, LineRule{5_cur, Rule::Collected},
    LineRule{6_cur, Rule::Due},           LineRule{7_cur, Rule::ShowRatio},
    LineRule{8_cur, Rule::Customary},     LineRule{9_cur, Rule::ExcessOfCharges},
    LineRule{10_cur, Rule::ExcessOfCost},
};

// The walk down the worksheet: cost and charges so far, column by column.
struct Walk {
    Flags flags;
    Three reasonable{}, cost{}, charges{}, collected{}, ratio{};
};

void Store_Cost(Walk& walk, Recordset& row) {
    if (openReport.FYEnd >= kLine1FromCp3) walk.reasonable[1] = Nz_Double(row["Col_2"]);
    walk.cost = walk.reasonable;
    Store_Cells(row, walk.cost);
}

void Add_Charges(Walk& walk, const Three& later) {
    for (std::size_t i = 1; i < 3 && !walk.flags.chargeExempt; ++i) walk.charges[i] += later[i];
}

Three Plus(Three a, const Three& b) {
    for (std::size_t i = 0; i < 3; ++i) a[i] += b[i];
    return a;
}

Three Ratio(const Three& collected, const Three& due) {
    Three ratio{};
    for (std::size_t i = 0; i < 3; ++i) {
        ratio[i] = due[i] == 0 ? 0 : std::min(Round_Half(collected[i] / due[i], 6), 1.0);
    }
    return ratio;
}

void Reduce_Charges(Walk& walk) {
    if (walk.flags.chargeExempt) walk.charges[0] = walk.charges[1] = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (walk.flags.nominalCharge || !(walk.ratio[i] > 0)) continue;
        walk.charges[i] = Round_Half(walk.charges[i] * walk.ratio[i], 0);
    }
}

Three Excess(const Three& over, const Three& of) {
    Three excess{};
    for (std::size_t i = 0; i < 3; ++i) excess[i] = std::max(over[i] - of[i], 0.0);
    return excess;
}

void Apply_Rule(Rule rule, Recordset& row, Walk& walk) {
    switch (rule) {
        case Rule::StoreCost:
            return Store_Cost(walk, row);
        case Rule::AddCost:
            walk.cost = Plus(walk.cost, Read_Cells(row));
            return;
        case Rule::ShowCost:
            return Store_Cells(row, walk.cost);
        case Rule::Charges:
            walk.charges = Read_Cells(row);
            return;
        case Rule::AddCharges:
            return Add_Charges(walk, Read_Cells(row));
        case Rule::Collected:
            walk.collected = Read_Cells(row);
            return;
        case Rule::Due:
            walk.ratio = Ratio(walk.collected, Read_Cells(row));
            return;
        case Rule::ShowRatio:
            return Store_Cells(row, walk.ratio);
        case Rule::Customary:
            Reduce_Charges(walk);
            return Store_Cells(row, walk.charges);
        case Rule::ExcessOfCharges:
            return Store_Cells(row, Excess(walk.charges, walk.cost));
        case Rule::ExcessOfCost:
            const bool tested = !walk.flags.chargeExempt && !walk.flags.nominalCharge;
            return Store_Cells(row, tested ? Excess(walk.cost, walk.charges) : Three{});
    }
}

}  // namespace

void Build_Dp1() {
    Build_Table("Dp1", kColumns, "LineNum,Description,Col_1,Col_2,Col_3", kLinesDp1, "ndxDp1");
}

void Calc_Dp1() {
    const Flags flags = Read_Flags();
    db.Execute(
        Sql("UPDATE Dp1 SET Col_2 = ", Read_Currency("SELECT Sum(Col_9) AS Sum9 From Cp3 WHERE LineNum In (16,16.2);"),
            " WHERE LineNum=1;"));
    Store_Drug_Charges(flags);
    Walk walk{.flags = flags, .reasonable = Reasonable_Cost()};
    Recordset rows = db.OpenRecordset("SELECT * FROM Dp1 ORDER BY LineNum");
    for (; !rows.Eof(); rows.MoveNext()) {
        const LineRule* rule = Find_Row(kRules, Nz_Currency(rows["LineNum"]));
        if (rule != nullptr) Apply_Rule(rule->rule, rows, walk);
    }
    rows.Close();
}

}  // namespace tallmar
