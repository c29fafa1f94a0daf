#include "screens/cell_place.h"

#include <span>

namespace tallmar {

namespace {

// Questionnaires have labels by line, one for each column shown behind the line number.
std::string Label_At(const OpenForm& form, const GridColumn& column, Currency line) {
    const FormDescription& description = form.Description();
    if (description.headsAt == nullptr || column.hidden) return column.label;
    const std::span<const std::string_view> labels = description.headsAt(line);
    std::size_t at = 0;
    for (const GridColumn& shown : form.Columns()) {
        if (&shown == &column) break;
        if (!shown.hidden) ++at;
    }
    return at > 0 && at <= labels.size() ? std::string(labels[at - 1]) : column.label;
}

}  // namespace

std::string Head_Text(const OpenForm& form, const GridColumn& column, Currency line) {
    const std::string label = Label_At(form, column, line);
    constexpr std::string_view kNumbered = "Col_";
    if (column.number.empty() && label.empty() && Begins_With(column.field, kNumbered)) {
        return column.field.substr(kNumbered.size());
    }
    if (column.number.empty()) return label.empty() ? column.field : label;
    return label.empty() ? column.number : column.number + ' ' + label;
}

std::string Line_Place(const OpenForm& form, Currency line) {
    const std::string worksheet = "Worksheet " + form.Worksheet().Name();
    return form.Description().order.empty() ? worksheet : worksheet + ", line " + Line_Text(line);
}

std::string Cell_Place(const OpenForm& form, const GridColumn& column, Currency line) {
    return Line_Place(form, line) + ", column " + Head_Text(form, column, line);
}

}  // namespace tallmar
