// Cells of worksheets A to A-7 and S-3, entered as a person types them.
#include "screens/entry_test.h"

#include "report/open_report.h"
#include "report/registry.h"
#include "screens/forms.h"

namespace tallmar {

TEST(EnterA, AnAmountGoesIntoTheCellAndNowhereElse) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A", "6", "1", "$1,200"), kStored);
    EXPECT_CELL("A", 6, 1, 1200_cur);
    EXPECT_CELL("A", 6, 6, 0_cur);
    EXPECT_EQ(Answer_To("A", "6", "col_1", ""), kStored);
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EnterA, TheCapitalLinesTakeOnlyTransportationAndOther) {
    Report r(fy2016);
    for (const char* line : {"1", "2"}) {
        for (const char* column : {"1", "2", "4"}) EXPECT_EQ(Title_Of("A", line, column, "5"), kShut);
        for (const char* column : {"3", "5"}) EXPECT_EQ(Answer_To("A", line, column, "5"), kStored);
    }
    EXPECT_CELL("A", 1, 1, Null);
}

TEST(EnterA, ComputedColumnsAndTheTotalAreShut) {
    Report r(fy2016);
    for (const char* column : {"6", "7", "8", "9", "10", "LineNum", "CCNum", "CCGroup"}) {
        EXPECT_EQ(Title_Of("A", "6", column, "5"), kShut) << column;
    }
    EXPECT_EQ(Title_Of("A", "29", "1", "5"), kShut);
    EXPECT_EQ(Title_Of("A", "6.5", "1", "5"), "Unknown Line");
    EXPECT_EQ(Title_Of("A", "six", "1", "5"), "Invalid Line");
    EXPECT_EQ(Title_Of("A", "6", "11", "5"), "Unknown Column");
    EXPECT_EQ(Title_Of("ZZ", "6", "11", "5"), "Unknown Worksheet");
    EXPECT_EQ(Title_Of("B", "6", "Total", "5"), "No Edit Form");
    EXPECT_EQ(Title_Of("A1", "6", "1", "5"), "Unknown Worksheet") << "this year has none";
}

TEST(EnterA, ColumnsFromTheAnalysesAreHiddenBeforeOctober2000) {
    Report r(fy1999);
    for (const char* column : {"1", "2", "4"}) EXPECT_EQ(Title_Of("A", "6", column, "5"), kShut);
    EXPECT_EQ(Answer_To("A", "6", "3", "5"), kStored);
    EXPECT_EQ(Answer_To("A1", "6", "1", "70"), kStored);
    EXPECT_CELL("A1", 6, 1, 70_cur);
}

TEST(EnterA, ShadedCellsOfTheAnalysesAreShut) {
    Report r(fy1999);
    EXPECT_EQ(Title_Of("A1", "6", "3", "5"), kShut) << "consultants";
    EXPECT_EQ(Title_Of("A1", "13", "1", "5"), kShut);
    EXPECT_EQ(Answer_To("A1", "12", "1", "5"), kStored);
    EXPECT_EQ(Title_Of("A2", "12", "1", "5"), kShut);
    EXPECT_EQ(Answer_To("A3", "6", "3", "5"), kStored);
    EXPECT_EQ(Title_Of("A3", "1", "8", "5"), kShut);
    EXPECT_EQ(Title_Of("A3", "6", "9", "5"), kShut);
}

TEST(EnterA, ANameMayHoldQuotes) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A", "6", "CCName", " Nursing \"A\", Kim's "), kStored);
    EXPECT_CELL("A", 6, "CCName", "Nursing \"A\", Kim's");
    EXPECT_EQ(Title_Of("A", "6", "CCName", std::string(37, 'x')), "Invalid Length Entry");
    EXPECT_CELL("A", 6, "CCName", "Nursing \"A\", Kim's");
}

TEST(EnterA, ANumberBeyondTheCellIsRefused) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("A", "6", "1", "1000000000000000000000000000000"), "Number Too Large");
    EXPECT_CELL("A", 6, 1, 0_cur);
}

