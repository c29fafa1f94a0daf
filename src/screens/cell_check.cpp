#include "screens/cell_check.h"

#include <algorithm>
#include <cctype>

#include "common/db/sql_text.h"
#include "common/numbers.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

constexpr std::string_view kSpace = " \t\r\n";

std::string_view Strip(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

// "1,234,567" has its separators in groups of three; "1,23" is no amount but a slip, or another country's decimals.
bool Groups_Are_Sound(std::string_view whole) {
    const std::size_t first = whole.find(',');
    if (first == std::string_view::npos) return true;
    if (first == 0 || first > 3) return false;
    for (std::size_t at = first; at < whole.size(); at += 4) {
        if (whole[at] != ',' || at + 4 > whole.size()) return false;
        if (whole.substr(at + 1, 3).find(',') != std::string_view::npos) return false;
    }
    return true;
}

// Takes `sign` off the front of `text`, blanks behind it too.
bool Take(std::string_view& text, char sign) {
    if (text.empty() || text.front() != sign) return false;
    text = Strip(text.substr(1));
    return true;
}

}  // namespace

Refusal Fill_Box(const BoxText& box, const BoxArguments& arguments) {
    std::string text = Replace(box.text, "<places>", std::to_string(arguments.places));
    text = Replace(text, "<length>", std::to_string(arguments.length));
    return {.title = std::string(box.title), .text = Replace(text, "<text>", arguments.text)};
}

namespace {
QuietBoxes* quietBoxes = nullptr;
}

QuietBoxes::QuietBoxes() : before_(std::exchange(quietBoxes, this)) {}
QuietBoxes::~QuietBoxes() {
    quietBoxes = before_;
}
bool QuietBoxes::Is_On() {
    return quietBoxes != nullptr;
}

void Warn(const Refusal& box) {
    if (quietBoxes != nullptr) {
        quietBoxes->warnings_.push_back(box);
    } else {
        The_Platform().Message_Box(box.text, kExclamation, box.title);
    }
}

Answer Ask(const Refusal& box, int buttons) {
    if (quietBoxes != nullptr) return Answer::None;
    return The_Platform().Message_Box(box.text, buttons, box.title);
}

CellResult Refuse(const BoxText& box, const BoxArguments& arguments) {
    return {.refusal = Fill_Box(box, arguments), .value = Null, .filled = {}};
}

CellResult Accept(Value value) {
    return {.refusal = std::nullopt, .value = std::move(value), .filled = {}};
}

bool Is_Blank_Text(std::string_view text) {
    return Strip(text).empty();
}

std::optional<double> Parse_Amount(std::string_view text) {
    text = Strip(text);
    int negatives = 0;
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')') {
        text = Strip(text.substr(1, text.size() - 2));
        ++negatives;
    }
    const bool dollarFirst = Take(text, '$');
    if (Take(text, '-')) {
        ++negatives;
    } else {
        Take(text, '+');
    }
    if (!dollarFirst) Take(text, '$');
    if (!text.empty() && text.back() == '-') {
        text = Strip(text.substr(0, text.size() - 1));
        ++negatives;
    }
    if (negatives > 1 || text.empty()) return std::nullopt;
    if (text.front() != '.' && std::isdigit(static_cast<unsigned char>(text.front())) == 0) return std::nullopt;

    const std::string_view whole = text.substr(0, text.find_first_not_of("0123456789,"));
    if (!Groups_Are_Sound(whole)) return std::nullopt;
    std::string digits(whole);
    std::erase(digits, ',');
    digits += text.substr(whole.size());
    const std::optional<double> amount = Parse_Number(digits);
    if (!amount || negatives == 0 || *amount == 0) return amount;
    return -*amount;
}

CellResult Validate_Text(std::string_view text, int length) {
    const std::string_view trimmed = Trim(text);
    if (Length(trimmed) > static_cast<std::size_t>(length)) {
        return Refuse(kInvalidLength, {.text = trimmed, .length = length});
    }
    return Accept(trimmed);
}

CellResult Validate_Numeric(std::string_view text, int places, const BoxText& nonNumeric, const BoxText& rounding) {
    if (Is_Blank_Text(text)) return Accept(0.0);
    const std::optional<double> amount = Parse_Amount(text);
    if (!amount) return Refuse(nonNumeric, {.text = text, .places = places});
    if (Is_Precise(*amount, places)) return Accept(*amount);
    Warn(Fill_Box(rounding, {.text = text, .places = places}));
    return Accept(Round_Half(*amount, places));
}

CellResult Validate_Cell(const GridColumn& column, std::string_view text) {
    if (column.kind == CellKind::Text) return Validate_Text(text, column.limit);
    return Validate_Numeric(text, column.limit, kInvalidNonNumeric);
}

CellResult Validate_Number(std::string_view text, int places) {
    return Validate_Numeric(text, places, kInvalidNumber);
}

std::optional<CostCenterEntry> Find_Cost_Center(std::string_view text) {
    const std::optional<double> typed = Parse_Number(text);
    const std::optional<Currency> number = typed ? Currency::From_Double(*typed) : std::nullopt;
    if (!number) return std::nullopt;
    const Row row = db.Read_Row(Sql("SELECT CCNum, CCName FROM CostCenters WHERE CCNum = ", *number));
    if (!row) return std::nullopt;
    return CostCenterEntry{*number, row["CCName"].To_Text()};
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
