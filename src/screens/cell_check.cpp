#include "screens/cell_check.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/sql_text.h"
#include "report/open_report.h"

namespace tallmar {

CellResult Refuse(const BoxText& box, const BoxArguments& arguments) {
    return {.refusal = Fill_Box(box, arguments), .value = Null, .filled = {}};
}

CellResult Accept(Value value) {
    return {.refusal = std::nullopt, .value = std::move(value), .filled = {}};
}

CellResult Validate_Text(std::string_view text, int length) {
    const std::string_view trimmed = Trim(text);
    if (Length(trimmed) > static_cast<std::size_t>(length)) {
        return Refuse(kInvalidLength, {.text = trimmed, .length = length});
    }
    return Accept(trimmed);
}

bool Is_Number_For_Name(const GridColumn& column, std::string_view text) {
    return column.kind == CellKind::Name && Parse_Amount(text).has_value();
}

CellResult Validate_Numeric(const EntryTalk& talk, std::string_view text, int places, const BoxText& nonNumeric,
                            const BoxText& rounding) {
    if (Is_Blank_Text(text)) return Accept(0.0);
    const std::optional<double> amount = Parse_Amount(text);
    if (!amount) return Refuse(nonNumeric, {.text = text, .places = places});
    if (Is_Precise(*amount, places)) return Accept(*amount);
    talk.Warn(Fill_Box(rounding, {.text = text, .places = places}));
    return Accept(Round_Half(*amount, places));
}

CellResult Validate_Cell(const CellPlace& place, std::string_view text) {
    if (Takes_Text(place.column.kind)) return Validate_Text(text, place.column.limit);
    return Validate_Numeric(place.talk, text, place.column.limit, kInvalidNonNumeric);
}

CellResult Validate_Number(const EntryTalk& talk, std::string_view text, int places) {
    return Validate_Numeric(talk, text, places, kInvalidNumber);
}

std::optional<CostCenterEntry> Find_Cost_Center(std::string_view text) {
    // "1e1" is a slip, not cost center 10.
    const bool isPlain = text.find_first_of("eE") == std::string_view::npos;
    const std::optional<double> typed = isPlain ? Parse_Number(text) : std::nullopt;
    const std::optional<Currency> number = typed ? Currency::From_Double(*typed) : std::nullopt;
    if (!number) return std::nullopt;
    const Row row = db.Read_Row(Sql("SELECT CCNum, CCName FROM CostCenters WHERE CCNum = ", *number));
    if (!row) return std::nullopt;
    return CostCenterEntry{*number, row["CCName"].To_Text()};
}

std::vector<CellChoice> Cost_Center_Choices() {
    std::vector<CellChoice> choices;
    for (const Row& row : db.Read_Rows(
             "SELECT CCNum, CCName FROM CostCenters WHERE CCNum Is Not Null And CCName Is Not Null ORDER BY CCNum;")) {
        const std::string number = row["CCNum"].To_Currency().To_Text();
        choices.push_back({number, number + "  " + row["CCName"].To_Text()});
    }
    return choices;
}

CellResult Validate_Cost_Center(std::string_view text, std::string_view nameField, const BoxText& invalid) {
    CellResult result = Accept(Null);
    Value name;
    if (!Is_Blank_Text(text)) {
        std::optional<CostCenterEntry> costCenter = Find_Cost_Center(text);
        if (!costCenter) return Refuse(invalid);
        result.value = costCenter->number;
        name = std::move(costCenter->name);
    }
    result.filled.emplace_back(nameField, std::move(name));
    return result;
}

}  // namespace tallmar