TEST(EnterA, ALineIsNotRoundedToItsNeighbour) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("A", "9.00001", "1", "5"), "Invalid Line");
    EXPECT_CELL("A", 9, 1, 0_cur);
    EXPECT_EQ(Answer_To("A", "13.200000", "1", "5"), kStored);
    EXPECT_CELL("A", 13.2, 1, 5_cur);
}

TEST(EnterA, ARoundedEntryIsKept) {
    Report r(fy2016);
    r.platform.Expect_Box_Starting("Too Specific Numeric Entry", "You're attempting to enter invalid data ['-12.5'].");
    EXPECT_EQ(Answer_To("A", "6", "1", "-12.5"), kStored);
    EXPECT_CELL("A", 6, 1, -13_cur);
}

namespace {

// Cells of one A-4 row; a null value is left out.
std::vector<std::optional<Refusal>> Enter_A4(const std::string& line, const char* explanation, const char* code,
                                             const char* up, const char* amount, const char* down) {
    std::vector<CellText> cells;
    const auto put = [&](const char* column, const char* value) {
        if (value != nullptr) cells.push_back({"A4", line, column, value});
    };
    put("Explanation", explanation);
    put("Col_1", code);
    put("Col_3", up);
    put("Col_4", up == nullptr ? nullptr : amount);
    put("Col_6", down);
    put("Col_7", down == nullptr ? nullptr : amount);
    return Enter_Cells(cells);
}

}  // namespace

TEST(EnterA4, ARowIsMadeAndItsNamesAreFilled) {
    Report r(fy2016);
    for (const auto& refusal : Enter_A4("1", "Insurance", "a", "1", "18400", "5")) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_CELL("A4", 1, 1, "A");
    EXPECT_CELL("A4", 1, 2, "Cap Rel Costs-Bldg & Fixt");
    EXPECT_CELL("A4", 1, 3, 1_cur);
    EXPECT_CELL("A4", 1, 4, 18400_cur);
    EXPECT_CELL("A4", 1, 5, "Administrative & General");
    EXPECT_CELL("A4", 1, 7, 18400_cur);
}

TEST(EnterA4, EachCellHasItsBox) {
    Report r(fy2016);
    ASSERT_FALSE(Enter_A4("1", "Insurance", "A", "1", "18400", "5").front());
    const std::string code =
        "Error: Invalid CODE Entry: A valid CODE [any letter from 'A' through 'Z'] must be entered."
        "  Select OK to continue.";
    EXPECT_EQ(Answer_To("A4", "1", "1", "1"), code);
    EXPECT_EQ(Answer_To("A4", "1", "1", "AB"), code);
    EXPECT_EQ(Answer_To("A4", "1", "1", ""), code);
    EXPECT_EQ(Answer_To("A4", "1", "3", "99"),
              "Error: Invalid 'Up CC number' Entry: The Up CC number is not a valid cost center number");
    EXPECT_EQ(Answer_To("A4", "1", "6", "x"),
              "Error: Invalid 'Down CC number' Entry: The Down CC number is not a valid cost center number");
    EXPECT_EQ(Answer_To("A4", "1", "4", "x"),
              "Error: Invalid Non-numeric 'UpSalary' Entry: Valid 'UpSalary' entries are numeric only.  Select OK to "
              "continue.");
    EXPECT_EQ(Answer_To("A4", "1", "7", "x"),
              "Error: Invalid Non-numeric 'DnSalary' Entry: Valid 'DnSalary' entries are numeric only.  Select OK to "
              "continue.");
    EXPECT_EQ(Title_Of("A4", "1", "2", "Some Name"), kShut);
    EXPECT_EQ(Title_Of("A4", "30", "4", "1"), kShut);
    EXPECT_EQ(Title_Of("A4", "0", "4", "1"), "Unknown Line");
    EXPECT_CELL("A4", 1, 4, 18400_cur);
}

