// frmEditS2: the identification of the report, one question a row.
#include <array>

#include "common/platform.h"
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

// Line 13 is computed and line 27 a heading. Line 29.02 has a use for all three columns: the edit checks ask for them.
constexpr std::array kAnswers{
    AnswerCell{1_cur, 1_cur, 1, AnswerKind::Text},
    AnswerCell{1_cur, 1_cur, 2, AnswerKind::Text},
    AnswerCell{1.01_cur, 1.01_cur, 1, AnswerKind::Text},
    AnswerCell{1.01_cur, 1.01_cur, 2, AnswerKind::State},
    AnswerCell{1.01_cur, 1.01_cur, 3, AnswerKind::Zip},
    AnswerCell{2_cur, 6.99_cur, 1, AnswerKind::Text},
    AnswerCell{2_cur, 6.99_cur, 2, AnswerKind::Text},
    AnswerCell{2_cur, 6.99_cur, 3, AnswerKind::Certification},
    AnswerCell{7_cur, 7_cur, 1, AnswerKind::Date},
    AnswerCell{7_cur, 7_cur, 2, AnswerKind::Date},
    AnswerCell{8_cur, 8_cur, 1, AnswerKind::ControlType},
    AnswerCell{9_cur, 9_cur, 1, AnswerKind::LowNo},
    AnswerCell{10_cur, 12_cur, 1, AnswerKind::WholeNumber},
    AnswerCell{14_cur, 16_cur, 1, AnswerKind::YesNo},
    AnswerCell{17_cur, 17_cur, 1, AnswerKind::WholeNumber},
    AnswerCell{18_cur, 22.99_cur, 1, AnswerKind::YesNo},
    AnswerCell{23_cur, 25.99_cur, 1, AnswerKind::YesNo},
    AnswerCell{23_cur, 25.99_cur, 2, AnswerKind::YesNo},
    AnswerCell{kOptionLine, kOptionLine, 1, AnswerKind::SplitOption},
    AnswerCell{27.01_cur, 27.03_cur, 1, AnswerKind::WholeNumber},
    AnswerCell{28_cur, 29_cur, 1, AnswerKind::YesNo},
    AnswerCell{29.01_cur, 29.02_cur, 1, AnswerKind::Text},
    AnswerCell{29.01_cur, 29.02_cur, 2, AnswerKind::Text},
    AnswerCell{29.01_cur, 29.02_cur, 3, AnswerKind::Text},
    AnswerCell{29.03_cur, 29.03_cur, 1, AnswerKind::Text},
    AnswerCell{29.03_cur, 29.03_cur, 2, AnswerKind::State},
    AnswerCell{29.03_cur, 29.03_cur, 3, AnswerKind::Zip},
};

// What a fiscal year that moves takes away with its data.
constexpr std::array kYearlyWorksheets{
    SideTable{.tables = "A1", .ofLine = 7_cur}, SideTable{.tables = "A2", .ofLine = 7_cur},
    SideTable{.tables = "A3", .ofLine = 7_cur}, SideTable{.tables = "A83*", .ofLine = 7_cur},
    SideTable{.tables = "S21", .ofLine = 7_cur}};

// Heads of the description and of columns 1 to 3, by section of the form.
struct Section {
    Currency to;
    std::array<std::string_view, 4> heads;
};
constexpr std::array kSections{
    Section{1_cur, {"Description", "Street", "P.O. Box", "N/A"}},
    Section{1.01_cur, {"Description", "City", "State", "Zip"}},
    Section{6.99_cur, {"Component", "Component Name", "Provider No.", "Date Certified"}},
    Section{7_cur, {"Description", "From", "To", "N/A"}},
    Section{22.99_cur, {"Description", "Answer", "N/A", "N/A"}},
    Section{25.99_cur, {"Description", "Part A", "Part B", "N/A"}},
    Section{29_cur, {"Description", "Answer", "N/A", "N/A"}},
    Section{29.01_cur, {"Description", "Name", "Number", "Contractor No."}},
    Section{29.02_cur, {"Description", "Street", "P.O. Box", "N/A"}},
    Section{29.99_cur, {"Description", "City", "State", "Zip"}},
};

