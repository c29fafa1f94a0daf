#include "screens/worksheet_forms.h"

#include <array>
#include <utility>

#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::string_view kAllComputed = "every cell is computed";
constexpr std::string_view kInternal = "a table behind B-1 that no user sees";

constexpr std::array kForms{
    WorksheetForms{"A", &kEditA, &kViewA, "Reclassification and Adjustment of Trial Balance of Expenses"},
    WorksheetForms{"A1", &kEditA1, &kViewA1, "Compensation Analysis: Salaries and Wages"},
    WorksheetForms{"A2", &kEditA2, &kViewA2, "Compensation Analysis: Employee Benefits"},
    WorksheetForms{"A3", &kEditA3, &kViewA3, "Compensation Analysis: Contracted and Purchased Services"},
    WorksheetForms{"A4", &kEditA4, &kViewA4, "Reclassifications"},
    WorksheetForms{"A5", &kEditA5, &kViewA5, "Adjustments to Expenses"},
    WorksheetForms{"A6pA", &kEditA6pA, &kViewA6pA, "Related Organizations: Questions"},
    WorksheetForms{"A6pB", &kEditA6pB, &kViewA6pB, "Related Organizations: Costs and Adjustments"},
    WorksheetForms{"A6pC", &kEditA6pC, &kViewA6pC, "Related Organizations: Interrelationship"},
    WorksheetForms{"A7", &kEditA7, &kViewA7, "Changes in Capital Asset Balances"},
    WorksheetForms{"A83p1*", &kEditA83p1, &kViewA83p1, "Therapy by Outside Suppliers: General Information"},
    WorksheetForms{"A83p2*", nullptr, &kViewA83p2, "Therapy by Outside Suppliers: Salary Equivalency", kAllComputed},
    WorksheetForms{"A83p3*", nullptr, &kViewA83p3, "Therapy by Outside Suppliers: Travel", kAllComputed},
    WorksheetForms{"A83p4*", &kEditA83p4, &kViewA83p4, "Therapy by Outside Suppliers: Overtime"},
    WorksheetForms{"A83p5*", &kEditA83p5, &kViewA83p5, "Therapy by Outside Suppliers: Limitation"},
    WorksheetForms{"B", nullptr, &kViewB, "Cost Allocation: General Service Costs", kAllComputed},
    WorksheetForms{"B1", &kEditB1, &kViewB1, "Cost Allocation: Statistical Basis"},
    WorksheetForms{"B1X", nullptr, nullptr, {}, kInternal, kInternal},
    WorksheetForms{"StatLinks", nullptr, nullptr, {}, kInternal, kInternal},
    WorksheetForms{"Cp1", nullptr, &kViewCp1, "Aggregate Agency Cost per Visit", kAllComputed},
    WorksheetForms{"Cp2*", &kEditCp2, &kViewCp2, "Aggregate Medicare Cost and Limitation"},
    WorksheetForms{"Cp3", &kEditCp3, &kViewCp3, "Supplies and Drugs Cost"},
    WorksheetForms{"Cp4", &kEditCp4, &kViewCp4, "Comparison with the Cost Limitations"},
    WorksheetForms{"Cp5", &kEditCp5, &kViewCp5, "Outpatient Therapy Reduction"},
    WorksheetForms{"Dp1", &kEditDp1, &kViewDp1, "Lesser of Reasonable Cost or Customary Charges"},
    WorksheetForms{"Dp2", &kEditDp2, &kViewDp2, "Reimbursement Settlement"},
    WorksheetForms{"D1", &kEditD1, &kViewD1, "Payments to HHAs for Services Rendered"},
    WorksheetForms{"F", &kEditF, &kViewF, "Balance Sheet"},
    WorksheetForms{"F1", &kEditF1, &kViewF1, "Statement of Revenue and Expenses"},
    WorksheetForms{"F2", &kEditF2, &kViewF2, "Statement of Changes in Fund Balances"},
    WorksheetForms{"Sp2", nullptr, &kViewSp2, "Settlement Summary", kAllComputed},
    WorksheetForms{"S2", &kEditS2, &kViewS2, "Complex Identification Data"},
    WorksheetForms{"S21", &kEditS21, &kViewS21, "Reimbursement Questionnaire"},
    WorksheetForms{"S3p1", &kEditS3p1, &kViewS3p1, "Statistical Data"},
    WorksheetForms{"S3p2", &kEditS3p2, &kViewS3p2, "Employment Data"},
    WorksheetForms{"S3p3", &kEditS3p3, &kViewS3p3, "MSA and CBSA Codes"},
    WorksheetForms{"S3p4", &kEditS3p4, &kViewS3p4, "PPS Activity Data"},
    // Hospices. Only what is computed stays without an edit form.
    WorksheetForms{"S5p1*", nullptr, nullptr, "Hospice Enrollment Days"},
    WorksheetForms{"S5p2*", nullptr, nullptr, "Hospice Census Data"},
    WorksheetForms{"S5p3*", nullptr, nullptr, "Hospice Enrollment Days"},
    WorksheetForms{"S5p4*", nullptr, nullptr, "Hospice Contracted Statistical Data"},
    WorksheetForms{"Kh#", nullptr, nullptr, "Hospice Trial Balance of Expenses"},
    WorksheetForms{"K1h#", nullptr, nullptr, "Hospice Compensation Analysis: Salaries and Wages"},
    WorksheetForms{"K2h#", nullptr, nullptr, "Hospice Compensation Analysis: Employee Benefits"},
    WorksheetForms{"K3h#", nullptr, nullptr, "Hospice Compensation Analysis: Contracted and Purchased Services"},
    WorksheetForms{"K4p1*", nullptr, nullptr, "Hospice Cost Allocation: General Service Costs", kAllComputed},
    WorksheetForms{"K4p2*", nullptr, nullptr, "Hospice Cost Allocation: Statistical Basis"},
    WorksheetForms{"K5p1*", nullptr, nullptr, "General Service Costs to Hospice Cost Centers", kAllComputed},
    WorksheetForms{"K5p2*", nullptr, nullptr, "General Service Costs to Hospice Cost Centers: Statistical Basis"},
    WorksheetForms{"K5p3*", nullptr, nullptr, "Total Hospice Shared Costs"},
    WorksheetForms{"K6*", nullptr, nullptr, "Hospice Per Diem Cost", kAllComputed},
    WorksheetForms{"Oh#", nullptr, nullptr, "Analysis of HHA-Based Hospice Costs"},
    WorksheetForms{"O1*", nullptr, nullptr, "Hospice Continuous Home Care"},
    WorksheetForms{"O2*", nullptr, nullptr, "Hospice Routine Home Care"},
    WorksheetForms{"O3*", nullptr, nullptr, "Hospice Inpatient Respite Care"},
    WorksheetForms{"O4*", nullptr, nullptr, "Hospice General Inpatient Care"},
    WorksheetForms{"O5*", nullptr, nullptr, "Hospice Net Expenses for Allocation", kAllComputed},
    WorksheetForms{"O6p1*", nullptr, nullptr, "Hospice Cost Allocation: General Service Costs", kAllComputed},
    WorksheetForms{"O6p2*", nullptr, nullptr, "Hospice Cost Allocation: Statistical Basis"},
    WorksheetForms{"O7*", nullptr, nullptr, "Hospice Shared Service Costs by Level of Care"},
    WorksheetForms{"O8*", nullptr, nullptr, "HHA-Based Hospice Per Diem Cost", kAllComputed},
    // Tables that are no worksheets.
    WorksheetForms{"CCs", nullptr, &kViewCCs},
    WorksheetForms{"HeaderLines", &kHeaderLines, nullptr, {}, {}, "its lines are seen where they are keyed"},
};

constinit std::span<const WorksheetForms> installed = kForms;

}  // namespace

std::span<const WorksheetForms> All_Forms() {
    return installed;
}

std::span<const WorksheetForms> Install_Forms(std::span<const WorksheetForms> forms) {
    return std::exchange(installed, forms);
}

const WorksheetForms* Find_Forms(const Item& item) {
    for (const WorksheetForms& forms : installed) {
        if (forms.items.Matches(item.Name())) return &forms;
    }
    return nullptr;
}

const FormDescription* Form_Of(FormMode mode, const Item& item) {
    const WorksheetForms* forms = Find_Forms(item);
    if (forms == nullptr) return nullptr;
    return mode == FormMode::Edit ? forms->edit : forms->view;
}

bool Has_No_Edit_Form(const Item& item) {
    const WorksheetForms* forms = Find_Forms(item);
    return forms != nullptr && !forms->noEdit.empty();
}

std::string_view Worksheet_Title(const Item& item) {
    const WorksheetForms* forms = Find_Forms(item);
    return forms == nullptr ? std::string_view() : forms->title;
}

}  // namespace tallmar
