#include "screens/view/grid_model.h"

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "screens/cell_text.h"
#include "screens/total_rows.h"
#include "screens/view/qt_text.h"

namespace tallmar {

GridModel::GridModel(const FormDescription& description, Item item, QObject* parent)
    : QAbstractTableModel(parent), form_(description, std::move(item)), rows_(description, form_.Worksheet()) {
    Choose_Columns();
    Note_Totals();
}

void GridModel::Choose_Columns() {
    const std::span<const GridColumn> columns = form_.Columns();
    std::vector<GridColumn> shown;
    shown_.clear();
    heads_.clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].hidden) continue;
        shown_.push_back(static_cast<int>(i));
        shown.push_back(columns[i]);
        heads_ << Qt_Text(columns[i].label);
    }
    frozen_ = static_cast<int>(Frozen_Columns(shown));
}

void GridModel::Note_Totals() {
    totals_ = Total_Rows(form_.Worksheet(), rows_);
    placed_ = -1;
}

const GridColumn& GridModel::Column(int column) const {
    return form_.Columns()[static_cast<std::size_t>(shown_[static_cast<std::size_t>(column)])];
}

int GridModel::Column_Of(std::string_view field) const {
    for (int i = 0; i < columnCount(); ++i) {
        if (Same_Text(Column(i).field, field)) return i;
    }
    return -1;
}

Currency GridModel::Line(int row) const {
    return rows_.Line(static_cast<std::size_t>(row));
}

int GridModel::Row_Of(Currency line) const {
    const std::optional<std::size_t> row = rows_.Find(line);
    return row ? static_cast<int>(*row) : -1;
}

// It ends as well where the table cannot be read: the rows are then as they were.
class GridModel::Reset {
  public:
    explicit Reset(GridModel& model) : model_(model) { model_.beginResetModel(); }
    ~Reset() { model_.endResetModel(); }
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;
    void Rows_Are_Read() {
        model_.form_.Reload_Columns();
        model_.Choose_Columns();
        model_.Note_Totals();
    }

  private:
    GridModel& model_;
};

void GridModel::Reload() {
    Reset reset(*this);
    rows_.Reload();
    reset.Rows_Are_Read();
}

void GridModel::Reload_From(FormRows&& rows) {
    Reset reset(*this);
    rows_.Reload_From(std::move(rows));
    reset.Rows_Are_Read();
}

void GridModel::Reload_Row(int row, const Row& stored) {
    rows_.Reload_Row(static_cast<std::size_t>(row), stored);
    Note_Totals();
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void GridModel::Show_All() {
    if (rowCount() == 0) return;
    Note_Totals();
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void GridModel::Show_Heads_Of(int row) {
    if (form_.Description().columns.headsAt == nullptr || row < 0 || row >= rowCount()) return;
    const std::span<const std::string_view> labels = form_.Description().columns.headsAt(Line(row));
    QStringList heads;
    for (int i = 0; i < columnCount(); ++i) {
        const std::size_t at = static_cast<std::size_t>(i) - 1;
        heads << Qt_Text(i > 0 && at < labels.size() ? labels[at] : std::string_view(Column(i).label));
    }
    if (heads == heads_) return;
    heads_ = heads;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QString GridModel::Whole_Head(int column) const {
    const QString number = Qt_Text(Column(column).number);
    return number.isEmpty() ? heads_[column] : number + ' ' + heads_[column];
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.Count());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

Value GridModel::Cell(int row, const GridColumn& column) const {
    return rows_.At(static_cast<std::size_t>(row))[column.field];
}

QString GridModel::Display_Text(int row, const GridColumn& column) const {
    if (placed_ != row) {
        place_ = RowUnderEdit(Line(row), rows_.At(static_cast<std::size_t>(row)));
        placed_ = row;
    }
    Value value = Cell(row, column);
    if (value == place_[column.field])
        return Qt_Text(Cell_Text(form_.Description(), {form_.Worksheet(), column, place_}));
    RowUnderEdit entered = place_;
    entered.Set(column.field, std::move(value));
    return Qt_Text(Cell_Text(form_.Description(), {form_.Worksheet(), column, entered}));
}

bool GridModel::Is_Right(int row, const GridColumn& column) const {
    const RowUnderEdit line(Line(row), Row());
    return Reads_As_Figure(form_.Description(), {form_.Worksheet(), column, line});
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const GridColumn& column = Column(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return Display_Text(index.row(), column);
        case Qt::EditRole:
            return Qt_Text(Edit_Text(Cell(index.row(), column)));
        case Qt::TextAlignmentRole:
            return int(Qt::AlignVCenter | (Is_Right(index.row(), column) ? Qt::AlignRight : Qt::AlignLeft));
        case kShadedRole:
            return Is_Shaded(form_.Description(), column, Cell(index.row(), column));
        case kLabelRole:
            return index.column() < frozen_;
        case kTotalRole:
            return static_cast<bool>(totals_[static_cast<std::size_t>(index.row())]);
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (section < 0) return {};
    if (orientation == Qt::Vertical) {
        if (role != Qt::DisplayRole || section >= rowCount()) return {};
        return Qt_Text(Line_Text(Line(section)));
    }
    if (section >= columnCount()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return heads_[section];
        case kNumberRole:
            return Qt_Text(Column(section).number);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return Whole_Head(section);
        default:
            return {};
    }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

}  // namespace tallmar