std::span<const std::string_view> Heads(Currency line) {
    for (const Section& section : kSections) {
        if (line <= section.to) return section.heads;
    }
    return {};
}

// The home office has lines of its own only in a chain; what stands there from before can be cleared.
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

bool Is_Hospice_Name(Currency line, std::string_view field) {
    return line >= 3.5_cur && line <= 3.59_cur && field == "Col_1";
}

constexpr BoxText kFormsStayOpen{"Close form frmEditS2", "The option was not changed, since forms are open."};
constexpr BoxText kHospiceStays{"Remove Hospice", "The hospice was not removed."};

CellResult Already_Answered(const BoxText& box) {
    CellResult result = Refuse(box);
    result.refusal->shown = true;
    return result;
}

// The exchange of 5.00 and 5.01 reshapes worksheets that may be on the screen; this form waits for the answer.
bool Forms_Stay_Open() {
    return The_Platform().Close_All_Forms(kForm);
}

CellResult Check(const CellPlace& place, std::string_view text) {
    const Currency line = place.row.Line();
    if (Is_Identity_Cell(line, place.column.field)) return Check_Identity_Cell(place, text);
    const AnswerKind kind = Find_Answer(kAnswers, line, place.column.field)->kind;
    CellResult result = Check_Answer(kind, text, place.column.limit);
    if (result.refusal) return result;
    const bool cleared = result.value.Is_Null() && !Is_Blank(place.row.Stored(place.column.field));
    const bool asks = cleared && Is_Hospice_Name(line, place.column.field) && Form_Hooks().hospiceCleared != nullptr;
    if (QuietBoxes::Is_On() && (kind == AnswerKind::SplitOption || asks)) return Refuse(kEnterAlone);
    if (kind == AnswerKind::SplitOption && Forms_Stay_Open()) return Already_Answered(kFormsStayOpen);
    if (asks && !Form_Hooks().hospiceCleared(line)) return Already_Answered(kHospiceStays);
    return result;
}

// What the former answer asks before it stands again.
bool May_Undo(const RowUnderEdit& row) {
    if (!row.Entered().contains("Col_1")) return true;
    if (row.Line() == kOptionLine) return !Forms_Stay_Open();
    const bool clears = Is_Hospice_Name(row.Line(), "Col_1") && Is_Blank(row["Col_1"]);
    return !clears || Form_Hooks().hospiceCleared == nullptr || Form_Hooks().hospiceCleared(row.Line());
}

void Stored(const Item&, const RowUnderEdit& row, std::span<const GridColumn>) {
    if (!row.Entered().contains("Col_1")) return;
    if (row.Line() == kOptionLine) Follow_AG_Option();
    if (Is_Hospice_Name(row.Line(), "Col_1") && !Is_Blank(row["Col_1"]) && Form_Hooks().hospiceNamed != nullptr) {
        Form_Hooks().hospiceNamed(row.Line());
    }
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

FormHooks& Form_Hooks() {
    static FormHooks hooks;
    return hooks;
}

constinit const FormDescription kEditS2{.name = kForm,
                                        .columns = kColumns,
                                        .locked = Locked,
                                        .closed = Closed,
                                        .check = Check,
                                        .leaveRow = Leave_Identity_Row,
                                        .storeRow = Store_Identity_Row,
                                        .rowStored = Stored,
                                        .storedAtOnce = Stored_At_Once,
                                        .sides = kYearlyWorksheets,
                                        .undoAllowed = May_Undo,
                                        .popup = Popup,
                                        .isAmount = Is_Amount,
                                        .headsAt = Heads};
constinit const FormDescription kViewS2{.name = "frmViewS2",
                                        .columns = kColumns,
                                        .readOnly = true,
                                        .popup = Popup,
                                        .isAmount = Is_Amount,
                                        .headsAt = Heads};

}  // namespace tallmar
