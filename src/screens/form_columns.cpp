#include "screens/form_columns.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "report/open_report.h"

namespace tallmar {

namespace {

// A column of the description before the table says its type.
GridColumn Described(const FormColumn& column) {
    return {.field = std::string(column.field),
            .number = std::string(column.number),
            .label = std::string(column.label),
            .format = std::string(column.format),
            .kind = column.kind,
            .limit = column.limit,
            .why = std::string(column.why),
            .tag = {}};
}

// Questionnaires have labels by line, one for each column shown behind the line number.
std::string Label_At(const FormDescription& form, std::span<const GridColumn> columns, const GridColumn& column,
                     Currency line) {
    if (form.columns.headsAt == nullptr || column.hidden) return column.label;
    const std::span<const std::string_view> labels = form.columns.headsAt(line);
    std::size_t at = 0;
    for (const GridColumn& shown : columns) {
        if (&shown == &column) break;
        if (!shown.hidden) ++at;
    }
    return at > 0 && at <= labels.size() ? std::string(labels[at - 1]) : column.label;
}

}  // namespace

std::vector<GridColumn> Read_Columns(const FormDescription& form, const Item& item) {
    const ColumnRules& rules = form.columns;
    std::vector<GridColumn> described;
    std::ranges::transform(rules.described, std::back_inserter(described), Described);
    if (rules.more != nullptr) std::ranges::move(rules.more(item), std::back_inserter(described));

    const TableDef table = db.TableDefs().Item(Form_Table(form, item));
    std::vector<GridColumn> columns;
    for (const FieldDef& field : table.Shape().fields) {
        GridColumn column{.field = field.name, .number = {}, .label = {}, .format = {}, .hidden = true, .tag = {}};
        const auto found =
            std::ranges::find_if(described, [&](const GridColumn& c) { return Same_Text(c.field, field.name); });
        if (found != described.end()) {
            column = std::move(*found);
            const std::string_view why = rules.hidden == nullptr ? std::string_view() : rules.hidden(field.name);
            column.hidden = !why.empty();
            if (column.hidden) column.why = why;
        }
        column.type = field.type;
        column.size = field.size;
        columns.push_back(std::move(column));
    }
    return columns;
}

std::string Head_Text(const FormDescription& form, std::span<const GridColumn> columns, const GridColumn& column,
                      Currency line) {
    const std::string label = Label_At(form, columns, column, line);
    constexpr std::string_view kNumbered = "Col_";
    if (column.number.empty() && label.empty() && Begins_With(column.field, kNumbered)) {
        return column.field.substr(kNumbered.size());
    }
    if (column.number.empty()) return label.empty() ? column.field : label;
    return label.empty() ? column.number : column.number + ' ' + label;
}

}  // namespace tallmar
