// frmEditS3p1 to frmEditS3p4: visits, staff, MSA and CBSA codes, payment statistics; and the view of S Part II.
#include <array>

#include "calc/sync_cp2.h"
#include "calc/worksheet.h"
#include "common/db/sql_text.h"
#include "report/code_lists.h"
#include "screens/cell_check.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::string_view kCount = "###,###,##0;(###,###,##0)";
constexpr std::string_view kHours = "###,##0.00";
constexpr int kNameLength = 36;

constexpr std::array kVisits{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Text, kNameLength},
    FormColumn{"Col_1", "1", "Title XVIII Visits", CellKind::Own, 0, kCount},
    FormColumn{"Col_2", "2", "Title XVIII Patients", CellKind::Own, 0, kCount},
    FormColumn{"Col_3", "3", "Other Visits", CellKind::Own, 0, kCount},
    FormColumn{"Col_4", "4", "Other Patients", CellKind::Own, 0, kCount},
    FormColumn{"Col_5", "5", "Total Visits", CellKind::Own, 0, kCount},
    FormColumn{"Col_6", "6", "Total Patients", CellKind::Own, 0, kCount},
};
constexpr std::array kStaff{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Text, kNameLength},
    FormColumn{"Col_1", "1", "Staff", CellKind::Number, 2, kHours},
    FormColumn{"Col_2", "2", "Contract", CellKind::Number, 2, kHours},
    FormColumn{"Col_3", "3", "Total", CellKind::Shown, 0, kHours},
};
constexpr std::array kCodes{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "MSA Code", CellKind::Own, 4},
    FormColumn{"Col_2", "2", "CBSA Code", CellKind::Own, 5},
};
constexpr std::array kPayment{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "Full Episodes Without Outliers", CellKind::Number, 0, kCount},
    FormColumn{"Col_2", "2", "Full Episodes With Outliers", CellKind::Number, 0, kCount},
    FormColumn{"Col_3", "3", "LUPA Episodes", CellKind::Number, 0, kCount},
    FormColumn{"Col_4", "4", "PEP Only Episodes", CellKind::Number, 0, kCount},
    FormColumn{"Col_5", "5", "SCIC Within A PEP", CellKind::Number, 0, kCount},
    FormColumn{"Col_6", "6", "SCIC Only Episodes", CellKind::Number, 0, kCount},
    FormColumn{"Col_7", "7", "Total", CellKind::Shown, 0, kCount},
};
constexpr std::array kSettlement{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "Part A", CellKind::Shown, 0, kCount},
    FormColumn{"Col_2", "2", "Part B", CellKind::Shown, 0, kCount},
};

// The county is the description of line 0.
constexpr TextAbove kCounty{"tbCounty", "Label1", "Co&unty:", 0_cur, "Description"};

constexpr Currency kFirstCode = 29_cur;

// Line 0 holds the county alone; line 8 is the total.
bool Locked_Visits(const CellPlace& place) {
    if (place.column.field == "Description") return place.row.Line() != 0_cur;
    return place.row.Line() == 8_cur;
}

// The census counts may have parts.
CellResult Check_Visits(const CellPlace& place, std::string_view text) {
    const int places = place.row.Line().Int() == 10_cur ? 2 : 0;
    return Validate_Numeric(text, places, kInvalidNonNumeric);
}

// Lines 26 and 27 are the agency's own staff.
bool Locked_Staff(const CellPlace& place) {
    const Currency line = place.row.Line();
    return place.column.field == "Description" && line != 26_cur && line != 27_cur;
}

// Codes are digits, kept as typed: what is short is padded where the code is used.
CellResult Check_Code(const CellPlace& place, std::string_view text) {
    const std::string_view code = Trim(text);
    if (code.empty()) return Accept(Null);
    if (code.find_first_not_of("0123456789") != std::string_view::npos) {
        return Refuse(kInvalidNonNumeric, {.text = text});
    }
    return Validate_Text(code, place.column.limit);
}

bool Can_Make_Code(Currency line) {
    return line.Int() == kFirstCode && (line * 100_cur).Is_Whole();
}

constexpr std::array kFollowers{SideTable{"Cp2*"}, SideTable{"Cp4"}};

// Each code has a worksheet of C Part II and a line of Part IV.
void Follow_Codes() {
    Load_MSA();
    Sync_Cp2();
}

// The codes are line 29 and its sublines.
Currency Add_Code(const Item&, Currency) {
    const Currency last = Read_Currency("SELECT Max(LineNum) AS HighLN FROM S3p3 WHERE LineNum >= 29;");
    const Currency line = last < kFirstCode ? kFirstCode : last + 0.01_cur;
    db.Execute(Sql("INSERT INTO S3p3 (LineNum) VALUES (", line, ");"));
    return line;
}
void Remove_Code(const Item&, Currency line) {
    if (line < kFirstCode) return;
    db.Execute(Sql("DELETE FROM S3p3 WHERE LineNum = ", line, ";"));
    Follow_Codes();
}

}  // namespace

constinit const FormDescription kEditS3p1{.name = "frmEditS3p1",
                                          .columns = kVisits,
                                          .nullIsShaded = true,
                                          .locked = Locked_Visits,
                                          .check = Check_Visits,
                                          .above = &kCounty};
constinit const FormDescription kEditS3p2{
    .name = "frmEditS3p2", .columns = kStaff, .nullIsShaded = true, .locked = Locked_Staff};
constinit const FormDescription kEditS3p3{.name = "frmEditS3p3",
                                          .where = "LineNum >= 29",
                                          .columns = kCodes,
                                          .check = Check_Code,
                                          .follow = Follow_Codes,
                                          .sides = kFollowers,
                                          .canMake = Can_Make_Code,
                                          .add = Add_Code,
                                          .remove = Remove_Code};
constinit const FormDescription kEditS3p4{
    .name = "frmEditS3p4", .where = "LineNum Not In(42, 44)", .columns = kPayment, .nullIsShaded = true};

constinit const FormDescription kViewS3p1{
    .name = "frmViewS3p1", .columns = kVisits, .readOnly = true, .above = &kCounty};
constinit const FormDescription kViewS3p2{.name = "frmViewS3p2", .columns = kStaff, .readOnly = true};
constinit const FormDescription kViewS3p3{.name = "frmViewS3p3", .columns = kCodes, .readOnly = true};
constinit const FormDescription kViewS3p4{.name = "frmViewS3p4", .columns = kPayment, .readOnly = true};
constinit const FormDescription kViewSp2{.name = "frmViewSp2", .columns = kSettlement, .readOnly = true};

}  // namespace tallmar
