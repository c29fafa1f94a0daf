// frmEditB1: statistics, exclusions from accumulated cost, overrides of linked statistics; and the views of B and B-1.
#include <array>

#include "calc/stat_columns.h"
#include "calc/w_b1.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::array kFixed{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"CCName", "", "Cost Center"},
};
constexpr std::array kFixedB{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"CCName", "", "Cost Center"},
    FormColumn{"NetExpenses", "0", "Net Expenses For Cost Allocation", CellKind::Shown, 0, kAmount},
    FormColumn{"SubTotal", "4A", "Subtotal", CellKind::Shown, 0, kAmount},
    FormColumn{"Total", "6", "Total", CellKind::Shown, 0, kAmount},
};

constexpr std::string_view kAccumulated = "ACCUM. COST";
constexpr std::string_view kSource = "[Source CC]";
constexpr std::string_view kRecipient = "[from CC_";

bool Holds(const GridColumn& column, std::string_view tag) {
    return column.tag.find(tag) != std::string::npos;
}

// What asks before a statistic of such a column is changed.
struct Warning {
    std::string_view tag;
    bool overridden;  // B1X has a row for the cell
    int buttons;
    BoxText box;
};
constexpr std::array kWarnings{
    Warning{kAccumulated,
            false,
            kOkCancel,
            {"Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center",
             "The statistic you just modified belongs to a cost center that is an 'Accumulated Costs' type Cost "
             "Center.  The only change you may make to 'Accumulated Costs' type Cost Centers is to establish one [or "
             "more] exclusions from the 'Accumulated Costs' calculation process.  Select OK to make this exclusion, "
             "or Cancel to abort it."}},
    Warning{kAccumulated,
            true,
            kOkCancel,
            {"Warning: Modifying An Excluded 'Accumulated Costs' Statistic",
             "The statistic you just modified belongs to a cost center that is an 'Accumulated Costs' type Cost "
             "Center and has previously been excluded from the 'Accumulated Costs' process.  The only change you may "
             "make to an 'Accumulated Costs' type Cost Center is to establish or remove exclusions from the "
             "'Accumulated Costs' calculation process.  Select OK to remove this exclusion, or Cancel to abort this "
             "change request."}},
    Warning{kRecipient,
            false,
            kOkCancel,
            {"Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center",
             "The statistic you just modified belongs to a cost center that is a Recipient Cost Center within the "
             "StatLinks module.  Changing this statistic will establish an override.  Select OK to make this change, "
             "or Cancel to abort it."}},
    Warning{kRecipient,
            true,
            kYesNoCancel,
            {"Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center Having An Override Value",
             "The statistic you just modified belongs to a cost center that is a Recipient Cost Center within the "
             "StatLinks module and has also been assigned an override value.  Select Yes to replace the current "
             "override value.  Select No to remove this override altogether.  Select Cancel to abort this change "
             "request."}},
};

// A line that is excluded from accumulated cost.
constexpr double kExcluded = -1;

// Columns of general service cost centers: of each its statistic, and the reconciliation where it has one.
std::vector<GridColumn> Cost_Center_Columns(std::string_view format, CellKind kind) {
    std::vector<GridColumn> columns;
    Recordset centers =
        db.OpenRecordset("SELECT * FROM CostCenters WHERE CCType = 'G' ORDER BY CCNum;", RecordsetType::Snapshot);
    for (; !centers.Eof(); centers.MoveNext()) {
        const Currency ccNum = centers["CCNum"].To_Currency();
        std::string label;
        for (const std::string_view field : {"ColLabel1", "ColLabel2", "ColLabel3", "StatLabel1", "StatLabel2"}) {
            const std::string part = Nz_Str(centers[field]);
            if (Is_Blank(part)) continue;
            // "Adminis-" and "trative" are one word.
            if (label.ends_with('-')) {
                label.pop_back();
            } else if (!label.empty()) {
                label += ' ';
            }
            label += Trim(part);
        }
        GridColumn column{.field = CC_Column(ccNum),
                          .number = ccNum.To_Text(),
                          .label = label,
                          .format = std::string(format),
                          .kind = kind,
                          .tag = {}};
        if (Is_Accumulated_Cost(centers["StatLabel1"], centers["StatLabel2"])) column.tag = kAccumulated;
        GridColumn recon = column;
        recon.field = Recon_Column(ccNum);
        recon.label = "Reconciliation";
        recon.kind = CellKind::Shown;
        columns.push_back(std::move(recon));
        columns.push_back(std::move(column));
    }
    return columns;
}

