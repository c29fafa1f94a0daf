// The widths of a grid's columns in average characters, so that they hold for every font and zoom.
#pragma once

#include <QFont>
#include <map>
#include <string>
#include <string_view>

#include "db/shapes.h"

namespace tallmar {

class GridHead;
class GridModel;

using ColumnWidths = std::map<std::string, double, LessText>;  // by field

// As the settings keep them: "CCName=31.5;Col_1=12".
std::string Widths_Text(const ColumnWidths& widths);
// Parts that make no sense are left out.
ColumnWidths Widths_Of(std::string_view text);
// Wide enough for heads and for what the first and the last rows hold; long texts are wrapped.
ColumnWidths Fitting_Widths(const GridModel& model, const GridHead& head, const QFont& font);

}  // namespace tallmar
