// frmEditA6pA, frmEditA6pB, frmEditA6pC: costs from related organizations.
#include <array>

#include "calc/w_a6.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/answer_cells.h"
#include "screens/cell_check.h"
#include "screens/entry_cells.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::string_view kPercent = "##0.00";

constexpr std::array kColumnsA{
    FormColumn{"Question", "", "Question"},
    FormColumn{"Answer", "", "Answer", CellKind::Own},
};
constexpr std::array kColumnsB{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Col_1", "1", "Line No.", CellKind::Own},
    FormColumn{"Col_2", "2", "Cost Center", CellKind::Text, 128},
    FormColumn{"Col_3", "3", "Expense Items", CellKind::Text, 128},
    FormColumn{"Col_4", "4", "Amount Allowable In Cost", CellKind::Number, 0, kAmount},
    FormColumn{"Col_5", "5", "Amount Included In Worksheet A", CellKind::Number, 0, kAmount},
    FormColumn{"Col_6", "6", "Net Adjustments", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumnsC{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Text, 36},
    FormColumn{"Col_1", "1", "Symbol", CellKind::Own},
    FormColumn{"Col_2", "2", "Name", CellKind::Text, 128},
    FormColumn{"Col_3", "3", "Address", CellKind::Text, 128},
    FormColumn{"Col_4", "4", "Percent Owned By Provider", CellKind::Own, 2, kPercent},
    FormColumn{"Col_5", "5", "Percent Ownership Of Provider", CellKind::Own, 2, kPercent},
    FormColumn{"Col_6", "6", "Type Of Business", CellKind::Text, 128},
};

constexpr BoxText kNegativePercentage{"Error: Invalid Negative 'Percentage_1' Entry",
                                      "Valid Percentage entries may not be negative numbers.  Select OK to continue."};
constexpr BoxText kInvalidSymbol{"Error: Invalid Symbol Entry",
                                 "Valid Symbol entries are 'A' through 'G' only.  Select OK to continue."};

CellResult Check_A(const CellPlace& place, std::string_view text) {
    return Check_Answer(place.talk, AnswerKind::YesNo, text);
}
const PopupList* Popup_A(const CellPlace& place) {
    return place.column.field == "Answer" ? Popup_Of(AnswerKind::YesNo) : nullptr;
}

// A name that was typed without a number is not cleared with one.
CellResult Check_B(const CellPlace& place, std::string_view text) {
    if (Is_Blank_Text(text) && Is_Blank(place.row["Col_1"])) return Accept(Null);
    return Validate_Cost_Center(text, "Col_2");
}
std::string_view Locked_B(const CellPlace& place) {
    const bool isNamed = place.column.field == "Col_2" && !Is_Blank(place.row["Col_1"]);
    return isNamed ? why::kNamedByNumber : std::string_view();
}

std::vector<CellChoice> Choices_B(const CellPlace& place) {
    return place.column.field == "Col_1" ? Cost_Center_Choices() : std::vector<CellChoice>();
}

// Lines 1 to 3 as the form has them, what goes beyond in hundredths behind the last.
Currency Next_Line_B() {
    const Currency last = Read_Currency("SELECT Max(LineNum) AS HighLN FROM A6pB WHERE LineNum < 4;");
    return last < 3_cur ? last.Int() + 1_cur : last + 0.01_cur;
}
std::optional<Currency> Next_B(const Item&, Currency line) {
    if (line < 1_cur || line >= 4_cur) return std::nullopt;
    return Next_Line_B();
}
Currency Add_B(const Item&, Currency) {
    const Currency line = Next_Line_B();
    db.Execute(Sql("INSERT INTO A6pB (LineNum) VALUES (", line, ");"));
    return line;
}
void Remove_B(const Item&, Currency line) {
    if (line < 4_cur) db.Execute(Sql("DELETE FROM A6pB WHERE LineNum = ", line, ";"));
}

CellResult Check_C(const CellPlace& place, std::string_view text) {
    if (place.column.field != "Col_1") {
        if (Parse_Amount(text).value_or(0) < 0) return Refuse(kNegativePercentage);
        return Validate_Number(place.talk, text, place.column.limit);
    }
    const std::string symbol = To_Upper(Trim(text));
    if (symbol.size() != 1 || symbol[0] < 'A' || symbol[0] > 'G') return Refuse(kInvalidSymbol);
    return Accept(symbol);
}

// Above 999 the form moves its rows.
constexpr std::array kLinesC{UserLines{{1_cur, 999_cur}, 1_cur}};
Currency Add_C(const Item&, Currency current) {
    return Add_A6pC_Row(current);
}
void Remove_C(const Item&, Currency line) {
    Delete_A6pC_Row(line);
}

}  // namespace

constinit const FormDescription kEditA6pA{
    .name = "frmEditA6pA", .order = "", .columns = {kColumnsA}, .cells = {.check = Check_A, .popup = Popup_A}};
constinit const FormDescription kEditA6pB{.name = "frmEditA6pB",
                                          .where = "LineNum < 4",
                                          .columns = {kColumnsB},
                                          .cells = {.locked = Locked_B, .check = Check_B, .choices = Choices_B},
                                          .lines = {.next = Next_B, .add = Add_B, .remove = Remove_B}};
constinit const FormDescription kEditA6pC{
    .name = "frmEditA6pC",
    .columns = {kColumnsC},
    .cells = {.check = Check_C},
    .lines = {.next = Next_In_Group<kLinesC>, .newRow = {"Col_4, Col_5", "0, 0"}, .add = Add_C, .remove = Remove_C}};

constinit const FormDescription kViewA6pA{.name = "frmViewA6pA", .order = "", .readOnly = true, .columns = {kColumnsA}};
constinit const FormDescription kViewA6pB{.name = "frmViewA6pB", .readOnly = true, .columns = {kColumnsB}};
constinit const FormDescription kViewA6pC{.name = "frmViewA6pC", .readOnly = true, .columns = {kColumnsC}};

}  // namespace tallmar