std::vector<GridColumn> Edit_Columns(const Item&) {
    std::vector<GridColumn> columns = Cost_Center_Columns(kStatistic, CellKind::Own);
    Recordset links = db.OpenRecordset("SELECT * FROM StatLinks ORDER BY ToCCNum;", RecordsetType::Snapshot);
    for (; !links.Eof(); links.MoveNext()) {
        const std::string from = CC_Column(links["FromCCNum"].To_Currency());
        const std::string to = CC_Column(links["ToCCNum"].To_Currency());
        for (GridColumn& column : columns) {
            if (column.field == to) column.tag += Sql(kRecipient, from.substr(kCCPrefix.size()), "]");
            if (column.field == from && !Holds(column, kSource)) column.tag += kSource;
        }
    }
    return columns;
}
std::vector<GridColumn> View_Columns(const Item&) {
    return Cost_Center_Columns(kStatistic, CellKind::Shown);
}
std::vector<GridColumn> View_Columns_B(const Item&) {
    return Cost_Center_Columns(kAmount, CellKind::Shown);
}

// On its own line a column holds its total.
std::string_view Locked(const CellPlace& place) {
    return place.row.Line() == Column_CC(place.column.field) ? why::kComputed : std::string_view();
}

const Warning* Find_Warning(const GridColumn& column, bool overridden) {
    for (const Warning& warning : kWarnings) {
        if (Holds(column, warning.tag)) {
            if (warning.overridden == overridden) return &warning;
        }
    }
    return nullptr;
}

void Insert_Override(const CellPlace& place, double amount) {
    db.Execute(Sql("INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (", place.row.Line(), ", ",
                   Quoted(place.column.field), ", ", amount, ");"));
}

CellResult Check(const CellPlace& place, std::string_view text) {
    CellResult result = Validate_Number(place.talk, text, place.column.limit);
    if (result.refusal) return result;
    // An unchanged value is no modification.
    if (result.value.To_Double() == Nz_Double(place.row[place.column.field])) return result;
    const std::string where = Sql(" WHERE ColCCNum = '", place.column.field, "' And RowCCNum=", place.row.Line(), ";");
    const bool overridden = static_cast<bool>(db.Read_Row(Sql("SELECT * FROM B1X", where)));
    const Warning* warning = Find_Warning(place.column, overridden);
    if (warning == nullptr) return result;

    const double amount = result.value.To_Double();
    const bool accumulated = warning->tag == kAccumulated;
    switch (place.talk.Ask(Fill_Box(warning->box), warning->buttons + kExclamation)) {
        case Answer::Ok:
            if (overridden) {
                db.Execute(Sql("DELETE FROM B1X", where));
            } else {
                Insert_Override(place, accumulated ? kExcluded : amount);
            }
            return result;
        case Answer::Yes:
            db.Execute(Sql("UPDATE B1X SET Amount=", amount, where));
            return result;
        case Answer::No:
            db.Execute(Sql("DELETE FROM B1X", where));
            return result;
        default:
            result = Refuse(warning->box);
            result.refusal->shown = !place.talk.Is_Quiet();
            return result;
    }
}

// Recipients copy what was typed into their source.
void Stored(const RowPlace& place) {
    for (const GridColumn& column : place.columns) {
        if (Holds(column, kSource) && place.row.Entered().contains(column.field)) return Apply_StatLinks();
    }
}

constexpr std::array kSides{SideTable{"B1X", "RowCCNum"}};
constexpr std::array kFoot{FootSum{"Total", {1_cur, 28.99_cur}}};

}  // namespace

constinit const FormDescription kEditB1{.name = "frmEditB1",
                                        .where = "LineNum < 29",
                                        .columns = {.described = kFixed, .more = Edit_Columns},
                                        .cells = {.nullIsShaded = true, .locked = Locked, .check = Check},
                                        .rows = {.stored = Stored, .sides = kSides},
                                        .window = {.foot = kFoot, .statLinks = true}};
constinit const FormDescription kViewB1{.name = "frmViewB1",
                                        .readOnly = true,
                                        .columns = {.described = kFixed, .more = View_Columns},
                                        .window = {.building = " Building the columns of Worksheet B-1"}};
constinit const FormDescription kViewB{
    .name = "frmViewB", .readOnly = true, .columns = {.described = kFixedB, .more = View_Columns_B}};

}  // namespace tallmar