TEST(EnterA4, TheFirstRowOfACodeNeedsAnExplanation) {
    Report r(fy2016);
    for (const auto& outcome : Enter_A4("1", nullptr, "A", "1", "100", "5")) {
        EXPECT_EQ(Title_Of(outcome), "Error: Blank EXPLANATION Item");
        EXPECT_EQ(Text_Of(outcome),
                  "The EXPLANATION may not be left blank for the first reclassification in a given code.");
    }
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4 WHERE LineNum < 30;"), Value(0));
    ASSERT_FALSE(Enter_A4("1", "Insurance", "A", "1", "100", "5").front());
    for (const auto& refusal : Enter_A4("2", nullptr, "A", "2", "50", "5")) EXPECT_EQ(Text_Of(refusal), "");
    EXPECT_EQ(Title_Of(Enter_A4("3", nullptr, "B", "2", "50", "5").front()), "Error: Blank EXPLANATION Item");
}

TEST(EnterA4, ClosingGroupsRowsByCode) {
    Report r(fy2016);
    Enter_A4("1", "Second", "B", "2", "20", "5");
    Enter_A4("2", "First", "A", "1", "10", "5");
    EXPECT_CELL("A4", 1, 1, "A");
    EXPECT_CELL("A4", 1, "Explanation", "First");
    EXPECT_CELL("A4", 2, 1, "B");
}

TEST(EnterA4, ClosingDropsRowsWithoutACostCenterAndEmptySides) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A4", "1", "Explanation", "Forgotten"), kStored);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4 WHERE LineNum < 30;"), Value(0));
    Enter_A4("1", "One side", "A", "6", "75", nullptr);
    EXPECT_CELL("A4", 1, 4, 75_cur);
    EXPECT_CELL("A4", 1, 7, Null);
    EXPECT_EQ(Answer_To("A4", "1", "3", ""), kStored) << "a blank empties the side";
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A4 WHERE LineNum < 30;"), Value(0));
}

TEST(EnterA5, AUserLineIsMadeAndTheCostCenterNamed) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A5", "13", "Description", "Public relations"), kStored);
    EXPECT_EQ(Answer_To("A5", "13", "1", "b"), kStored);
    EXPECT_EQ(Answer_To("A5", "13", "2", "(5,300)"), kStored);
    EXPECT_EQ(Answer_To("A5", "13", "4", "5"), kStored);
    EXPECT_CELL("A5", 13, 1, "B");
    EXPECT_CELL("A5", 13, 2, -5300_cur);
    EXPECT_CELL("A5", 13, 3, "Administrative & General");
    EXPECT_EQ(Title_Of("A5", "12.5", "2", "1"), "Unknown Line");
}

TEST(EnterA5, EachCellHasItsBox) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A5", "1", "1", "C"),
              "Error: Invalid Non-Alphanumeric Entry: You're attempting to enter invalid data ['C'].  The cell you're "
              "attempting to input or modify only accepts an 'A' or a 'B'.  Your entry or modification is being "
              "discarded.  Select OK to continue.");
    EXPECT_EQ(Answer_To("A5", "1", "4", "77"),
              "Error: Invalid Entry: Invalid Cost Center, entries must be a valid Cost Center Number.");
    EXPECT_EQ(Title_Of("A5", "1", "2", "x"), "Invalid Non-Numeric Entry");
    EXPECT_CELL("A5", 1, 1, "B");
}

TEST(EnterA5, TheFormsOwnLinesKeepTheirWordingAndWhatIsComputed) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("A5", "1", "Description", "Mine"), kShut);
    for (const char* line : {"10", "10.1", "10.2", "21"}) EXPECT_EQ(Title_Of("A5", line, "2", "5"), kShut) << line;
    EXPECT_EQ(Title_Of("A5", "5", "2", "5"), kShut) << "line 5 comes from A-6";
}

TEST(EnterA6, TheAnswerIsYesOrNo) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A6pA", "", "Answer", "yes"), kStored);
    EXPECT_EQ(r.Read("SELECT Answer FROM A6pA;"), Value("Y"));
    EXPECT_EQ(Answer_To("A6pA", "", "Answer", "perhaps"), "Entry Error: Please enter Y or N.");
    EXPECT_EQ(Title_Of("A6pA", "", "Question", "Why?"), kShut);
}

