#include "screens/edit/grid_foot.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <optional>

#include "common/format.h"
#include "common/numbers.h"
#include "screens/cell_text.h"
#include "screens/edit/edit_grid.h"
#include "screens/view/grid_delegate.h"
#include "screens/view/grid_head.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

// Cells that take no entry are computed, or empty.
std::optional<double> Entered_Sum(const EditModel& model, const FootSum& sum, int column) {
    std::optional<double> total;
    for (int row = 0; row < model.rowCount(); ++row) {
        const Currency line = model.Line(row);
        const QModelIndex index = model.index(row, column);
        if (!sum.lines.Has(line) || !model.Is_Entry(index)) continue;
        const Value value = model.Value_At(index);
        const bool less = std::ranges::find(sum.less, line) != sum.less.end();
        const double amount = value.Is_Numeric() ? value.To_Double() : 0;
        total = total.value_or(0) + (less ? -amount : amount);
    }
    return total;
}

}  // namespace

GridFoot::GridFoot(EditGrid& grd, QWidget* parent) : QWidget(parent), grd_(grd) {
    setObjectName("picFoot");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const EditModel& model = grd.Entries();
    connect(&model, &QAbstractItemModel::modelReset, this, &GridFoot::Add_Up);
    connect(&model, &QAbstractItemModel::dataChanged, this, &GridFoot::Add_Up);
    connect(&model, &QAbstractItemModel::headerDataChanged, this, &GridFoot::Add_Up);
    const auto redraw = [this] { update(); };
    connect(&grd.Head(), &QHeaderView::sectionResized, this, redraw);
    connect(grd.horizontalScrollBar(), &QScrollBar::valueChanged, this, redraw);
    connect(&grd, &GridView::Zoom_Changed, this, [this] {
        updateGeometry();
        update();
    });
    Add_Up();
}

void GridFoot::Add_Up() {
    const EditModel& model = grd_.Entries();
    const std::span<const FootSum> foot = model.Form().Description().window.foot;
    sums_.assign(foot.size(), std::vector<QString>(static_cast<std::size_t>(model.columnCount())));
    QString all;
    for (std::size_t i = 0; i < foot.size(); ++i) {
        for (int column = model.Frozen(); column < model.columnCount(); ++column) {
            const GridColumn& described = model.Column(column);
            if (!Is_Figure(described)) continue;
            const std::optional<double> sum = Entered_Sum(model, foot[i], column);
            if (!sum) continue;
            const std::string text = described.format.empty() ? Number_Text(*sum) : Format(*sum, described.format);
            sums_[i][static_cast<std::size_t>(column)] = Qt_Text(text);
            all += Qt_Text(foot[i].label) + ", " + model.Whole_Head(column) + ": " + Qt_Text(text) + ". ";
        }
    }
    setAccessibleName(tr("Sums"));
    setAccessibleDescription(all);
    update();
}

QString GridFoot::Sum_Text(int sum, int column) const {
    return sums_[static_cast<std::size_t>(sum)][static_cast<std::size_t>(column)];
}

int GridFoot::Line_Height() const {
    const QFontMetrics metrics(grd_.font());
    return metrics.height() + metrics.height() / 2;
}

QSize GridFoot::sizeHint() const {
    return {0, Line_Height() * static_cast<int>(sums_.size()) + 1};
}

void GridFoot::paintEvent(QPaintEvent*) {
    const std::span<const FootSum> foot = grd_.Entries().Form().Description().window.foot;
    QPainter painter(this);
    QFont bold = grd_.font();
    bold.setBold(true);
    painter.setFont(bold);
    const QPoint corner = mapFromGlobal(grd_.viewport()->mapToGlobal(QPoint()));
    const int frozen = grd_.Frozen().Width();
    const int margin = QFontMetrics(bold).averageCharWidth();
    painter.fillRect(rect(), Total_Tone(palette()));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawLine(rect().topLeft(), rect().topRight());
    for (std::size_t i = 0; i < foot.size(); ++i) {
        const int top = 1 + static_cast<int>(i) * Line_Height();
        for (int column = 0; column < static_cast<int>(sums_[i].size()); ++column) {
            QRect cell(corner.x() + grd_.columnViewportPosition(column), top, grd_.columnWidth(column), Line_Height());
            cell.setLeft(std::max(cell.left(), corner.x() + frozen));
            cell.adjust(0, 0, -margin / 2, 0);
            if (cell.width() > 0) {
                painter.drawText(cell, int(Qt::AlignRight | Qt::AlignVCenter), Sum_Text(static_cast<int>(i), column));
            }
        }
        const QRect label(corner.x() + margin / 2, top, std::max(frozen - margin, 0), Line_Height());
        painter.drawText(label, int(Qt::AlignLeft | Qt::AlignVCenter), Qt_Text(foot[i].label));
    }
}

}  // namespace tallmar
