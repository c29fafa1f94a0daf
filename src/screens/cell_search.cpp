#include "screens/cell_search.h"

#include "common/text.h"
#include "report/open_report.h"
#include "screens/amount_text.h"
#include "screens/cell_text.h"
#include "screens/form_rows.h"
#include "screens/open_form.h"

namespace tallmar {

namespace {

constexpr std::string_view kAmountCharacters = "0123456789.,-$ ";
constexpr std::string_view kLeftOut = ",$ ";

// A lone dash is text here, not 0.
std::optional<double> Searched_Amount(std::string_view typed) {
    const bool hasDigit = typed.find_first_of("0123456789") != std::string_view::npos;
    return hasDigit ? Parse_Amount(typed) : std::nullopt;
}

std::string Plain_Amount(std::string_view typed) {
    if (typed.find_first_of("0123456789") == std::string_view::npos) return {};
    if (typed.find_first_not_of(kAmountCharacters) != std::string_view::npos) return {};
    std::string plain(typed);
    std::erase_if(plain, [](char c) { return kLeftOut.find(c) != std::string_view::npos; });
    return plain;
}

}  // namespace

CellSearch::CellSearch(std::string_view typed)
    : text_(To_Upper(typed)), plain_(Plain_Amount(typed)), amount_(Searched_Amount(typed)) {}

bool CellSearch::Matches(std::string_view shown, const Value& value) const {
    if (text_.empty() || value.Is_Null()) return false;
    if (To_Upper(shown).find(text_) != std::string::npos) return true;
    if (value.Is<std::string>() || value.Is<Date>() || !value.Is_Numeric()) return false;
    if (amount_ && value.To_Double() == *amount_) return true;
    return !plain_.empty() && Edit_Text(value).starts_with(plain_);
}

std::vector<FoundCell> Find_In_Form(FormMode mode, const Item& item, const CellSearch& search) {
    std::vector<FoundCell> found;
    const FormDescription* description = Form_To_Open(mode, item);
    if (description == nullptr) return found;
    const OpenForm form(*description, item);
    const FormRows rows(*description, item);
    for (std::size_t at = 0; at < rows.Count(); ++at) {
        const RowUnderEdit row(rows.Line(at), rows.At(at));
        for (const GridColumn& column : form.Columns()) {
            if (column.hidden) continue;
            const std::string shown = Cell_Text(*description, {item, column, row});
            if (search.Matches(shown, row[column.field])) found.push_back({mode, item.Name(), at, column.field});
        }
    }
    return found;
}

std::vector<SearchedForm> Searched_Forms(FormMode mode) {
    const FormMode other = mode == FormMode::Edit ? FormMode::View : FormMode::Edit;
    std::vector<SearchedForm> forms;
    Recordset rows = db.OpenRecordset("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY ItemName;",
                                      RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string item = rows["Item"].To_Text();
        if (Form_To_Open(mode, item) != nullptr) {
            forms.push_back({mode, item});
        } else if (Form_To_Open(other, item) != nullptr) {
            forms.push_back({other, item});
        }
    }
    return forms;
}

}  // namespace tallmar
