#include "screens/answer_cells.h"

#include <algorithm>
#include <array>

#include "common/dates.h"
#include "common/format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "screens/cell_check.h"
#include "screens/formats.h"

namespace tallmar {

namespace {

constexpr std::string_view kTitle = "Entry Error";

constexpr BoxText kNumericOnly{kTitle, "This field accepts numeric data only."};
constexpr BoxText kRounded{
    kTitle,
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "zero digits to the right of the decimal point.  Your entry or modification is being rounded."};
constexpr BoxText kControlRange{kTitle, "Valid types of controls are one(1) through thirteen(13)."};
constexpr BoxText kOptionRange{kTitle, "Valid types of controls are zero(0), one(1) or two(2)."};
constexpr BoxText kTooEarly{kTitle, "Certification Dates must be on or after 7/1/1966."};
constexpr BoxText kNoDate{kTitle, "Invalid date"};
constexpr BoxText kNoValidDate{kTitle, "Enter a valid date."};
constexpr BoxText kStateLength{kTitle, "Please only use the two character state code."};
constexpr BoxText kZipForm{kTitle, "Zip code must be formated XXXXX or XXXXX-XXXXX"};
constexpr BoxText kYesOrNo{kTitle, "Please enter Y or N."};
constexpr BoxText kLowOrNo{kTitle, "Please enter L or N."};
constexpr BoxText kVoluntaryOrNot{kTitle, "Please enter V or I."};
constexpr BoxText kStatementKind{kTitle, "Please enter A, C or R."};

constexpr Date kFirstCertification = Date_Of(1966, 7, 1);
constexpr Date kLastDate = Date_Of(9999, 12, 31);
constexpr int kControlTypes = 13;
constexpr int kOptions = 2;

constexpr std::array kYesNo{
    PopupEntry{"mnuY", "Yes", "Y", "Yes"},
    PopupEntry{"mnuN", "No", "N", "No"},
};
constexpr std::array kLowNo{
    PopupEntry{"mnu9_1", "Low", "L", "Low"},
    PopupEntry{"mnu9_2", "No", "N", "No"},
};
constexpr std::array kVoluntary{
    PopupEntry{"mnuV", "Voluntary", "V", "Voluntary"},
    PopupEntry{"mnuI", "Involuntary", "I", "Involuntary"},
};
constexpr std::array kStatements{
    PopupEntry{"mnuOptionA", "Audited", "A", "Audited"},
    PopupEntry{"mnuOptionC", "Compiled", "C", "Compiled"},
    PopupEntry{"mnuOptionR", "Reviewed", "R", "Reviewed"},
};
// A number alone says nothing: the cell reads as the list does.
constexpr PopupEntry Numbered(std::string_view control, std::string_view caption, std::string_view value) {
    return {control, caption, value, caption};
}
// The first character of a caption would not distinguish 10 to 13 from 1.
constexpr std::array kControls{
    Numbered("mnu8_1", "1 Voluntary Nonprofit - Church", "1"),
    Numbered("mnu8_2", "2 Voluntary Nonprofit - Other", "2"),
    Numbered("mnu8_3", "3 Proprietary - Sole Proprietor", "3"),
    Numbered("mnu8_4", "4 Proprietary - Partnership", "4"),
    Numbered("mnu8_5", "5 Proprietary - Corporation", "5"),
    Numbered("mnu8_6", "6 Private Nonprofit", "6"),
    Numbered("mnu8_7", "7 Governmental And Private Combination", "7"),
    Numbered("mnu8_8", "8 Governmental - Federal", "8"),
    Numbered("mnu8_9", "9 Governmental - State", "9"),
    Numbered("mnu8_10", "10 Governmental - City", "10"),
    Numbered("mnu8_11", "11 Governmental - City-County", "11"),
    Numbered("mnu8_12", "12 Governmental - County", "12"),
    Numbered("mnu8_13", "13 Governmental - Health District", "13"),
};
constexpr std::array kAGOptions{
    Numbered("mnuOption0", "0 Not Componentized", "0"),
    Numbered("mnuOption1", "1 Option One", "1"),
    Numbered("mnuOption2", "2 Option Two", "2"),
};

// The kinds that have a list, and the box of those that take nothing else.
struct AnswerList {
    AnswerKind kind;
    PopupList popup;
    const BoxText* refused;  // null: the list only helps
};
constexpr std::array kLists{
    AnswerList{AnswerKind::YesNo, {"ButtonListYN", kYesNo}, &kYesOrNo},
    AnswerList{AnswerKind::LowNo, {"ButtonList9", kLowNo}, &kLowOrNo},
    AnswerList{AnswerKind::VoluntaryInvoluntary, {"ButtonList2", kVoluntary}, &kVoluntaryOrNot},
    AnswerList{AnswerKind::Statement, {"ButtonList4", kStatements}, &kStatementKind},
    AnswerList{AnswerKind::ControlType, {"ButtonList8", kControls}, nullptr},
    AnswerList{AnswerKind::SplitOption, {"ButtonList26", kAGOptions}, nullptr},
};

// The letter or the whole word.
CellResult Check_List(const AnswerList& list, std::string_view text) {
    for (const PopupEntry& entry : list.popup.entries) {
        if (Same_Text(text, entry.value) || Same_Text(text, entry.caption)) return Accept(entry.value);
    }
    return Refuse(*list.refused);
}

// A choice among numbers is the whole number; an amount is kept as typed where it is precise enough. The cell is text,
// but its amount is money: beyond that the digits would not be those that were typed.
CellResult Check_Whole(const EntryTalk& talk, std::string_view text, double low, double high, const BoxText* range) {
    const std::optional<double> number = Parse_Amount(text);
    if (!number) return Refuse(kNumericOnly);
    if (!Currency::From_Double(*number)) return Refuse(kTooLarge, {.text = text});
    const double whole = Round_Half(*number, 0);
    if (range != nullptr && (whole < low || whole > high)) return Refuse(*range);
    const CellResult result = Validate_Numeric(talk, text, 0, kNumericOnly, kRounded);
    return Accept(Number_Text(range != nullptr ? whole : result.value.To_Double()));
}

CellResult Check_Date(std::string_view text, const BoxText& noDate) {
    const std::optional<Date> date = Parse_Date(text);
    if (!date) return Refuse(noDate);
    return Accept(Format(*date, kDateFormat));
}

CellResult Check_Certification(std::string_view text) {
    const std::optional<Date> date = Parse_Date(text);
    if (date && *date < kFirstCertification) return Refuse(kTooEarly);
    return Check_Date(text, kNoDate);
}

bool All_Digits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The code must be written as in the electronic report: five digits, or five and four behind a hyphen.
bool Is_Zip(std::string_view text) {
    if (text == "00000-0000") return false;
    if (text.size() == 5) return All_Digits(text);
    return text.size() == 10 && text[5] == '-' && All_Digits(text.substr(0, 5)) && All_Digits(text.substr(6));
}

// Nine digits get their hyphen.
CellResult Check_Zip(std::string_view text) {
    std::string zip(text);
    if (zip.size() == 9 && All_Digits(zip)) zip.insert(5, "-");
    return Is_Zip(zip) ? Accept(zip) : Refuse(kZipForm);
}

const AnswerList* Find_List(AnswerKind kind) {
    const auto found = std::ranges::find(kLists, kind, &AnswerList::kind);
    return found == kLists.end() ? nullptr : &*found;
}

}  // namespace

const AnswerCell* Find_Answer(std::span<const AnswerCell> cells, Currency line, std::string_view field) {
    return Find_Row(cells, line,
                    [&](const AnswerCell& cell) { return field.size() == 5 && field.back() - '0' == cell.column; });
}

CellResult Check_Answer(const EntryTalk& talk, AnswerKind kind, std::string_view text, int length) {
    const std::string_view trimmed = Trim(text);
    if (Is_Blank_Text(trimmed)) return Accept(Null);
    switch (kind) {
        case AnswerKind::Text:
            return Validate_Text(trimmed, length);
        case AnswerKind::WholeNumber:
            return Check_Whole(talk, trimmed, 0, 0, nullptr);
        case AnswerKind::ControlType:
            return Check_Whole(talk, trimmed, 1, kControlTypes, &kControlRange);
        case AnswerKind::SplitOption:
            return Check_Whole(talk, trimmed, 0, kOptions, &kOptionRange);
        case AnswerKind::Date:
            return Check_Date(trimmed, kNoDate);
        case AnswerKind::Certification:
            return Check_Certification(trimmed);
        case AnswerKind::DateAvailable:
            if (!Is_Valid_Date(trimmed, kLastDate)) return Refuse(kNoValidDate);
            return Check_Date(trimmed, kNoValidDate);
        case AnswerKind::State:
            return Length(trimmed) == 2 ? Accept(To_Upper(trimmed)) : Refuse(kStateLength);
        case AnswerKind::Zip:
            return Check_Zip(trimmed);
        default:
            return Check_List(*Find_List(kind), trimmed);
    }
}

const PopupList* Popup_Of(AnswerKind kind) {
    const AnswerList* list = Find_List(kind);
    return list == nullptr ? nullptr : &list->popup;
}

}  // namespace tallmar
