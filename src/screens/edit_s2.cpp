// frmEditS2: the identification of the report, one question a row.
#include <array>

#include "common/variant.h"
#include "report/open_report.h"
#include "screens/answer_cells.h"
#include "screens/cell_check.h"
#include "screens/forms.h"
#include "screens/identity_cells.h"
#include "screens/lock_reasons.h"
#include "structure/ag_option.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Answer", CellKind::Own, 40},
    FormColumn{"Col_2", "2", "N/A", CellKind::Own, 16},
    FormColumn{"Col_3", "3", "N/A", CellKind::Own, 16},
};

constexpr std::string_view kForm = "frmEditS2";
constexpr Currency kOptionLine = 26_cur;
constexpr Currency kSumLine = 13_cur;
constexpr LineRange kHospiceNames{3.5_cur, 3.59_cur};

// Line 13 is computed and line 27 a heading. Line 29.02 has a use for all three columns: the edit checks ask for them.
constexpr std::array kAnswers{
    AnswerCell{1_cur, 1, AnswerKind::Text},
    AnswerCell{1_cur, 2, AnswerKind::Text},
    AnswerCell{1.01_cur, 1, AnswerKind::Text},
    AnswerCell{1.01_cur, 2, AnswerKind::State},
    AnswerCell{1.01_cur, 3, AnswerKind::Zip},
    AnswerCell{{2_cur, 6.99_cur}, 1, AnswerKind::Text},
    AnswerCell{{2_cur, 6.99_cur}, 2, AnswerKind::Text},
    AnswerCell{{2_cur, 6.99_cur}, 3, AnswerKind::Certification},
    AnswerCell{7_cur, 1, AnswerKind::Date},
    AnswerCell{7_cur, 2, AnswerKind::Date},
    AnswerCell{8_cur, 1, AnswerKind::ControlType},
    AnswerCell{9_cur, 1, AnswerKind::LowNo},
    AnswerCell{{10_cur, 12_cur}, 1, AnswerKind::WholeNumber},
    AnswerCell{{14_cur, 16_cur}, 1, AnswerKind::YesNo},
    AnswerCell{17_cur, 1, AnswerKind::WholeNumber},
    AnswerCell{{18_cur, 22.99_cur}, 1, AnswerKind::YesNo},
    AnswerCell{{23_cur, 25.99_cur}, 1, AnswerKind::YesNo},
    AnswerCell{{23_cur, 25.99_cur}, 2, AnswerKind::YesNo},
    AnswerCell{kOptionLine, 1, AnswerKind::SplitOption},
    AnswerCell{{27.01_cur, 27.03_cur}, 1, AnswerKind::WholeNumber},
    AnswerCell{{28_cur, 29_cur}, 1, AnswerKind::YesNo},
    AnswerCell{{29.01_cur, 29.02_cur}, 1, AnswerKind::Text},
    AnswerCell{{29.01_cur, 29.02_cur}, 2, AnswerKind::Text},
    AnswerCell{{29.01_cur, 29.02_cur}, 3, AnswerKind::Text},
    AnswerCell{29.03_cur, 1, AnswerKind::Text},
    AnswerCell{29.03_cur, 2, AnswerKind::State},
    AnswerCell{29.03_cur, 3, AnswerKind::Zip},
};

// What a fiscal year that moves takes away with its data.
constexpr std::array kYearlyWorksheets{
    SideTable{.tables = "A1", .ofLine = 7_cur}, SideTable{.tables = "A2", .ofLine = 7_cur},
    SideTable{.tables = "A3", .ofLine = 7_cur}, SideTable{.tables = "A83*", .ofLine = 7_cur},
    SideTable{.tables = "S21", .ofLine = 7_cur}};

// Heads of the description and of columns 1 to 3, by section of the form.
struct Section {
    LineRange lines;
    std::array<std::string_view, 4> heads;
};
constexpr std::array kSections{
    Section{1_cur, {"Description", "Street", "P.O. Box", "N/A"}},
    Section{1.01_cur, {"Description", "City", "State", "Zip"}},
    Section{{2_cur, 6.99_cur}, {"Component", "Component Name", "Provider No.", "Date Certified"}},
    Section{7_cur, {"Description", "From", "To", "N/A"}},
    Section{{8_cur, 22.99_cur}, {"Description", "Answer", "N/A", "N/A"}},
    Section{{23_cur, 25.99_cur}, {"Description", "Part A", "Part B", "N/A"}},
    Section{{26_cur, 29_cur}, {"Description", "Answer", "N/A", "N/A"}},
    Section{29.01_cur, {"Description", "Name", "Number", "Contractor No."}},
    Section{29.02_cur, {"Description", "Street", "P.O. Box", "N/A"}},
    Section{{29.03_cur, 29.99_cur}, {"Description", "City", "State", "Zip"}},
};

std::span<const std::string_view> Heads(Currency line) {
    const Section* section = Find_Row(kSections, line);
    return section == nullptr ? std::span<const std::string_view>() : section->heads;
}

// The home office has lines of its own only in a chain; what is there from before can be cleared.
std::string_view Closed(const CellPlace& place) {
    if (place.row.Line() <= 29_cur) return {};
    const bool isChain = Is_Yes(db.Read_Row("Select Col_1 From S2 Where LineNum = 29;")["Col_1"]);
    return isChain ? std::string_view() : "answer line 29 with Y first";
}

