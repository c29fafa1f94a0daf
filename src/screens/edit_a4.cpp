// frmEditA4: reclassifications, grouped by code.
#include <algorithm>
#include <array>

#include "calc/w_a4.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/cell_text.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Explanation", "", "Explanation Of Reclassification", CellKind::Text, 40},
    FormColumn{"Col_1", "1", "Code", CellKind::Own},
    FormColumn{"Col_2", "2", "Up CC Name", CellKind::Shown, 0, "", why::kNamedByNumber},
    FormColumn{"Col_3", "3", "Up CC #", CellKind::Own},
    FormColumn{"Col_4", "4", "Up Amount", CellKind::Own, 0, kAmount},
    FormColumn{"Col_5", "5", "Dn CC Name", CellKind::Shown, 0, "", why::kNamedByNumber},
    FormColumn{"Col_6", "6", "Dn CC #", CellKind::Own},
    FormColumn{"Col_7", "7", "Dn Amount", CellKind::Own, 0, kAmount},
};

constexpr BoxText kInvalidCode{
    "Error: Invalid CODE Entry",
    "A valid CODE [any letter from 'A' through 'Z'] must be entered.  Select OK to continue."};
constexpr BoxText kBlankExplanation{
    "Error: Blank EXPLANATION Item",
    "The EXPLANATION may not be left blank for the first reclassification in a given code."};

// The two sides of a row.
struct Side {
    std::string_view number, name, amount;
    BoxText invalidNumber, invalidAmount;
};
constexpr std::array kSides{
    Side{"Col_3",
         "Col_2",
         "Col_4",
         {"Error: Invalid 'Up CC number' Entry", "The Up CC number is not a valid cost center number"},
         {"Error: Invalid Non-numeric 'UpSalary' Entry",
          "Valid 'UpSalary' entries are numeric only.  Select OK to continue."}},
    Side{"Col_6",
         "Col_5",
         "Col_7",
         {"Error: Invalid 'Down CC number' Entry", "The Down CC number is not a valid cost center number"},
         {"Error: Invalid Non-numeric 'DnSalary' Entry",
          "Valid 'DnSalary' entries are numeric only.  Select OK to continue."}},
};

CellResult Check_Code(std::string_view text) {
    const std::string code = To_Upper(Trim(text));
    if (code.size() != 1 || code[0] < 'A' || code[0] > 'Z') return Refuse(kInvalidCode);
    return Accept(code);
}

CellResult Validate_A4(const CellPlace& place, std::string_view text) {
    for (const Side& side : kSides) {
        // A blank empties the side; closing the form then clears its amount.
        if (place.column.field == side.number) return Validate_Cost_Center(text, side.name, side.invalidNumber);
        if (place.column.field == side.amount) return Validate_Numeric(place.talk, text, 0, side.invalidAmount);
    }
    return Check_Code(text);
}

std::optional<Refusal> Leave_A4(const RowPlace& place) {
    const RowUnderEdit& row = place.row;
    const Value& code = row["Col_1"];
    if (Is_Blank(code) || !Is_Blank(row["Explanation"])) return std::nullopt;
    const Row explained = db.Read_Row(Sql("SELECT Count(Len([Explanation])) AS Cnt From A4 Where LineNum < ",
                                          row.Line(), " And Col_1 = ", code, " And Len([Explanation])>0;"));
    if (Nz_Double(explained["Cnt"]) > 0) return std::nullopt;
    return Fill_Box(kBlankExplanation);
}

bool Is_Unused(const Row& row, const Side& side) {
    return Nz_Currency(row[side.number]) == Currency();
}

// What is typed and goes as the form closes: rows without a cost center, amounts beside none. A row that was only added
// holds nothing.
std::vector<std::string> Tell_Dropped() {
    std::vector<std::string> dropped;
    for (const Row& row : db.Read_Rows("SELECT * FROM A4 WHERE LineNum < 30 ORDER BY LineNum;")) {
        const std::string place = Sql("Worksheet A-4: row ", Line_Text(row["LineNum"].To_Currency()));
        bool holdsAmount = false;
        for (const Side& side : kSides) holdsAmount = holdsAmount || Nz_Currency(row[side.amount]) != Currency();
        if (std::ranges::all_of(kSides, [&](const Side& side) { return Is_Unused(row, side); })) {
            if (holdsAmount || !Is_Blank(row["Explanation"]) || !Is_Blank(row["Col_1"])) {
                dropped.push_back(place + " has no cost center and was dropped.");
            }
            continue;
        }
        for (const Side& side : kSides) {
            const Currency amount = Nz_Currency(row[side.amount]);
            if (!Is_Unused(row, side) || amount == Currency()) continue;
            dropped.push_back(Sql(place, ": the amount ", amount.To_Text(), " has no cost center and was dropped."));
        }
    }
    return dropped;
}

std::vector<std::string> Close_A4(const Item&) {
    std::vector<std::string> dropped = Tell_Dropped();
    Sync_A4();
    Renumber_A4();
    return dropped;
}

std::optional<Currency> Next_Line(const Item&, Currency line) {
    if (line < 1_cur || line >= 30_cur) return std::nullopt;
    return Next_A4_Line();
}

std::vector<CellChoice> Choices(const CellPlace& place) {
    for (const Side& side : kSides) {
        if (place.column.field == side.number) return Cost_Center_Choices();
    }
    return {};
}

Currency Add(const Item&, Currency) {
    return Add_A4_Row();
}
void Remove(const Item&, Currency line) {
    Delete_A4_Row(line);
}

}  // namespace

constinit const FormDescription kEditA4{
    .name = "frmEditA4",
    .where = "LineNum < 30",
    .columns = {kColumns},
    .cells = {.check = Validate_A4, .choices = Choices},
    .rows = {.leave = Leave_A4, .closing = Close_A4},
    .lines = {.next = Next_Line, .newRow = {"Col_4, Col_7", "0, 0"}, .add = Add, .remove = Remove}};

constinit const FormDescription kViewA4{.name = "frmViewA4", .readOnly = true, .columns = {kColumns}};

}  // namespace tallmar
