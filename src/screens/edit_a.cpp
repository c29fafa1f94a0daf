// frmEditA, frmEditA1 to frmEditA3 and their views: amounts in whole dollars by cost center.
#include <algorithm>
#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr int kNameLength = 36;

constexpr std::array kColumnsA{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"CCGroup", "", "CC Group", CellKind::Shown, 0, "000#", why::kFromChart},
    FormColumn{"CCName", "", "Cost Center", CellKind::Name, kNameLength},
    FormColumn{"Col_1", "1", "Salaries", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Employee Benefits", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Transportation", CellKind::Number, 0, kAmount},
    FormColumn{"Col_4", "4", "Contracted Purchased Services", CellKind::Number, 0, kAmount},
    FormColumn{"Col_5", "5", "Other Costs", CellKind::Number, 0, kAmount},
};

constexpr std::array kViewColumnsA{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"CCGroup", "", "Group", CellKind::Shown, 0, "000#"},
    FormColumn{"CCName", "", "Cost Center"},
    FormColumn{"Col_1", "1", "Salaries", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_2", "2", "Employee Benefits", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_3", "3", "Transportation", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_4", "4", "Contracted Purchased Services", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_5", "5", "Other Costs", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_6", "6", "Total", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_7", "7", "Reclassifications", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_8", "8", "Reclassified Trial Balance", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_9", "9", "Adjustments", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_10", "10", "Net Expenses For Cost Allocation", CellKind::Shown, 0, kAmount},
};

// Consultants carry no salary and no payroll benefit: on A-1 and A-2 the cells of column 3 are shaded.
constexpr std::array kCompensation{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"CCName", "", "Cost Center", CellKind::Name, kNameLength},
    FormColumn{"Col_1", "1", "Administrators", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Directors", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Consultants", CellKind::Number, 0, kAmount},
    FormColumn{"Col_4", "4", "Supervisors", CellKind::Number, 0, kAmount},
    FormColumn{"Col_5", "5", "Nurses", CellKind::Number, 0, kAmount},
    FormColumn{"Col_6", "6", "Therapists", CellKind::Number, 0, kAmount},
    FormColumn{"Col_7", "7", "Aides", CellKind::Number, 0, kAmount},
    FormColumn{"Col_8", "8", "All Other", CellKind::Number, 0, kAmount},
    FormColumn{"Col_9", "9", "Total", CellKind::Shown, 0, kAmount},
};

// The columns that have an analysis of their own before 10/1/2000.
struct AnalysedColumn {
    std::string_view field;
    std::string_view why;
};
constexpr std::array kAnalysed{
    AnalysedColumn{"Col_1", "in fiscal years that begin before 10/1/2000 it comes from Worksheet A-1"},
    AnalysedColumn{"Col_2", "in fiscal years that begin before 10/1/2000 it comes from Worksheet A-2"},
    AnalysedColumn{"Col_4", "in fiscal years that begin before 10/1/2000 it comes from Worksheet A-3"},
};

const AnalysedColumn* Find_Analysed(std::string_view field) {
    const auto found = std::ranges::find(kAnalysed, field, &AnalysedColumn::field);
    return found == kAnalysed.end() ? nullptr : &*found;
}

std::string_view Hidden_A(std::string_view field) {
    const AnalysedColumn* column = Is_Cost_Limit_Period() ? Find_Analysed(field) : nullptr;
    return column == nullptr ? std::string_view() : column->why;
}

// The capital lines take no salaries, benefits or contracted services.
std::string_view Locked_A(const CellPlace& place) {
    const bool isCapital = place.row.Line() < 3_cur;
    return isCapital && Find_Analysed(place.column.field) != nullptr ? why::kShaded : std::string_view();
}

// A name belongs to its worksheet: the chart and the other worksheets keep theirs.
std::string Kept_Name(const RowUnderEdit& row) {
    if (!row.Entered().contains("CCName")) return {};
    const Row center = db.Read_Row(Sql("SELECT CCName FROM CostCenters WHERE LineNum = ", row.Line(), ";"));
    if (!center || center["CCName"] == row["CCName"]) return {};
    return Sql("The chart keeps '", Nz_Str(center["CCName"]),
               "'. To rename a cost center everywhere use Cost Centers Structure.");
}

constexpr std::array kFoot{FootSum{"Total", {1_cur, 28.99_cur}}};

constexpr FormDescription Edit_Compensation(std::string_view name) {
    return {.name = name,
            .where = "LineNum < 29",
            .columns = {kCompensation},
            .cells = {.nullIsShaded = true},
            .rows = {.storedNote = Kept_Name},
            .window = {.foot = kFoot}};
}
constexpr FormDescription View_Compensation(std::string_view name) {
    return {.name = name, .readOnly = true, .columns = {kCompensation}};
}

}  // namespace

constinit const FormDescription kEditA{.name = "frmEditA",
                                       .where = "LineNum < 29",
                                       .columns = {.described = kColumnsA, .hidden = Hidden_A},
                                       .cells = {.locked = Locked_A},
                                       .rows = {.storedNote = Kept_Name},
                                       .window = {.foot = kFoot}};
constinit const FormDescription kEditA1 = Edit_Compensation("frmEditA1");
constinit const FormDescription kEditA2 = Edit_Compensation("frmEditA2");
constinit const FormDescription kEditA3 = Edit_Compensation("frmEditA3");

constinit const FormDescription kViewA{.name = "frmViewA", .readOnly = true, .columns = {kViewColumnsA}};
constinit const FormDescription kViewA1 = View_Compensation("frmViewA1");
constinit const FormDescription kViewA2 = View_Compensation("frmViewA2");
constinit const FormDescription kViewA3 = View_Compensation("frmViewA3");

}  // namespace tallmar