std::string_view Locked(const CellPlace& place) {
    const Currency line = place.row.Line();
    if (Find_Answer(kAnswers, line, place.column.field) != nullptr) return {};
    const bool isComputed = line == 13_cur && place.column.field == "Col_1";
    return isComputed ? why::kComputed : why::kNoAnswer;
}

// What follows a hospice's name on lines 3.50 to 3.59. A step that is null does not follow.
struct HospiceSteps {
    // The name was stored: the hospice's worksheets are built.
    void (*named)(Currency line) = nullptr;
    // The name is to be cleared: the worksheets go, unless the person says no. False: the name stays.
    bool (*cleared)(Currency line, const EntryTalk& talk) = nullptr;
};
// The program has no hospice worksheets.
constexpr HospiceSteps kHospices{};

bool Is_Hospice_Name(Currency line, std::string_view field) {
    return kHospiceNames.Has(line) && field == "Col_1";
}

constexpr BoxText kFormsStayOpen{"Close form frmEditS2", "The option was not changed, since forms are open."};
constexpr BoxText kHospiceStays{"Remove Hospice", "The hospice was not removed."};

CellResult Already_Answered(const BoxText& box) {
    CellResult result = Refuse(box);
    result.refusal->shown = true;
    return result;
}

CellResult Check(const CellPlace& place, std::string_view text) {
    const Currency line = place.row.Line();
    if (Is_Identity_Cell(line, place.column.field)) return Check_Identity_Cell(place, text);
    const AnswerKind kind = Find_Answer(kAnswers, line, place.column.field)->kind;
    CellResult result = Check_Answer(place.talk, kind, text, place.column.limit);
    if (result.refusal) return result;
    const bool cleared = result.value.Is_Null() && !Is_Blank(place.row.Stored(place.column.field));
    const bool clearsHospice = cleared && Is_Hospice_Name(line, place.column.field) && kHospices.cleared != nullptr;
    const bool asks = kind == AnswerKind::SplitOption || clearsHospice;
    if (asks && place.talk.Is_Quiet()) return Refuse(kEnterAlone);
    // The exchange of 5.00 and 5.01 reshapes worksheets that may be on the screen; this form waits for the answer.
    if (kind == AnswerKind::SplitOption && !place.talk.Close_Other_Forms(kForm))
        return Already_Answered(kFormsStayOpen);
    if (clearsHospice && !kHospices.cleared(line, place.talk)) return Already_Answered(kHospiceStays);
    return result;
}

// What the former answer asks before it is restored.
bool May_Undo(const RowPlace& place) {
    const RowUnderEdit& row = place.row;
    if (!row.Entered().contains("Col_1")) return true;
    if (row.Line() == kOptionLine) return place.talk.Close_Other_Forms(kForm);
    const bool clears = Is_Hospice_Name(row.Line(), "Col_1") && Is_Blank(row["Col_1"]);
    return !clears || kHospices.cleared == nullptr || kHospices.cleared(row.Line(), place.talk);
}

void Stored(const RowPlace& place) {
    const RowUnderEdit& row = place.row;
    if (!row.Entered().contains("Col_1")) return;
    if (row.Line() == kOptionLine) Follow_AG_Option();
    const bool namesHospice = Is_Hospice_Name(row.Line(), "Col_1") && !Is_Blank(row["Col_1"]);
    if (namesHospice && kHospices.named != nullptr) kHospices.named(row.Line());
}

// The chart follows the option while no other form is open.
bool Stored_At_Once(const CellPlace& place) {
    return place.row.Line() == kOptionLine;
}

const PopupList* Popup(const CellPlace& place) {
    const AnswerCell* cell = Find_Answer(kAnswers, place.row.Line(), place.column.field);
    return cell == nullptr ? nullptr : Popup_Of(cell->kind);
}

// Line 13 is the sum of the three before it.
bool Is_Amount(const CellPlace& place) {
    if (place.row.Line() == kSumLine) return Same_Text(place.column.field, "Col_1");
    const AnswerCell* cell = Find_Answer(kAnswers, place.row.Line(), place.column.field);
    return cell != nullptr && cell->kind == AnswerKind::WholeNumber;
}

}  // namespace

constinit const FormDescription kEditS2{.name = kForm,
                                        .columns = {.described = kColumns, .headsAt = Heads},
                                        .cells = {.locked = Locked,
                                                  .closed = Closed,
                                                  .check = Check,
                                                  .storedAtOnce = Stored_At_Once,
                                                  .popup = Popup,
                                                  .isAmount = Is_Amount},
                                        .rows = {.leave = Leave_Identity_Row,
                                                 .store = Store_Identity_Row,
                                                 .stored = Stored,
                                                 .sides = kYearlyWorksheets,
                                                 .mayUndo = May_Undo},
                                        .window = {.showsIdentity = true}};
constinit const FormDescription kViewS2{.name = "frmViewS2",
                                        .readOnly = true,
                                        .columns = {.described = kColumns, .headsAt = Heads},
                                        .cells = {.popup = Popup, .isAmount = Is_Amount},
                                        .window = {.showsIdentity = true}};

}  // namespace tallmar
