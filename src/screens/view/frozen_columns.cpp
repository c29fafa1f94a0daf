#include "screens/view/frozen_columns.h"

#include <QHeaderView>
#include <algorithm>

#include "screens/view/grid_model.h"

namespace tallmar {

namespace {

// The share of the window that they may take, in percent.
constexpr int kMostShare = 60;

}  // namespace

const GridModel& FrozenColumns::Model() const {
    return *static_cast<const GridModel*>(table_.model());
}

std::vector<int> FrozenColumns::Columns() const {
    if (table_.model() == nullptr || Model().Frozen() == 0) return {};
    const int room = table_.viewport()->width() * kMostShare / 100;
    const int name = Model().Frozen() - 1;
    int all = 0;
    for (int i = 0; i <= name; ++i) all += table_.columnWidth(i);
    std::vector<int> columns;
    if (name > 0 && all > room && table_.columnWidth(0) + table_.columnWidth(name) <= room) return {0, name};
    int width = 0;
    for (int i = 0; i <= name && (width += table_.columnWidth(i)) <= room; ++i) columns.push_back(i);
    return columns;
}

bool FrozenColumns::Has(int column) const {
    const std::vector<int> columns = Columns();
    return std::ranges::find(columns, column) != columns.end();
}

int FrozenColumns::Before(int column) const {
    int width = 0;
    for (const int frozen : Columns()) width += frozen < column ? table_.columnWidth(frozen) : 0;
    return width;
}

int FrozenColumns::Left(int column) const {
    return std::max(table_.columnViewportPosition(column), Before(column));
}

int FrozenColumns::Width() const {
    const std::vector<int> columns = Columns();
    return columns.empty() ? 0 : Left(columns.back()) + table_.columnWidth(columns.back());
}

bool FrozenColumns::Is_Shifted() const {
    return table_.horizontalHeader()->offset() > 0 && Width() > 0;
}

int FrozenColumns::Shift(int x) const {
    for (const int column : Columns()) {
        const int left = Left(column);
        if (x >= left && x < left + table_.columnWidth(column)) return left - table_.columnViewportPosition(column);
    }
    return 0;
}

}  // namespace tallmar