TEST(EnterA6, PartBHasThreeLinesOfTheUsers) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A6pB", "1", "1", "1"), kStored);
    EXPECT_CELL("A6pB", 1, 2, "Cap Rel Costs-Bldg & Fixt");
    EXPECT_EQ(Title_Of("A6pB", "2", "1", "77"), "Error: Invalid Entry");
    EXPECT_EQ(r.Read("SELECT Count(*) FROM A6pB WHERE LineNum = 2;"), Value(0)) << "a refused cell makes no row";
    EXPECT_EQ(Answer_To("A6pB", "2", "4", "96,000"), kStored);
    EXPECT_EQ(Answer_To("A6pB", "3", "4", "0"), kStored);
    EXPECT_CELL("A6pB", 2, 4, 96000_cur);
    EXPECT_CELL("A6pB", 2, 5, Null);
    EXPECT_EQ(Title_Of("A6pB", "4", "4", "1"), kShut);
    EXPECT_EQ(Title_Of("A6pB", "1", "6", "1"), kShut);
}

TEST(EnterA6, FurtherLinesOfPartBStandBehindTheThird) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("A6pB", "1.5", "4", "1"), "Unknown Line");
    for (const char* line : {"1", "2", "3", "3.01", "3.02"}) EXPECT_EQ(Answer_To("A6pB", line, "4", "1"), kStored);
    EXPECT_EQ(Title_Of("A6pB", "3.005", "4", "1"), "Unknown Line");
    EXPECT_EQ(kEditA6pB.lines.add("A6pB", {}), 3.03_cur);
}

TEST(EnterA6, TheNumberOfPartBNamesItsCostCenter) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A6pB", "1", "2", "Office of the parent"), kStored) << "a name without a number";
    EXPECT_EQ(Answer_To("A6pB", "1", "1", ""), kStored);
    EXPECT_CELL("A6pB", 1, 2, "Office of the parent");
    EXPECT_EQ(Answer_To("A6pB", "1", "1", "6"), kStored);
    EXPECT_CELL("A6pB", 1, 2, "Skilled Nursing Care");
    EXPECT_EQ(Title_Of("A6pB", "1", "2", "Other name"), kShut);
    EXPECT_EQ(Title_Of("A6pB", "1", "2", ""), kShut);
    EXPECT_EQ(Answer_To("A6pB", "1", "1", ""), kStored);
    EXPECT_CELL("A6pB", 1, 1, Null);
    EXPECT_CELL("A6pB", 1, 2, Null);
}

TEST(EnterA6, PartCChecksSymbolsAndPercentages) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A6pC", "1", "1", "g"), kStored);
    EXPECT_CELL("A6pC", 1, 1, "G");
    EXPECT_CELL("A6pC", 1, 4, 0.0);
    EXPECT_EQ(Answer_To("A6pC", "1", "4", "33.25"), kStored);
    EXPECT_CELL("A6pC", 1, 4, 33.25);
    EXPECT_EQ(Answer_To("A6pC", "1", "1", "H"),
              "Error: Invalid Symbol Entry: Valid Symbol entries are 'A' through 'G' only.  Select OK to continue.");
    EXPECT_EQ(Answer_To("A6pC", "1", "5", "-1"),
              "Error: Invalid Negative 'Percentage_1' Entry: Valid Percentage entries may not be negative numbers.  "
              "Select OK to continue.");
    EXPECT_EQ(Title_Of("A6pC", "1", "5", "half"), "Invalid Non-Numeric Entry");
}

TEST(EnterA7, TotalsAreShut) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("A7", "6", "5", "100"), kStored);
    EXPECT_EQ(Title_Of("A7", "6", "4", "100"), kShut);
    EXPECT_EQ(Title_Of("A7", "6", "6", "100"), kShut);
    EXPECT_EQ(Title_Of("A7", "7", "1", "100"), kShut);
}

