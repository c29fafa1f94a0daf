// frmEditA4: reclassifications, grouped by code.
#include <array>

#include "calc/w_a4.h"
#include "common/db/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::string_view kAmount = "###,###,##0;(###,###,##0)";

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Explanation", "", "Explanation Of Reclassification", CellKind::Text, 40},
    FormColumn{"Col_1", "1", "Code", CellKind::Own},
    FormColumn{"Col_2", "2", "Up CC Name"},
    FormColumn{"Col_3", "3", "Up CC #", CellKind::Own},
    FormColumn{"Col_4", "4", "Up Amount", CellKind::Own, 0, kAmount},
    FormColumn{"Col_5", "5", "Dn CC Name"},
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
        if (place.column.field == side.amount) return Validate_Numeric(text, 0, side.invalidAmount);
    }
    return Check_Code(text);
}

std::optional<Refusal> Leave_A4(const Item&, const RowUnderEdit& row) {
    const Value& code = row["Col_1"];
    if (Is_Blank(code) || !Is_Blank(row["Explanation"])) return std::nullopt;
    const Row explained = db.Read_Row(Sql("SELECT Count(Len([Explanation])) AS Cnt From A4 Where LineNum < ",
                                          row.Line(), " And Col_1 = ", code, " And Len([Explanation])>0;"));
    if (Nz_Double(explained["Cnt"]) > 0) return std::nullopt;
    return Fill_Box(kBlankExplanation);
}

void Close_A4(const Item&) {
    Sync_A4();
    Renumber_A4();
}

bool Can_Make(Currency line) {
    if (line >= 1_cur && line <= 29_cur) return line.Is_Whole();
    return line > 29_cur && line < 30_cur && (line * 100_cur).Is_Whole();
}

Currency Add(const Item&, Currency) {
    return Add_A4_Row();
}
void Remove(const Item&, Currency line) {
    Delete_A4_Row(line);
}

}  // namespace

constinit const FormDescription kEditA4{.name = "frmEditA4",
                                        .where = "LineNum < 30",
                                        .columns = kColumns,
                                        .check = Validate_A4,
                                        .leaveRow = Leave_A4,
                                        .closing = Close_A4,
                                        .canMake = Can_Make,
                                        .newRow = {"Col_4, Col_7", "0, 0"},
                                        .add = Add,
                                        .remove = Remove};

constinit const FormDescription kViewA4{.name = "frmViewA4", .columns = kColumns, .readOnly = true};

}  // namespace tallmar
