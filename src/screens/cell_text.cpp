#include "screens/cell_text.h"

#include <algorithm>

#include "common/dates.h"
#include "common/format.h"
#include "common/numbers.h"
#include "common/variant.h"
#include "screens/amount_text.h"
#include "screens/formats.h"

namespace tallmar {

namespace {

constexpr std::string_view kHundredths = "0.00";
constexpr int kCentPlaces = 2;

// From this size on a text is a name or a description, not a code.
constexpr int kNameSize = 20;

bool Is_Text(FieldType type) {
    return type == FieldType::Text || type == FieldType::Memo || type == FieldType::Char;
}
bool Is_Name(const GridColumn& column) {
    return column.type == FieldType::Memo || (column.type == FieldType::Text && column.size >= kNameSize);
}
bool Is_Number(FieldType type) {
    return !Is_Text(type) && type != FieldType::Date && type != FieldType::Boolean;
}

bool Is_Midnight(Date date) {
    const CivilDate civil = To_Civil(date);
    return civil.hour == 0 && civil.minute == 0 && civil.second == 0;
}
std::string Date_Text(Date date) {
    return Is_Midnight(date) ? Format(date, kDateFormat) : General_Date(date);
}

}  // namespace

std::string Cell_Text(const FormDescription& form, const CellPlace& place) {
    const Value& value = place.row[place.column.field];
    if (value.Is_Null()) return {};
    if (const PopupList* list = form.cells.popup == nullptr ? nullptr : form.cells.popup(place)) {
        const std::string text = value.To_Text();
        const auto entry =
            std::ranges::find_if(list->entries, [&](const PopupEntry& e) { return Same_Text(e.value, text); });
        if (entry != list->entries.end()) return std::string(entry->shown);
    }
    if (form.cells.isAmount != nullptr && form.cells.isAmount(place)) {
        const std::optional<double> amount = Parse_Amount(value.To_Text());
        if (amount && Is_Precise(*amount, 0)) return Format(*amount, kAmount);
    }
    if (!place.column.format.empty()) return Format(value, place.column.format);
    if (value.Is<Currency>()) return Line_Text(std::get<Currency>(value.Get()));
    return Edit_Text(value);
}

std::string Line_Text(Currency line) {
    if (line.Is_Whole() || !Is_Precise(line.To_Double(), kCentPlaces)) return line.To_Text();
    return Format(line, kHundredths);
}

std::string Edit_Text(const Value& value) {
    if (value.Is<Date>()) return Date_Text(std::get<Date>(value.Get()));
    return value.To_Text();
}

bool Is_Shaded(const FormDescription& form, const GridColumn& column, const Value& value) {
    if (!value.Is_Null() || !Is_Figure(column)) return false;
    return form.readOnly || form.cells.nullIsShaded || column.kind == CellKind::Shown;
}

bool Reads_As_Figure(const FormDescription& form, const CellPlace& place) {
    return Is_Figure(place.column) || (form.cells.isAmount != nullptr && form.cells.isAmount(place));
}

bool Is_Figure(const GridColumn& column) {
    return !column.number.empty() && Is_Number(column.type);
}

std::size_t Frozen_Columns(std::span<const GridColumn> shown) {
    std::size_t count = 0;
    while (count + 1 < shown.size() && shown[count].number.empty()) {
        if (Is_Name(shown[count++])) break;
    }
    return count;
}

}  // namespace tallmar
