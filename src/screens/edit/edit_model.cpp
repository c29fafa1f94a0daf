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

bool EditModel::Place_Cursor(int row) {
    row_ = -1;
    try {
        if (row >= 0 && row < rowCount() && Form().Place_Cursor(Line(row)) && Form().Under_Edit().Exists()) row_ = row;
    } catch (const DbError&) {
        // The whole table went: the cursor can be in no row.
    }
    return row_ == row;
}

void EditModel::Clear_Cursor() {
    Form().Discard_Row();
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
    const auto atOnce = Form().Description().cells.storedAtOnce;
    return atOnce != nullptr && atOnce({Form().Worksheet(), Column(index.column()), Form().Under_Edit()});
}

bool EditModel::Is_Open(const GridColumn& column, const RowUnderEdit& row) const {
    try {
        return !Form().Is_Locked(column, row);
    } catch (const DbError&) {
        return false;
    }
}

const PopupList* EditModel::Popup(const QModelIndex& index) const {
    const auto popup = Form().Description().cells.popup;
    if (popup == nullptr || index.row() != row_ || !Takes_Entry(index)) return nullptr;
    return popup({Form().Worksheet(), Column(index.column()), Form().Under_Edit()});
}

std::vector<CellChoice> EditModel::Choices(const QModelIndex& index) const {
    const auto choices = Form().Description().cells.choices;
    if (choices == nullptr || index.row() != row_ || !Takes_Entry(index)) return {};
    return choices({Form().Worksheet(), Column(index.column()), Form().Under_Edit()});
}

std::optional<Refusal> EditModel::Enter(const QModelIndex& index, const QString& text) {
    std::optional<Refusal> refusal = Form().Enter(Column(index.column()), Plain_Text(text));
    // A check may fill other cells of the row, and open or lock them.
    if (!refusal) Show_Row(index.row());
    return refusal;
}

std::optional<Refusal> EditModel::Store_Row(const EntryTalk& talk) {
    if (row_ < 0 || !Form().Has_Entries()) return std::nullopt;
    const Currency line = Line(row_);
    try {
        if (std::optional<Refusal> refusal = Form().Store_Row(talk)) return refusal;
        Form().Follow_Changes();
    } catch (const DbError&) {
        if (!Form().Has_Entries()) {
            Reload_In_Place();
            Place_Cursor(Form().Description().order.empty() ? 0 : Row_Of(line));
        }
        throw;
    }
    Follow_Stored_Row(line);
    return std::nullopt;
}

void EditModel::Follow_Stored_Row(Currency line) {
    const FormDescription& form = Form().Description();
    const RowUnderEdit& stored = Form().Under_Edit();
    if (form.rows.stored == nullptr && form.rows.follow == nullptr && stored.Exists()) {
        Reload_Row(row_, stored.Stored());
        if (form.cells.popup != nullptr) Show_All();
        return;
    }
    Reload_In_Place();
    // By line: what follows may bring rows and take some.
    row_ = form.order.empty() ? 0 : Row_Of(line);
    if (row_ >= 0) Form().Place_Cursor(line, Rows().At(static_cast<std::size_t>(row_)), Rows().Mark());
}

DiscardedRow EditModel::Discard_Row() {
    if (row_ < 0) return {};
    const int row = row_;
    DiscardedRow discarded = Form().Discard_Row();
    Place_Cursor(row);
    Show_Row(row);
    return discarded;
}

bool EditModel::Restore_Row(const DiscardedRow& discarded) {
    if (row_ < 0 || !Form().Restore_Row(discarded)) return false;
    Show_Row(row_);
    return true;
}

void EditModel::Reload_In_Place() {
    FormRows now(Form().Description(), Form().Worksheet());
    if (!now.Has_Lines_Of(Rows())) {
        row_ = -1;
        return Reload_From(std::move(now));
    }
    Rows().Reload_From(std::move(now));
    Show_All();
}

void EditModel::Reload() {
    row_ = -1;
    GridModel::Reload();
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
    std::optional<Refusal> refusal;
    if (index.row() != row_) {
        refusal = Store_Row();
        if (!refusal && !Place_Cursor(index.row())) return false;
    }
    if (!refusal) refusal = Enter(index, value.toString());
    if (refusal) Show_Refusal(*refusal);
    return !refusal;
}

Value EditModel::Cell(int row, const GridColumn& column) const {
    return row == row_ && Form().Has_Entries() ? Form().Under_Edit()[column.field] : GridModel::Cell(row, column);
}

}  // namespace tallmar