TEST(EnterS3, PartOneShutsShadedCellsAndTheTotal) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p1", "0", "Description", "Cook"), kStored);
    EXPECT_CELL("S3p1", 0, "Description", "Cook");
    EXPECT_EQ(Title_Of("S3p1", "0", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p1", "10.01", "2", "1"), kShut) << "the calculation would clear it";
    EXPECT_EQ(Title_Of("S3p1", "10.02", "4", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p1", "1", "Description", "x"), kShut);
    EXPECT_EQ(Title_Of("S3p1", "7", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p1", "8", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p1", "9", "2", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p1", "10", "1", "1"), kShut);
    for (const char* column : {"1", "2", "3", "4", "5", "6"}) EXPECT_EQ(Answer_To("S3p1", "1", column, "7"), kStored);
    EXPECT_EQ(Answer_To("S3p1", "10", "2", "1.25"), kStored);
    EXPECT_CELL("S3p1", 10, 2, 1.25_cur);
}

TEST(EnterS3, PartTwoTakesHundredthsOfHours) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p2", "13", "2", "0.45"), kStored);
    EXPECT_CELL("S3p2", 13, 2, 0.45_cur);
    EXPECT_EQ(Title_Of("S3p2", "13", "3", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p2", "0", "2", "1"), kShut);
    EXPECT_EQ(Answer_To("S3p2", "26", "Description", "Chaplain"), kStored);
    EXPECT_EQ(Title_Of("S3p2", "25", "Description", "Chaplain"), kShut);
}

TEST(EnterS3, CodesAreDigitsKeptAsTyped) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p3", "29", "2", "16580"), kStored);
    EXPECT_EQ(Answer_To("S3p3", "29.01", "1", "40"), kStored);
    EXPECT_CELL("S3p3", 29.01, 1, "40");
    EXPECT_EQ(Title_Of("S3p3", "29", "2", "1658A"), "Invalid Non-Numeric Entry");
    EXPECT_EQ(Title_Of("S3p3", "29", "2", "165801"), "Invalid Length Entry");
    EXPECT_EQ(Title_Of("S3p3", "29", "1", "16580"), "Invalid Length Entry");
    EXPECT_EQ(Title_Of("S3p3", "28", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p3", "27", "1", "1"), "Unknown Line");
    EXPECT_EQ(Title_Of("S3p3", "30", "1", "1400"), "Unknown Line") << "C Part II follows line 29 alone";
}

TEST(EnterS3, EachCodeHasItsWorksheetOfCPartTwo) {
    Report r(fy1999);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "40"), kStored);
    EXPECT_EQ(Answer_To("S3p3", "29.01", "2", "16580"), kStored);
    EXPECT_TRUE(TableExists("Cp2m0040", true));
    EXPECT_TRUE(TableExists("Cp2c16580", true));
    EXPECT_CELL("Cp4", 23.01, "MSA_Code", "0040");
    EXPECT_CELL("Cp4", 23.02, "MSA_Code", "16580");

    EXPECT_EQ(Title_Of("S3p3", "29", "1", "4-1"), "Invalid Non-Numeric Entry");
    EXPECT_TRUE(TableExists("Cp2m0040", true));
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "41"), kStored);
    EXPECT_FALSE(TableExists("Cp2m0040", true));
    EXPECT_TRUE(TableExists("Cp2m0041", true));
    EXPECT_EQ(Answer_To("S3p3", "29", "1", ""), kStored);
    EXPECT_FALSE(TableExists("Cp2m0041", true));
    kEditS3p3.lines.remove("S3p3", 29.01_cur);
    EXPECT_FALSE(TableExists("Cp2c16580", true));
    EXPECT_EQ(r.Read("SELECT Count(*) FROM Cp4 WHERE Int(LineNum) = 23;"), Value(0));
}

TEST(EnterS3, PartFourShutsTotalsAndTheShadedOutliers) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p4", "30", "1", "8,120"), kStored);
    EXPECT_CELL("S3p4", 30, 1, 8120.0);
    EXPECT_EQ(Title_Of("S3p4", "42", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p4", "44", "1", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p4", "30", "7", "1"), kShut);
    EXPECT_EQ(Title_Of("S3p4", "46", "1", "1"), kShut);
    EXPECT_EQ(Answer_To("S3p4", "46", "2", "14"), kStored);
}

}  // namespace tallmar
