#include "screens/view/column_widths.h"

#include <QFontMetrics>
#include <algorithm>
#include <charconv>

#include "common/numbers.h"
#include "screens/cell_text.h"
#include "screens/view/grid_head.h"
#include "screens/view/grid_model.h"

namespace tallmar {

namespace {

constexpr double kNarrowest = 2, kWidest = 400;
// A text column is no wider than this, unless it is one of a few.
constexpr double kLongText = 40, kLongTextOfFew = 72;
constexpr int kFewColumns = 8;
// What is keyed and computed later has room from the start.
constexpr const char* kUsualFigure = "(9,999,999)";
constexpr const char* kUsualLine = "99.99";
constexpr int kUsualText = 16;
constexpr int kFirstRows = 40, kLastRows = 8;

int Contents_Width(const GridModel& model, int column, const QFontMetrics& metrics) {
    const int rows = model.rowCount();
    int width = 0;
    for (int row = 0; row < rows; ++row) {
        if (row == kFirstRows) row = std::max(row, rows - kLastRows);
        width = std::max(width, metrics.horizontalAdvance(model.index(row, column).data().toString()));
    }
    return width;
}

int Usual_Width(const GridColumn& column, const QFontMetrics& metrics) {
    if (Is_Figure(column)) return metrics.horizontalAdvance(kUsualFigure);
    if (column.number.empty() && column.type == FieldType::Currency) return metrics.horizontalAdvance(kUsualLine);
    if (column.number.empty() && column.kind == CellKind::Shown) return 0;
    const int size = column.type == FieldType::Text ? std::min(column.size, kUsualText) : kUsualText;
    return size * metrics.averageCharWidth();
}

}  // namespace

std::string Widths_Text(const ColumnWidths& widths) {
    std::string text;
    for (const auto& [field, width] : widths) {
        if (!text.empty()) text += ';';
        text += field + '=' + Value(Round_Half(width, 1)).To_Text();
    }
    return text;
}

ColumnWidths Widths_Of(std::string_view text) {
    ColumnWidths widths;
    while (!text.empty()) {
        const std::string_view part = text.substr(0, text.find(';'));
        text.remove_prefix(std::min(part.size() + 1, text.size()));
        const std::size_t sign = part.find('=');
        if (sign == std::string_view::npos || sign == 0) continue;
        const std::string_view number = part.substr(sign + 1);
        double width = 0;
        const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), width);
        if (error != std::errc() || end != number.data() + number.size()) continue;
        if (!(width >= kNarrowest && width <= kWidest)) continue;
        widths.insert_or_assign(std::string(part.substr(0, sign)), width);
    }
    return widths;
}

ColumnWidths Fitting_Widths(const GridModel& model, const GridHead& head, const QFont& font) {
    QFont bold = font;
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const double character = QFontMetricsF(font).averageCharWidth();
    const double longText = model.columnCount() <= kFewColumns ? kLongTextOfFew : kLongText;
    ColumnWidths widths;
    for (int i = 0; i < model.columnCount(); ++i) {
        const GridColumn& column = model.Column(i);
        const bool figure = Is_Figure(column);
        const int usual = Usual_Width(column, metrics);
        double wanted = std::max(Contents_Width(model, i, metrics), usual) / character + 2;
        if (!figure) wanted = std::min(wanted, longText);
        widths[column.field] = std::max(wanted, head.Width_For(i) / character);
    }
    return widths;
}

}  // namespace tallmar
