#include "screens/edit/edit_model.h"

#include <utility>

#include "report/open_report.h"
#include "screens/view/qt_text.h"

namespace tallmar {

EditModel::EditModel(const FormDescription& description, Item item, QObject* parent)
    : GridModel(description, std::move(item), parent) {
    // An answer may open and lock cells of other rows.
    connect(this, &QAbstractItemModel::dataChanged, this, [this] { open_.clear(); });
    connect(this, &QAbstractItemModel::modelReset, this, [this] { open_.clear(); });
}

RowUnderEdit EditModel::Row_At(int row) const {
    const RowUnderEdit& under = Form().Under_Edit();
    if (row == row_ && under.Exists()) return under;
    return {Line(row), Rows().At(static_cast<std::size_t>(row))};
}

bool EditModel::Enter_Row(int row) {
    row_ = -1;
    try {
        if (row >= 0 && row < rowCount() && Form().Go_To(Line(row)) && Form().Under_Edit().Exists()) row_ = row;
    } catch (const DbError&) {
        // The whole table went: no row can be entered.
    }
    return row_ == row;
}

void EditModel::Leave_Row() {
    Form().Cancel_Row();
    row_ = -1;
}

bool EditModel::Takes_Entry(const QModelIndex& index) const {
    if (!index.isValid() || db.Is_Read_Only()) return false;
    return Is_Open(Column(index.column()), Row_At(index.row()));
}

bool EditModel::Is_Name(const QModelIndex& index) const {
    return Column(index.column()).kind == CellKind::Name && !index.data(Qt::EditRole).toString().trimmed().isEmpty();
}

bool EditModel::Stored_At_Once(const QModelIndex& index) const {
    const FormDescription& form = Form().Description();
    return form.storedAtOnce != nullptr &&
           form.storedAtOnce({Form().Worksheet(), Column(index.column()), Form().Under_Edit()});
}

bool EditModel::Is_Open(const GridColumn& column, const RowUnderEdit& row) const {
    try {
        return !Form().Is_Locked(column, row);
    } catch (const DbError&) {
        return false;
    }
}

const PopupList* EditModel::Popup(const QModelIndex& index) const {
    const FormDescription& form = Form().Description();
    if (form.popup == nullptr || index.row() != row_ || !Takes_Entry(index)) return nullptr;
    return form.popup({Form().Worksheet(), Column(index.column()), Form().Under_Edit()});
}

std::vector<CellChoice> EditModel::Choices(const QModelIndex& index) const {
    const FormDescription& form = Form().Description();
    if (form.choices == nullptr || index.row() != row_ || !Takes_Entry(index)) return {};
    return form.choices({Form().Worksheet(), Column(index.column()), Form().Under_Edit()});
}

CellOutcome EditModel::Enter(const QModelIndex& index, const QString& text) {
    CellOutcome outcome = Form().Enter(Column(index.column()), Plain_Text(text));
    // A check may fill other cells of the row, and open or lock them.
    if (outcome.stored) Show_Row(index.row());
    return outcome;
}

CellOutcome EditModel::Store_Row() {
    if (row_ < 0 || !Form().Has_Entries()) return {};
    const Currency line = Line(row_);
    const FormDescription& form = Form().Description();
    // By line: what follows may bring rows and take some.
    const auto enter_again = [&] { Enter_Row(form.order.empty() ? 0 : Row_Of(line)); };
    CellOutcome outcome;
    try {
        outcome = Form().Leave_Row();
        if (!outcome.stored) return outcome;
        Form().Follow_Changes();
    } catch (const DbError&) {
        if (!Form().Has_Entries()) {
            Refresh();
            enter_again();
        }
        throw;
    }
    if (form.rowStored != nullptr || form.follow != nullptr || form.popup != nullptr) {
        Refresh();
    } else {
        Reread(row_);
    }
    enter_again();
    return outcome;
}

GivenUpRow EditModel::Cancel_Row() {
    if (row_ < 0) return {};
    const int row = row_;
    GivenUpRow given = Form().Cancel_Row();
    Enter_Row(row);
    Show_Row(row);
    return given;
}

bool EditModel::Enter_Again(const GivenUpRow& given) {
    if (row_ < 0 || !Form().Enter_Again(given)) return false;
    Show_Row(row_);
    return true;
}

void EditModel::Refresh() {
    FormRows now(Form().Description(), Form().Worksheet());
    bool same = now.Count() == Rows().Count();
    for (std::size_t i = 0; same && i < now.Count(); ++i) same = now.Line(i) == Rows().Line(i);
    if (!same) return Requery();
    if (now.Count() == 0) return;
    Rows().Requery();
    Reread(0);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void EditModel::Requery() {
    row_ = -1;
    GridModel::Requery();
}

bool EditModel::Is_Entry(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (open_.size() <= row) open_.resize(row + 1);
    std::vector<bool>& open = open_[row];
    if (open.empty()) {
        const RowUnderEdit of = Row_At(index.row());
        for (int i = 0; i < columnCount(); ++i) open.push_back(Is_Open(Column(i), of));
    }
    return open[static_cast<std::size_t>(index.column())];
}

QVariant EditModel::data(const QModelIndex& index, int role) const {
    if (role == kPendingRole) return index.column() == 0 && index.row() == row_ && Form().Has_Entries();
    if ((role != kShadedRole && role != kLabelRole) || !index.isValid()) return GridModel::data(index, role);
    if (db.Is_Read_Only()) return role == kShadedRole;
    if (role == kLabelRole && Is_Name(index)) return true;
    const bool isLabel = Column(index.column()).number.empty();
    return isLabel == (role == kLabelRole) && !Is_Entry(index);
}

Qt::ItemFlags EditModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = GridModel::flags(index);
    return Takes_Entry(index) ? flags | Qt::ItemIsEditable : flags;
}

bool EditModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
    if (index.row() != row_) {
        const CellOutcome left = Store_Row();
        Show_Refusal(left);
        if (!left.stored || !Enter_Row(index.row())) return false;
    }
    const CellOutcome outcome = Enter(index, value.toString());
    Show_Refusal(outcome);
    return outcome.stored;
}

Value EditModel::Cell(int row, const GridColumn& column) const {
    return row == row_ && Form().Has_Entries() ? Form().Under_Edit()[column.field] : GridModel::Cell(row, column);
}

}  // namespace tallmar
