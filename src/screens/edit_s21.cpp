// frmEditS21: the reimbursement questionnaire.
#include <array>

#include "common/variant.h"
#include "report/open_report.h"
#include "screens/answer_cells.h"
#include "screens/cell_check.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description", CellKind::Own, 255},
    FormColumn{"Col_1", "1", "Answer", CellKind::Own, 40},
    FormColumn{"Col_2", "2", "N/A", CellKind::Own, 255},
    FormColumn{"Col_3", "3", "N/A", CellKind::Own, 255},
};

constexpr std::array kAnswers{
    AnswerCell{{1_cur, 14_cur}, 1, AnswerKind::YesNo},
    AnswerCell{{1_cur, 2_cur}, 2, AnswerKind::DateAvailable},
    AnswerCell{2_cur, 3, AnswerKind::VoluntaryInvoluntary},
    AnswerCell{4_cur, 2, AnswerKind::Statement},
    AnswerCell{4_cur, 3, AnswerKind::DateAvailable},
    AnswerCell{{9_cur, 10_cur}, 2, AnswerKind::DateAvailable},
    AnswerCell{{15_cur, 17_cur}, 1, AnswerKind::Text},
    AnswerCell{15_cur, 2, AnswerKind::Text},
    AnswerCell{15_cur, 3, AnswerKind::Text},
    AnswerCell{17_cur, 2, AnswerKind::Text},
};

struct Heading {
    LineRange lines;
    std::array<std::string_view, 4> heads;
};
constexpr std::array kHeadings{
    Heading{1_cur, {"Description", "Answer", "Date", "N/A"}},
    Heading{2_cur, {"Description", "Answer", "Date", "V/I"}},
    Heading{4_cur, {"Description", "Answer", "A/C/R", "Date"}},
    Heading{{9_cur, 10_cur}, {"Description", "Answer", "Date", "N/A"}},
    Heading{15_cur, {"Description", "First Name", "Last Name", "Title"}},
    Heading{16_cur, {"Description", "Employer", "N/A", "N/A"}},
    Heading{17_cur, {"Description", "Phone Number", "E-mail Address", "N/A"}},
};
constexpr std::array<std::string_view, 4> kPlainHeads{"Description", "Answer", "N/A", "N/A"};

std::span<const std::string_view> Heads(Currency line) {
    const Heading* heading = Find_Row(kHeadings, line);
    return heading == nullptr ? kPlainHeads : heading->heads;
}

// Lines 7 and 8 follow from line 6, lines 11 to 13 from 9 or 10.
std::string_view Why_Not_Asked(Currency line) {
    const bool onSix = line == 7_cur || line == 8_cur;
    const bool onNineOrTen = line >= 11_cur && line <= 13_cur;
    if (!onSix && !onNineOrTen) return {};
    Recordset leads = db.OpenRecordset("Select * From S21 Where LineNum In(6,9,10);", RecordsetType::Snapshot);
    for (; !leads.Eof(); leads.MoveNext()) {
        if (onSix == (leads["LineNum"].To_Currency() == 6_cur) && Is_Yes(leads["Col_1"])) return {};
    }
    return onSix ? "answer line 6 with Y first" : "answer line 9 or 10 with Y first";
}
std::string_view Closed(const CellPlace& place) {
    return Why_Not_Asked(place.row.Line());
}

// The wording of the questions is the form's, but for what the user describes on line 13.
std::string_view Locked(const CellPlace& place) {
    const Currency line = place.row.Line();
    if (place.column.field == "LineLabel") return line == 13_cur ? Why_Not_Asked(line) : why::kWording;
    return Find_Answer(kAnswers, line, place.column.field) == nullptr ? why::kNoAnswer : std::string_view();
}

CellResult Check(const CellPlace& place, std::string_view text) {
    if (place.column.field == "LineLabel") return Validate_Text(text, place.column.limit);
    const AnswerKind kind = Find_Answer(kAnswers, place.row.Line(), place.column.field)->kind;
    return Check_Answer(place.talk, kind, text, place.column.limit);
}

const PopupList* Popup(const CellPlace& place) {
    const AnswerCell* cell = Find_Answer(kAnswers, place.row.Line(), place.column.field);
    return cell == nullptr ? nullptr : Popup_Of(cell->kind);
}

}  // namespace

constinit const FormDescription kEditS21{.name = "frmEditS21",
                                         .columns = {.described = kColumns, .headsAt = Heads},
                                         .cells = {.locked = Locked, .closed = Closed, .check = Check, .popup = Popup}};
constinit const FormDescription kViewS21{.name = "frmViewS21",
                                         .readOnly = true,
                                         .columns = {.described = kColumns, .headsAt = Heads},
                                         .cells = {.popup = Popup}};

}  // namespace tallmar
