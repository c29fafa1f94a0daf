// Cells of worksheets F and A-8-3, entered as a person types them.
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::array<const char*, 4> kFunds{"1", "2", "3", "4"};

}  // namespace

TEST(EnterF, EveryFundTakesAmountsButOnTotals) {
    Report r(fy2016);
    r.Calc();
    for (const char* line : {"1", "10", "12", "26", "28", "31", "34", "41", "43", "48"}) {
        for (const char* fund : kFunds) EXPECT_EQ(Answer_To("F", line, fund, "12"), kStored) << line << " " << fund;
    }
    for (const char* line : {"11", "27", "32", "33", "42", "49", "50", "58", "59"}) {
        for (const char* fund : kFunds) EXPECT_EQ(Title_Of("F", line, fund, "12"), kShut) << line << " " << fund;
    }
    EXPECT_CELL("F", 48, 4, 12_cur);
}

TEST(EnterF, AFundBalanceStandsInTheColumnOfItsFund) {
    Report r(fy2016);
    const std::array<const char*, 7> lines{"51", "52", "53", "54", "55", "56", "57"};
    const std::array<std::size_t, 7> funds{0, 1, 2, 2, 2, 3, 3};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t fund = 0; fund < kFunds.size(); ++fund) {
            EXPECT_EQ(!Enter("F", lines[i], kFunds[fund], "7"), fund == funds[i]) << lines[i] << " " << fund;
        }
    }
}

TEST(EnterF, OtherLinesAreSpecified) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("F", "31", "Description", "Goodwill"), kStored);
    EXPECT_CELL("F", 31, "Description", "Goodwill");
    EXPECT_EQ(Title_Of("F", "31", "Description", std::string(37, 'x')), "Invalid Length Entry");
    EXPECT_EQ(Title_Of("F", "1", "Description", "Petty cash"), kShut);
}

TEST(EnterF1, DetailIsTypedAndTotalsAreShut) {
    Report r(fy2016);
    for (const char* line : {"1", "2", "5", "6", "10", "11", "12", "16", "19", "28", "29", "31"}) {
        EXPECT_EQ(Answer_To("F1", line, "1", "45"), kStored) << line;
        EXPECT_EQ(Title_Of("F1", line, "2", "45"), kShut) << line;
    }
    for (const char* line : {"3", "4", "17", "18", "32", "33"}) {
        EXPECT_EQ(Title_Of("F1", line, "1", "45"), kShut) << line;
        EXPECT_EQ(Title_Of("F1", line, "2", "45"), kShut) << line;
    }
}

TEST(EnterF1, OnlyTheUsersLinesTakeADescription) {
    Report r(fy2016);
    for (const char* line : {"6", "10", "12", "16", "29", "31", "27.01"}) {
        EXPECT_EQ(Answer_To("F1", line, "Description", "Grant"), kStored) << line;
    }
    for (const char* line : {"1", "5", "11", "19", "28"}) {
        EXPECT_EQ(Title_Of("F1", line, "Description", "Grant"), kShut) << line;
    }
}

TEST(EnterF1, ASublineIsMadeAndCounts) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("F1", "6.01", "1", "70"), kStored);
    EXPECT_EQ(Answer_To("F1", "12.01", "1", "20"), kStored);
    r.Calc("F1");
    EXPECT_CELL("F1", 17, 2, 50_cur);
    for (const char* line : {"1.5", "4.01", "17.5", "18.01", "32.01", "6.555", "34"}) {
        EXPECT_EQ(Title_Of("F1", line, "1", "1"), "Unknown Line") << line;
    }
}

TEST(EnterF1, AddAndDeleteKeepTheFormsLines) {
    Report r(fy2016);
    EXPECT_EQ(kEditF1.lines.add("F1", 6_cur), 6.01_cur);
    EXPECT_EQ(kEditF1.lines.add("F1", 6_cur), 6.02_cur);
    EXPECT_EQ(kEditF1.lines.add("F1", 1_cur), 31.01_cur);
    EXPECT_CELL("F1", 6.01, 1, 0_cur);
    kEditF1.lines.remove("F1", 6_cur);
    kEditF1.lines.remove("F1", 33_cur);
    kEditF1.lines.remove("F1", 6.01_cur);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM F1;"), Value(35));
}

TEST(EnterF2, DetailIsOddAndTheBeginningEven) {
    Report r(fy2016);
    r.Calc();
    for (int column = 1; column <= 8; ++column) {
        const std::string field = std::to_string(column);
        const bool odd = column % 2 == 1;
        EXPECT_EQ(!Enter("F2", "1", field, "9"), !odd) << field;
        for (const char* line : {"4", "5", "6", "11", "12", "13"}) {
            EXPECT_EQ(!Enter("F2", line, field, "9"), odd) << line << " " << field;
        }
        for (const char* line : {"2", "3", "9", "10", "16", "17"}) EXPECT_EQ(Title_Of("F2", line, field, "9"), kShut);
    }
    EXPECT_EQ(Answer_To("F2", "5", "Description", "Gifts"), kStored);
    EXPECT_EQ(Title_Of("F2", "4", "Description", "Gifts"), kShut);
}

