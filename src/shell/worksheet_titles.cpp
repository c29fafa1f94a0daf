#include "shell/worksheet_titles.h"

#include <algorithm>
#include <array>

#include "common/item.h"

namespace tallmar {

namespace {

struct TitleRow {
    ItemPattern items;
    std::string_view title;
};
// The first that fits counts.
constexpr std::array kTitles{
    TitleRow{"A", "Reclassification and Adjustment of Trial Balance of Expenses"},
    TitleRow{"A1", "Compensation Analysis: Salaries and Wages"},
    TitleRow{"A2", "Compensation Analysis: Employee Benefits"},
    TitleRow{"A3", "Compensation Analysis: Contracted and Purchased Services"},
    TitleRow{"A4", "Reclassifications"},
    TitleRow{"A5", "Adjustments to Expenses"},
    TitleRow{"A6pA", "Related Organizations: Questions"},
    TitleRow{"A6pB", "Related Organizations: Costs and Adjustments"},
    TitleRow{"A6pC", "Related Organizations: Interrelationship"},
    TitleRow{"A7", "Changes in Capital Asset Balances"},
    TitleRow{"A83p1*", "Therapy by Outside Suppliers: General Information"},
    TitleRow{"A83p2*", "Therapy by Outside Suppliers: Salary Equivalency"},
    TitleRow{"A83p3*", "Therapy by Outside Suppliers: Travel"},
    TitleRow{"A83p4*", "Therapy by Outside Suppliers: Overtime"},
    TitleRow{"A83p5*", "Therapy by Outside Suppliers: Limitation"},
    TitleRow{"B", "Cost Allocation: General Service Costs"},
    TitleRow{"B1", "Cost Allocation: Statistical Basis"},
    TitleRow{"Cp1", "Aggregate Agency Cost per Visit"},
    TitleRow{"Cp2*", "Aggregate Medicare Cost and Limitation"},
    TitleRow{"Cp3", "Supplies and Drugs Cost"},
    TitleRow{"Cp4", "Comparison with the Cost Limitations"},
    TitleRow{"Cp5", "Outpatient Therapy Reduction"},
    TitleRow{"Dp1", "Lesser of Reasonable Cost or Customary Charges"},
    TitleRow{"Dp2", "Reimbursement Settlement"},
    TitleRow{"D1", "Payments to HHAs for Services Rendered"},
    TitleRow{"F", "Balance Sheet"},
    TitleRow{"F1", "Statement of Revenue and Expenses"},
    TitleRow{"F2", "Statement of Changes in Fund Balances"},
    TitleRow{"Sp2", "Settlement Summary"},
    TitleRow{"S2", "Complex Identification Data"},
    TitleRow{"S21", "Reimbursement Questionnaire"},
    TitleRow{"S3p1", "Statistical Data"},
    TitleRow{"S3p2", "Employment Data"},
    TitleRow{"S3p3", "MSA and CBSA Codes"},
    TitleRow{"S3p4", "PPS Activity Data"},
    TitleRow{"S5p2*", "Hospice Census Data"},
    TitleRow{"S5p4*", "Hospice Contracted Statistical Data"},
    TitleRow{"S5*", "Hospice Enrollment Days"},
    TitleRow{"Kh#", "Hospice Trial Balance of Expenses"},
    TitleRow{"K1h#", "Hospice Compensation Analysis: Salaries and Wages"},
    TitleRow{"K2h#", "Hospice Compensation Analysis: Employee Benefits"},
    TitleRow{"K3h#", "Hospice Compensation Analysis: Contracted and Purchased Services"},
    TitleRow{"K4p1*", "Hospice Cost Allocation: General Service Costs"},
    TitleRow{"K4p2*", "Hospice Cost Allocation: Statistical Basis"},
    TitleRow{"K5p1*", "General Service Costs to Hospice Cost Centers"},
    TitleRow{"K5p2*", "General Service Costs to Hospice Cost Centers: Statistical Basis"},
    TitleRow{"K5p3*", "Total Hospice Shared Costs"},
    TitleRow{"K6*", "Hospice Per Diem Cost"},
    TitleRow{"Oh#", "Analysis of HHA-Based Hospice Costs"},
    TitleRow{"O1*", "Hospice Continuous Home Care"},
    TitleRow{"O2*", "Hospice Routine Home Care"},
    TitleRow{"O3*", "Hospice Inpatient Respite Care"},
    TitleRow{"O4*", "Hospice General Inpatient Care"},
    TitleRow{"O5*", "Hospice Net Expenses for Allocation"},
    TitleRow{"O6p1*", "Hospice Cost Allocation: General Service Costs"},
    TitleRow{"O6p2*", "Hospice Cost Allocation: Statistical Basis"},
    TitleRow{"O7*", "Hospice Shared Service Costs by Level of Care"},
    TitleRow{"O8*", "HHA-Based Hospice Per Diem Cost"},
};

}  // namespace

std::string_view Worksheet_Title(std::string_view item) {
    const auto found = std::ranges::find_if(kTitles, [&](const TitleRow& row) { return row.items.Matches(item); });
    return found == kTitles.end() ? std::string_view() : found->title;
}

}  // namespace tallmar
