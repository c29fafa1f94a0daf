// The cells of the questionnaires: what kind of answer each line takes in each column, and its check.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/lines.h"
#include "screens/form_description.h"

namespace tallmar {

// Answers are text. A blank empties the cell; an answer out of a list is kept as its first letter, a date as
// mm/dd/yyyy, a number as plain digits.
enum class AnswerKind : std::uint8_t {
    Text,
    YesNo,
    LowNo,
    VoluntaryInvoluntary,
    Statement,  // audited, compiled, reviewed
    WholeNumber,
    ControlType,  // 1 to 13
    SplitOption,  // 0 to 2
    Date,
    Certification,  // a date from 7/1/1966 on
    DateAvailable,  // a date from 1/1/1966 on, also one to come
    State,
    Zip,
};

// What column Col_<column> takes in these lines.
struct AnswerCell {
    LineRange lines;
    int column;
    AnswerKind kind;
};

// The first that fits; null for a cell that the line does not have.
const AnswerCell* Find_Answer(std::span<const AnswerCell> cells, Currency line, std::string_view field);

// `length`: of a text.
CellResult Check_Answer(const EntryTalk& talk, AnswerKind kind, std::string_view text, int length = 1);
// The list that opens over a cell of this kind; null where there is none.
const PopupList* Popup_Of(AnswerKind kind);

}  // namespace tallmar