TEST(EnterF2, AddedLinesAreNumberedAndCount) {
    Report r(fy2016);
    EXPECT_EQ(kEditF2.lines.add("F2", 4_cur), 5_cur);
    EXPECT_EQ(kEditF2.lines.add("F2", 5_cur), 6_cur);
    EXPECT_EQ(kEditF2.lines.add("F2", 11_cur), 12_cur);
    EXPECT_EQ(Answer_To("F2", "7", "3", "40"), kStored);
    EXPECT_EQ(kEditF2.lines.add("F2", 4_cur), 8_cur);
    EXPECT_EQ(kEditF2.lines.add("F2", 8_cur), 8.01_cur) << "behind the whole lines";
    EXPECT_CELL("F2", 7, 1, 0_cur);
    EXPECT_CELL("F2", 7, 2, Null);
    r.Calc("F2");
    EXPECT_CELL("F2", 9, 4, 40_cur);
    kEditF2.lines.remove("F2", 7_cur);
    for (const Currency line : {1_cur, 4_cur, 9_cur, 11_cur}) kEditF2.lines.remove("F2", line);
    EXPECT_EQ(r.Read("SELECT Count(*) FROM F2;"), Value(14));
    EXPECT_EQ(Title_Of("F2", "18", "1", "1"), "Unknown Line");
}

TEST(EnterA83, PartOneTakesWhatIsNotComputed) {
    Report r(fy1999);
    for (const char* line : {"1", "3", "4", "5", "6"}) {
        EXPECT_EQ(Answer_To("A83p1P", line, "1", "52"), kStored) << line;
        for (const char* column : {"2", "3", "4"}) EXPECT_EQ(Title_Of("A83p1P", line, column, "52"), kShut) << line;
    }
    for (const char* column : kFunds) {
        EXPECT_EQ(Answer_To("A83p1P", "7", column, "12.5"), kStored);
        EXPECT_EQ(Answer_To("A83p1P", "8", column, "40.25"), kStored);
        EXPECT_EQ(Title_Of("A83p1P", "2", column, "1"), kShut);
        EXPECT_EQ(Title_Of("A83p1P", "9", column, "1"), kShut);
        for (const char* line : {"10", "11"}) {
            EXPECT_EQ(!Enter("A83p1P", line, column, "6"), std::string_view(column) != "4") << line << column;
        }
    }
    EXPECT_CELL("A83p1P", 8, 4, 40.25);
    EXPECT_CELL("A83p1O", 8, 4, 0.0);
}

TEST(EnterA83, RatesHoursAndMilesHaveTwoDecimalsAndCountsNone) {
    Report r(fy1999);
    for (const char* line : {"5", "6", "7", "8", "10", "11"}) {
        EXPECT_EQ(Answer_To("A83p1S", line, "1", "7.25"), kStored) << line;
        EXPECT_CELL("A83p1S", Currency::From_Text(line).value(), 1, 7.25);
    }
    for (const char* line : {"1", "3", "4"}) {
        r.platform.Expect_Box_Starting("Too Specific Numeric Entry",
                                       "You're attempting to enter invalid data ['7.25'].");
        EXPECT_EQ(Answer_To("A83p1S", line, "1", "7.25"), kStored);
    }
    EXPECT_CELL("A83p1S", 4, 1, 7.0);
    EXPECT_EQ(Title_Of("A83p1S", "8", "1", "eight"), "Invalid Non-Numeric Entry");
}

TEST(EnterA83, OvertimeIsTypedThoughItsCellsAreEmpty) {
    Report r(fy1999);
    for (const char* column : {"1", "2", "3"}) EXPECT_EQ(Answer_To("A83p4P", "32", column, "10.5"), kStored);
    EXPECT_EQ(Title_Of("A83p4P", "32", "4", "10"), kShut);
    EXPECT_EQ(Answer_To("A83p4P", "36", "4", "2080"), kStored);
    for (const char* column : {"1", "2", "3"}) EXPECT_EQ(Title_Of("A83p4P", "36", column, "10"), kShut);
    for (const char* line : {"33", "34", "35", "37", "41"}) EXPECT_EQ(Title_Of("A83p4P", line, "1", "10"), kShut);
    EXPECT_CELL("A83p4P", 36, 4, 2080.0);
}

TEST(EnterA83, PartFiveTakesCostsAlone) {
    Report r(fy1999);
    for (const char* line : {"45", "46", "48"}) EXPECT_EQ(Answer_To("A83p5O", line, "1", "300"), kStored) << line;
    for (const char* line : {"42", "43", "44", "47", "49"})
        EXPECT_EQ(Title_Of("A83p5O", line, "1", "3"), kShut) << line;
    EXPECT_EQ(Title_Of("A83p2P", "12", "1", "5"), "No Edit Form");
    EXPECT_EQ(Title_Of("A83p3P", "21", "1", "5"), "No Edit Form");
}

TEST(EnterA83, NothingIsEnteredFromOctober2000) {
    Report r(fy2016);
    EXPECT_TRUE(Enter("A83p1P", "1", "1", "52"));
    EXPECT_TRUE(Enter("A83p4P", "36", "4", "52"));
    EXPECT_TRUE(Enter("A83p5P", "45", "1", "52"));
}

}  // namespace tallmar
