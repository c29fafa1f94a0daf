// The checks that the worksheet forms share, and their boxes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screens/amount_text.h"
#include "screens/form_description.h"

namespace tallmar {

inline constexpr BoxText kInvalidLength{
    "Invalid Length Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "up to <length> characters.  Your entry or modification is being discarded.  Select OK to continue.",
    "longer than <length> characters"};
inline constexpr BoxText kInvalidNonNumeric{
    "Invalid Non-Numeric Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "numeric data.  Your entry or modification is being discarded.  Select OK to continue.",
    "not a number"};
// The same from forms whose cells are of several kinds.
inline constexpr BoxText kInvalidNumber{
    "Invalid Non-Numeric Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "numeric data.  Your entry or modification is being discarded.",
    "not a number"};
inline constexpr BoxText kTooSpecific{
    "Too Specific Numeric Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "<places> digits to the right of the decimal point.  Your entry or modification is being rounded."};
inline constexpr BoxText kInvalidCostCenter{"Error: Invalid Entry",
                                            "Invalid Cost Center, entries must be a valid Cost Center Number."};
inline constexpr BoxText kTooLarge{
    "Number Too Large",
    "You're attempting to enter invalid data ['<text>'].  The number is larger than the cell can hold.  Your entry or "
    "modification is being discarded.  Select OK to continue.",
    "larger than the cell can hold"};

// What answers for a question where nothing is asked.
inline constexpr BoxText kEnterAlone{"Entry Error",
                                     "This answer changes other worksheets.  Please enter it by itself."};

CellResult Refuse(const BoxText& box, const BoxArguments& arguments = {});
CellResult Accept(Value value);

// Text of up to `length` characters, blanks at the ends dropped.
CellResult Validate_Text(std::string_view text, int length);
// A number with up to `places` decimals. Blank is 0. More decimals: the box `rounding` warns and the number is
// rounded by Round_Half. No number: refused by `nonNumeric`.
CellResult Validate_Numeric(const EntryTalk& talk, std::string_view text, int places, const BoxText& nonNumeric,
                            const BoxText& rounding = kTooSpecific);
// A bare number where a row has its name: a slip of the cursor, which the desktop never takes for a name.
bool Is_Number_For_Name(const GridColumn& column, std::string_view text);
// The general routine of the forms: text or number as the column is.
CellResult Validate_Cell(const CellPlace& place, std::string_view text);
// The single-value form, of forms whose cells are of several kinds.
CellResult Validate_Number(const EntryTalk& talk, std::string_view text, int places);

struct CostCenterEntry {
    Currency number;
    std::string name;
};
// The cost center of the chart that a typed number names; nothing where there is none.
std::optional<CostCenterEntry> Find_Cost_Center(std::string_view text);
// All of the chart, by number.
std::vector<CellChoice> Cost_Center_Choices();
// A cost center number, which fills its name into `nameField`. A blank empties both.
CellResult Validate_Cost_Center(std::string_view text, std::string_view nameField,
                                const BoxText& invalid = kInvalidCostCenter);

}  // namespace tallmar
