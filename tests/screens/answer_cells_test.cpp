#include "screens/answer_cells.h"

#include <gtest/gtest.h>

#include "support/fake_platform.h"

namespace tallmar {

namespace {

// What is kept, or the text of the refusal; "Null" where the cell is emptied.
std::string Checked(AnswerKind kind, std::string_view text, int length = 40) {
    const CellResult result = Check_Answer({}, kind, text, length);
    if (result.refusal) {
        EXPECT_TRUE(result.refusal->title == "Entry Error" || result.refusal->title == "Invalid Length Entry");
        return result.refusal->text;
    }
    return result.value.Is_Null() ? "Null" : result.value.To_Text();
}

class AnswerTest : public ::testing::Test {
  protected:
    FakePlatform platform;
};

}  // namespace

TEST_F(AnswerTest, ABlankEmptiesTheCell) {
    for (const AnswerKind kind : {AnswerKind::Text, AnswerKind::YesNo, AnswerKind::WholeNumber, AnswerKind::SplitOption,
                                  AnswerKind::Date, AnswerKind::State, AnswerKind::Zip}) {
        EXPECT_EQ(Checked(kind, "  "), "Null");
    }
}

TEST_F(AnswerTest, AChoiceIsKeptAsItsLetter) {
    EXPECT_EQ(Checked(AnswerKind::YesNo, "Y"), "Y");
    EXPECT_EQ(Checked(AnswerKind::YesNo, "yes"), "Y");
    EXPECT_EQ(Checked(AnswerKind::YesNo, " n "), "N");
    EXPECT_EQ(Checked(AnswerKind::YesNo, "No"), "N");
    EXPECT_EQ(Checked(AnswerKind::LowNo, "low"), "L");
    EXPECT_EQ(Checked(AnswerKind::VoluntaryInvoluntary, "Involuntary"), "I");
    EXPECT_EQ(Checked(AnswerKind::Statement, "c"), "C");
}

TEST_F(AnswerTest, AnythingElseIsRefusedByKind) {
    EXPECT_EQ(Checked(AnswerKind::YesNo, "maybe"), "Please enter Y or N.");
    EXPECT_EQ(Checked(AnswerKind::YesNo, "1"), "Please enter Y or N.");
    EXPECT_EQ(Checked(AnswerKind::LowNo, "Y"), "Please enter L or N.");
    EXPECT_EQ(Checked(AnswerKind::VoluntaryInvoluntary, "N"), "Please enter V or I.");
    EXPECT_EQ(Checked(AnswerKind::Statement, "B"), "Please enter A, C or R.");
}

TEST_F(AnswerTest, TypesOfControlRunFromOneToThirteen) {
    EXPECT_EQ(Checked(AnswerKind::ControlType, "1"), "1");
    EXPECT_EQ(Checked(AnswerKind::ControlType, "13"), "13");
    EXPECT_EQ(Checked(AnswerKind::ControlType, "0"), "Valid types of controls are one(1) through thirteen(13).");
    EXPECT_EQ(Checked(AnswerKind::ControlType, "14"), "Valid types of controls are one(1) through thirteen(13).");
    EXPECT_EQ(Checked(AnswerKind::ControlType, "four"), "This field accepts numeric data only.");
}

TEST_F(AnswerTest, OptionsRunFromZeroToTwo) {
    EXPECT_EQ(Checked(AnswerKind::SplitOption, "0"), "0");
    EXPECT_EQ(Checked(AnswerKind::SplitOption, "2"), "2");
    EXPECT_EQ(Checked(AnswerKind::SplitOption, "3"), "Valid types of controls are zero(0), one(1) or two(2).");
    EXPECT_EQ(Checked(AnswerKind::SplitOption, "-1"), "Valid types of controls are zero(0), one(1) or two(2).");
}

TEST_F(AnswerTest, ANumberIsKeptAsPlainDigits) {
    EXPECT_EQ(Checked(AnswerKind::WholeNumber, "$61,350"), "61350");
    EXPECT_EQ(Checked(AnswerKind::WholeNumber, "(12)"), "-12");
    EXPECT_EQ(Checked(AnswerKind::WholeNumber, "x"), "This field accepts numeric data only.");
    platform.Expect_Box("Entry Error",
                        "You're attempting to enter invalid data ['12.5'].  The cell you're attempting to input or "
                        "modify only accepts zero digits to the right of the decimal point.  Your entry or "
                        "modification is being rounded.",
                        Answer::Ok, kExclamation);
    EXPECT_EQ(Checked(AnswerKind::WholeNumber, "12.5"), "13");
}

TEST_F(AnswerTest, ADateIsKeptWithFourDigitYear) {
    EXPECT_EQ(Checked(AnswerKind::Date, "10/1/15"), "10/01/2015");
    EXPECT_EQ(Checked(AnswerKind::Date, "2016-09-30"), "09/30/2016");
    EXPECT_EQ(Checked(AnswerKind::Date, "2/30/2015"), "Invalid date");
    EXPECT_EQ(Checked(AnswerKind::Date, "soon"), "Invalid date");
}

TEST_F(AnswerTest, CertificationBeginsOnTheFirstOfJuly1966) {
    EXPECT_EQ(Checked(AnswerKind::Certification, "7/1/1966"), "07/01/1966");
    EXPECT_EQ(Checked(AnswerKind::Certification, "6/30/1966"), "Certification Dates must be on or after 7/1/1966.");
    EXPECT_EQ(Checked(AnswerKind::Certification, "12/31/1965"), "Certification Dates must be on or after 7/1/1966.");
    EXPECT_EQ(Checked(AnswerKind::Certification, "unknown"), "Invalid date");
}

TEST_F(AnswerTest, QuestionnaireDatesMayLieInTheFuture) {
    EXPECT_EQ(Checked(AnswerKind::DateAvailable, "11/15/2016"), "11/15/2016");
    EXPECT_EQ(Checked(AnswerKind::DateAvailable, "11/16/2016"), "11/16/2016") << "tomorrow";
    EXPECT_EQ(Checked(AnswerKind::DateAvailable, "12/31/2039"), "12/31/2039");
    EXPECT_EQ(Checked(AnswerKind::DateAvailable, "1/1/1966"), "01/01/1966");
    EXPECT_EQ(Checked(AnswerKind::DateAvailable, "12/31/1965"), "Enter a valid date.");
    EXPECT_EQ(Checked(AnswerKind::DateAvailable, "no date"), "Enter a valid date.");
}

TEST_F(AnswerTest, EveryEntryOfEveryListIsTaken) {
    struct List {
        AnswerKind kind;
        std::string values;
    };
    for (const auto& [kind, values] :
         {List{AnswerKind::YesNo, "Y N "}, List{AnswerKind::LowNo, "L N "},
          List{AnswerKind::VoluntaryInvoluntary, "V I "}, List{AnswerKind::Statement, "A C R "},
          List{AnswerKind::ControlType, "1 2 3 4 5 6 7 8 9 10 11 12 13 "}, List{AnswerKind::SplitOption, "0 1 2 "}}) {
        std::string taken;
        for (const PopupEntry& entry : Popup_Of(kind)->entries) taken += Checked(kind, entry.value) + " ";
        EXPECT_EQ(taken, values);
    }
}

TEST_F(AnswerTest, StateAndZip) {
    EXPECT_EQ(Checked(AnswerKind::State, "IL"), "IL");
    EXPECT_EQ(Checked(AnswerKind::State, " il "), "IL");
    EXPECT_EQ(Checked(AnswerKind::State, "Ill"), "Please only use the two character state code.");
    EXPECT_EQ(Checked(AnswerKind::State, "I"), "Please only use the two character state code.");
    EXPECT_EQ(Checked(AnswerKind::Zip, "61999"), "61999");
    EXPECT_EQ(Checked(AnswerKind::Zip, "61999-1234"), "61999-1234");
    EXPECT_EQ(Checked(AnswerKind::Zip, "619991234"), "61999-1234");
    for (const char* zip :
         {"6199", "6199912345", "000000000", "61999-12345", "6199A", "61999-", "00000-0000", "6-1999"}) {
        EXPECT_EQ(Checked(AnswerKind::Zip, zip), "Zip code must be formated XXXXX or XXXXX-XXXXX") << zip;
    }
}

TEST_F(AnswerTest, AListWritesTheAnswerBehindItsCaption) {
    const PopupList* control = Popup_Of(AnswerKind::ControlType);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->name, "ButtonList8");
    ASSERT_EQ(control->entries.size(), 13U);
    for (std::size_t i = 0; i < 13; ++i) {
        EXPECT_EQ(control->entries[i].control, "mnu8_" + std::to_string(i + 1));
        EXPECT_EQ(Checked(AnswerKind::ControlType, control->entries[i].value), std::to_string(i + 1));
    }
    EXPECT_EQ(Popup_Of(AnswerKind::Zip), nullptr);
}

}  // namespace tallmar
