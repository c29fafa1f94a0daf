// frmEditCp2mxxxx to frmEditCp5 and the views of worksheet C: visits, charges and limits; the costs are computed.
#include <array>

#include "calc/worksheet.h"
#include "common/variant.h"
#include "screens/entry_cells.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::string_view kRatio = "0.000000";

constexpr std::array kColumns1{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "From Worksheet B, Line"},
    FormColumn{"Col_2", "2", "Total Cost", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_3", "3", "Total Visits", CellKind::Shown, 0, kCount},
    FormColumn{"Col_4", "4", "Average Cost Per Visit", CellKind::Shown, 0, kCents},
};
constexpr std::array kColumns2{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_4", "4", "Average Cost Or Limit Per Visit", CellKind::Number, 2, kCents},
    FormColumn{"Col_5", "5", "Part A Visits", CellKind::Number, 0, kCount},
    FormColumn{"Col_6", "6", "Part B Visits Subject To Deductibles And Coinsurance", CellKind::Number, 0, kCount},
    FormColumn{"Col_7", "7", "Part B Visits Not Subject To Deductibles And Coinsurance", CellKind::Number, 0, kCount},
    FormColumn{"Col_8", "8", "Part A Cost", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_9", "9", "Part B Cost Subject To Deductibles And Coinsurance", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_10", "10", "Part B Cost Not Subject To Deductibles And Coinsurance", CellKind::Number, 0, kAmount},
    FormColumn{"Col_11", "11", "Total", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumns3{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "From Worksheet B, Line"},
    FormColumn{"Col_2", "2", "Total Cost", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_3", "3", "Total Charges", CellKind::Number, 0, kAmount},
    FormColumn{"Col_4", "4", "Ratio", CellKind::Shown, 0, kRatio},
    FormColumn{"Col_5", "5", "Part A Covered Charges", CellKind::Number, 0, kAmount},
    FormColumn{"Col_6", "6", "Part B Charges Subject To Deductibles And Coinsurance", CellKind::Number, 0, kAmount},
    FormColumn{"Col_601", "6.01", "Part B Charges Not Subject To Deductibles And Coinsurance", CellKind::Number, 0,
               kAmount},
    FormColumn{"Col_7", "7", "Other Part B Charges", CellKind::Number, 0, kAmount},
    FormColumn{"Col_8", "8", "Part A Cost", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_9", "9", "Part B Cost Subject To Deductibles And Coinsurance", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_901", "9.01", "Part B Cost Not Subject To Deductibles And Coinsurance", CellKind::Shown, 0,
               kAmount},
    FormColumn{"Col_10", "10", "Other Part B Cost", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumns4{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"MSA_Code", "", "MSA/CBSA Code", CellKind::Shown, 0, "", "it comes from Worksheet S-3 Part III"},
    FormColumn{"Col_1", "1", "Medicare Program Unduplicated Census Count", CellKind::Number, 2, kCents},
    FormColumn{"Col_2", "2", "Per Beneficiary Annual Limitation", CellKind::Number, 2, kCents},
    FormColumn{"Col_3", "3", "Part A", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_4", "4", "Part B Subject To Deductibles And Coinsurance", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_5", "5", "Part B Not Subject To Deductibles And Coinsurance", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_6", "6", "Total", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumns5{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "From Part I, Line"},
    FormColumn{"Col_2", "2", "Average Cost Per Visit", CellKind::Shown, 0, kCents},
    FormColumn{"Col_3", "3", "Visits Before 1/1/98", CellKind::Number, 0, kCount},
    FormColumn{"Col_4", "4", "Cost Before 1/1/98", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_5", "5", "Visits On Or After 1/1/98", CellKind::Number, 0, kCount},
    FormColumn{"Col_501", "5.01", "Visits 1/1/98 To 12/31/98", CellKind::Number, 0, kCount},
    FormColumn{"Col_502", "5.02", "Visits On Or After 1/1/99", CellKind::Number, 0, kCount},
    FormColumn{"Col_6", "6", "Cost On Or After 1/1/98", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_7", "7", "Cost After The Reduction", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_8", "8", "Reasonable Cost Net Of The Reduction", CellKind::Shown, 0, kAmount},
};

// Columns 7 and 10 are not computed and stay as keyed; they are empty before. Lines 8 to 13 take the visits of columns
// 5 and 6 from lines 1 to 6.
constexpr std::array kEntries2{
    EntryCells{{1_cur, 6.01_cur}, "Col_5 Col_6 Col_7 Col_10"},
    EntryCells{{8_cur, 13_cur}, "Col_4 Col_7 Col_10"},
};
constexpr std::array kEntries4{EntryCells{{23.01_cur, 23.99_cur}, "Col_1 Col_2"}};
constexpr std::array kEntries5{EntryCells{{25_cur, 27_cur}, "Col_3 Col_5 Col_501 Col_502"}};

// The post lines of a split period have a total of their own.
std::vector<GridColumn> Total_Post(const Item&) {
    if (!Is_Split_Period()) return {};
    return {{.field = "Col_1101",
             .number = "11.01",
             .label = "Total Post 9/30/2000",
             .format = std::string(kAmount),
             .tag = {}}};
}

// The average costs are empty until the first calculation. The visits of a limit are those of the line of its
// discipline. From 10/1/2000 there are no limits, and the calculation clears their lines.
constexpr SourcedCells kCosts2{{1_cur, 6.01_cur}, "Col_4", why::kComputed};
constexpr std::array kSources2{
    kCosts2,
    SourcedCells{{8_cur, 13_cur}, "Col_5 Col_6", "it comes from lines 1 to 6"},
};
constexpr std::array kLimits2{
    kCosts2,
    SourcedCells{{8_cur, 13_cur}, "Col_4 Col_5 Col_6 Col_7 Col_10", why::kLimitYears},
};
std::string_view Locked_2(const CellPlace& place) {
    const std::span<const SourcedCells> sources =
        Is_Cost_Limit_Period() ? std::span<const SourcedCells>(kSources2) : kLimits2;
    const std::string_view why = Find_Source(sources, place.row.Line(), place.column.field);
    return why.empty() ? Locked_Elsewhere<kEntries2>(place) : why;
}

// The fixed sublines 15.01 and 16.01 are in use in a split period only. A cost center of the chart may have taken one
// of the numbers; that line is its own.
std::string_view Locked_3(const CellPlace& place) {
    const Currency line = place.row.Line();
    if (line != 15.01_cur && line != 16.01_cur) return {};
    const bool isUnused = !Is_Split_Period() && Nz_Currency(place.row["Col_1"]).Is_Whole();
    return isUnused ? why::kSplitYears : std::string_view();
}

// From 10/1/2000 the limits do not apply and the worksheet is not entered.
std::string_view Locked_4(const CellPlace& place) {
    return Is_Cost_Limit_Period() ? Locked_Elsewhere<kEntries4>(place) : why::kLimitYears;
}

}  // namespace

constinit const FormDescription kEditCp2{.name = "frmEditCp2mxxxx",
                                         .where = "LineNum Not In(7, 14)",
                                         .columns = {.described = kColumns2, .more = Total_Post},
                                         .cells = {.locked = Locked_2}};
constinit const FormDescription kEditCp3{.name = "frmEditCp3", .columns = {kColumns3}, .cells = {.locked = Locked_3}};
constinit const FormDescription kEditCp4{
    .name = "frmEditCp4", .where = "Int(LineNum) = 23", .columns = {kColumns4}, .cells = {.locked = Locked_4}};
constinit const FormDescription kEditCp5{.name = "frmEditCp5",
                                         .where = "LineNum < 28",
                                         .columns = {kColumns5},
                                         .cells = {.locked = Locked_Elsewhere<kEntries5>}};

constinit const FormDescription kViewCp1{.name = "frmViewCp1", .readOnly = true, .columns = {kColumns1}};
constinit const FormDescription kViewCp2{
    .name = "frmViewCp2mxxxx", .readOnly = true, .columns = {.described = kColumns2, .more = Total_Post}};
constinit const FormDescription kViewCp3{.name = "frmViewCp3", .readOnly = true, .columns = {kColumns3}};
constinit const FormDescription kViewCp4{.name = "frmViewCp4", .readOnly = true, .columns = {kColumns4}};
constinit const FormDescription kViewCp5{.name = "frmViewCp5", .readOnly = true, .columns = {kColumns5}};

}  // namespace tallmar
