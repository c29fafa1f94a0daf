// Cells of worksheet D, entered as a person types them.
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

// The columns that a line takes, out of those given: "12".
std::string Open_Columns(const FormDescription& form, std::string_view item, Currency line) {
    OpenForm open(form, std::string(item));
    std::string columns;
    if (!open.Place_Cursor(line)) return "not shown";
    for (const GridColumn& column : open.Columns()) {
        if (!open.Is_Locked(column)) columns += column.field == "Description" ? "D" : column.field.substr(4);
    }
    return columns;
}

}  // namespace

TEST(EnterDp1, TakesWhatTheFormAsksFor) {
    Report r(fy2016);
    for (const Currency line : {1_cur, 3_cur, 7_cur, 8_cur, 9_cur, 10_cur}) {
        EXPECT_EQ(Open_Columns(kEditDp1, "Dp1", line), "not shown") << line.To_Text();
    }
    EXPECT_EQ(Open_Columns(kEditDp1, "Dp1", 2_cur), "3");
    EXPECT_EQ(Open_Columns(kEditDp1, "Dp1", 4.01_cur), "1") << "the drug charges come from C Part III";
    for (const Currency line : {4_cur, 5_cur, 6_cur, 11_cur}) {
        EXPECT_EQ(Open_Columns(kEditDp1, "Dp1", line), "123") << line.To_Text();
    }
    EXPECT_EQ(Answer_To("Dp1", "4", "2", "12,000"), kStored);
    EXPECT_CELL("Dp1", 4, 2, 12000_cur);
    EXPECT_EQ(Title_Of("Dp1", "1", "2", "5"), kShut);
    EXPECT_EQ(Title_Of("Dp1", "4", "2", "5x"), "Invalid Non-Numeric Entry");
}

TEST(EnterDp2, TakesWhatTheFormAsksFor) {
    Report r(fy2016);
    for (const Currency line :
         {12_cur, 14_cur, 15_cur, 16_cur, 18_cur, 21_cur, 25_cur, 27_cur, 28_cur, 28.5_cur, 29_cur, 31_cur}) {
        EXPECT_EQ(Open_Columns(kEditDp2, "Dp2", line), "not shown") << line.To_Text();
    }
    for (const Currency line : {13_cur, 17_cur, 20_cur}) EXPECT_EQ(Open_Columns(kEditDp2, "Dp2", line), "2");
    for (const Currency line : {12.01_cur, 12.14_cur, 19_cur, 22_cur, 23_cur, 24_cur, 26_cur, 30_cur}) {
        EXPECT_EQ(Open_Columns(kEditDp2, "Dp2", line), "12") << line.To_Text();
    }
    EXPECT_EQ(Open_Columns(kEditDp2, "Dp2", 25.5_cur), "D12");
}

TEST(EnterDp2, PaymentsOfBothPartsReachTheTotal) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("Dp2", "12.01", "1", "90,000"), kStored);
    EXPECT_EQ(Answer_To("Dp2", "12.01", "2", "40,000"), kStored);
    EXPECT_EQ(Answer_To("Dp2", "25.5", "Description", "Demonstration"), kStored);
    r.Calc();
    EXPECT_CELL("Dp2", 14, 1, 90000_cur);
    EXPECT_CELL("Dp2", 14, 2, 40000_cur);
    EXPECT_EQ(Title_Of("Dp2", "14", "1", "5"), kShut);
    EXPECT_EQ(Title_Of("Dp2", "25.5", "Description", std::string(37, 'x')), "Invalid Length Entry");
    EXPECT_CELL("Dp2", 25.5, "Description", "Demonstration");
}

TEST(EnterD1, TakesWhatTheFormAsksFor) {
    Report r(fy2016);
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 1_cur), "24");
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 2_cur), "24");
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 3.01_cur), "1234");
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 3.5_cur), "1234");
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 3.51_cur), "D1234");
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 3.99_cur), "not shown");
    EXPECT_EQ(Open_Columns(kEditD1, "D1", 4_cur), "not shown");
}

TEST(EnterD1, DatesAreChecked) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("D1", "3.01", "1", "02/28/2016"), kStored);
    EXPECT_CELL("D1", 3.01, 1, Date_Of(2016, 2, 28));
    EXPECT_EQ(Answer_To("D1", "3.01", "3", "02/30/2016"),
              "Invalid Date Entry: You're attempting to enter invalid data ['02/30/2016'].  The cell you're attempting "
              "to input or modify only accepts a date [mm/dd/yyyy].  Your entry or modification is being discarded.  "
              "Select OK to continue.");
    EXPECT_CELL("D1", 3.01, 3, Null);
    EXPECT_EQ(Answer_To("D1", "3.01", "3", "2/29/2016 17:30"), kStored);
    EXPECT_CELL("D1", 3.01, 3, Date_Of(2016, 2, 29));
    EXPECT_EQ(Answer_To("D1", "3.01", "1", " "), kStored);
    EXPECT_CELL("D1", 3.01, 1, Null);
}

TEST(EnterD1, LumpSumsAreMadeWhenMissingAndCount) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("D1", "1", "2", "1000"), kStored);
    EXPECT_EQ(Answer_To("D1", "3.02", "2", "300"), kStored);
    EXPECT_EQ(Answer_To("D1", "3.51", "4", "50"), kStored);
    EXPECT_CELL("D1", 3.02, 4, 0_cur);
    EXPECT_CELL("D1", 3.02, "Description", "Program to Provider lump sum adjustment");
    EXPECT_CELL("D1", 3.51, "Description", "Provider to Program lump sum adjustment");
    r.Calc("D1");
    EXPECT_CELL("D1", 4, 2, 1300_cur);
    EXPECT_CELL("D1", 4, 4, -50_cur);
    for (const char* line : {"3", "3.991", "3.015", "5", "2.5"}) {
        EXPECT_EQ(Title_Of("D1", line, "2", "1"), "Unknown Line") << line;
    }
}

TEST(EnterD1, AddAndDeleteKeepTheFormsLines) {
    Report r(fy2016);
    EXPECT_EQ(kEditD1.lines.add("D1", {}), 3.02_cur);
    EXPECT_CELL("D1", 3.02, "Description", "Program to Provider lump sum adjustment");
    EXPECT_EQ(kEditD1.lines.add("D1", 3.01_cur), 3.03_cur);
    EXPECT_EQ(kEditD1.lines.add("D1", 3.5_cur), 3.51_cur);
    EXPECT_CELL("D1", 3.51, 2, 0_cur);
    kEditD1.lines.remove("D1", 3.02_cur);
    for (const Currency line : {1_cur, 3.01_cur, 3.5_cur, 3.99_cur, 4_cur}) kEditD1.lines.remove("D1", line);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM D1;"), Value(8));
    EXPECT_EQ(kEditD1.lines.add("D1", 3.03_cur), 3.04_cur);
    EXPECT_EQ(kEditD1.lines.add("D1", 3.01_cur), 3.02_cur) << "the number is free again";
}

TEST(EnterD1, AFullGroupTakesNoFurtherLine) {
    Report r(fy2016);
    for (int line = 2; line <= 49; ++line) kEditD1.lines.add("D1", 3.01_cur);
    EXPECT_THROW(kEditD1.lines.add("D1", 3.01_cur), DbError);
    EXPECT_EQ(kEditD1.lines.add("D1", 3.98_cur), 3.51_cur) << "the other group has room";
}

}  // namespace tallmar
