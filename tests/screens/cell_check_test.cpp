#include "screens/cell_check.h"

#include <gtest/gtest.h>

#include "support/fake_platform.h"

namespace tallmar {

namespace {

const GridColumn kAmountColumn{
    .field = "Col_1", .number = {}, .label = {}, .format = {}, .kind = CellKind::Number, .tag = {}};
const GridColumn kNameColumn{
    .field = "CCName", .number = {}, .label = {}, .format = {}, .kind = CellKind::Text, .limit = 36, .tag = {}};

CellResult Check(const GridColumn& column, std::string_view text) {
    static const Item item("A");
    static const RowUnderEdit row;
    return Validate_Cell({item, column, row}, text);
}

std::string Rounding_Text(const std::string& typed, const std::string& places) {
    return "You're attempting to enter invalid data ['" + typed +
           "'].  The cell you're attempting to input or modify only accepts " + places +
           " digits to the right of the decimal point.  Your entry or modification is being rounded.";
}

}  // namespace

TEST(ValidateCellTest, ABlankNumberIsZero) {
    FakePlatform platform;
    EXPECT_EQ(Check(kAmountColumn, "").value, Value(0.0));
    EXPECT_EQ(Check(kAmountColumn, "   ").value, Value(0.0));
}

TEST(ValidateCellTest, HalvesAreRoundedAwayFromZeroWithAWarning) {
    FakePlatform platform;
    platform.Expect_Box("Too Specific Numeric Entry", Rounding_Text("12.5", "0"), Answer::Ok, kExclamation);
    EXPECT_EQ(Check(kAmountColumn, "12.5").value, Value(13.0));
    platform.Expect_Box("Too Specific Numeric Entry", Rounding_Text("-12.5", "0"), Answer::Ok, kExclamation);
    EXPECT_EQ(Check(kAmountColumn, "-12.5").value, Value(-13.0));
}

TEST(ValidateCellTest, AHundredThousandthIsPreciseEnough) {
    FakePlatform platform;
    EXPECT_EQ(Check(kAmountColumn, "12.00001").value, Value(12.00001));
    platform.Expect_Box("Too Specific Numeric Entry", Rounding_Text("12.0002", "0"));
    EXPECT_EQ(Check(kAmountColumn, "12.0002").value, Value(12.0));
}

TEST(ValidateCellTest, WhatIsNoNumberIsRefused) {
    FakePlatform platform;
    const CellResult result = Check(kAmountColumn, "12x");
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->title, "Invalid Non-Numeric Entry");
    EXPECT_EQ(result.refusal->text,
              "You're attempting to enter invalid data ['12x'].  The cell you're attempting to input or modify only "
              "accepts numeric data.  Your entry or modification is being discarded.  Select OK to continue.");
}

TEST(ValidateCellTest, ANameIsTrimmedAndHolds36Characters) {
    FakePlatform platform;
    EXPECT_EQ(Check(kNameColumn, "  Skilled Nursing ").value, Value("Skilled Nursing"));
    const std::string fits(36, 'n');
    EXPECT_EQ(Check(kNameColumn, fits + " ").value, Value(fits));
    const std::string tooLong(37, 'n');
    const CellResult result = Check(kNameColumn, tooLong);
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->title, "Invalid Length Entry");
    EXPECT_EQ(result.refusal->text,
              "You're attempting to enter invalid data ['" + tooLong +
                  "'].  The cell you're attempting to input or modify only accepts up to 36 characters.  Your entry "
                  "or modification is being discarded.  Select OK to continue.");
}

TEST(ValidateCellTest, LengthCountsCharactersNotBytes) {
    FakePlatform platform;
    std::string name;
    for (int i = 0; i < 36; ++i) name += "\xC3\xA9";
    EXPECT_FALSE(Check(kNameColumn, name).refusal);
    EXPECT_TRUE(Check(kNameColumn, name + "e").refusal);
}

TEST(ValidateNumberTest, TheSingleValueFormEndsWithoutSelectOk) {
    FakePlatform platform;
    const CellResult result = Validate_Number({}, "abc", 2);
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->title, "Invalid Non-Numeric Entry");
    EXPECT_EQ(result.refusal->text,
              "You're attempting to enter invalid data ['abc'].  The cell you're attempting to input or modify only "
              "accepts numeric data.  Your entry or modification is being discarded.");
}

TEST(ValidateNumberTest, PlacesAreKeptAndNamed) {
    FakePlatform platform;
    EXPECT_EQ(Validate_Number({}, "33.25", 2).value, Value(33.25));
    platform.Expect_Box("Too Specific Numeric Entry", Rounding_Text("33.255", "2"));
    EXPECT_EQ(Validate_Number({}, "33.255", 2).value, Value(33.26));
}

TEST(FillBoxTest, WhatWasTypedIsNeverReadAsAPlaceholder) {
    EXPECT_EQ(Fill_Box({"T", "<text> <places>"}, {.text = "<places>", .places = 2}).text, "<places> 2");
}

TEST(EntryTalkTest, AQuietTalkListsWarningsAndAsksNothing) {
    FakePlatform platform;  // fails on a box that is not expected
    std::vector<Refusal> warnings;
    const EntryTalk quiet(warnings);
    EXPECT_EQ(Validate_Number(quiet, "33.255", 2).value, Value(33.26));
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings.front().text, Rounding_Text("33.255", "2"));
    EXPECT_EQ(quiet.Ask({.title = "Remove Code", .text = "Do you wish to continue?"}, kYesNo), Answer::None);
    EXPECT_FALSE(quiet.Close_Other_Forms("frmEditS2"));
}

TEST(EntryTalkTest, ATalkByBoxesWarnsAndAsks) {
    FakePlatform platform;
    const EntryTalk boxes;
    platform.Expect_Box("Too Specific Numeric Entry", Rounding_Text("33.255", "2"), Answer::Ok, kExclamation);
    EXPECT_EQ(Validate_Number(boxes, "33.255", 2).value, Value(33.26));
    platform.Expect_Box("Remove Code", "Do you wish to continue?", Answer::No, kYesNo);
    EXPECT_EQ(boxes.Ask({.title = "Remove Code", .text = "Do you wish to continue?"}, kYesNo), Answer::No);
    EXPECT_TRUE(boxes.Close_Other_Forms("frmEditS2"));
    platform.closeFormsCancelled = true;
    EXPECT_FALSE(boxes.Close_Other_Forms("frmEditS2"));
}

}  // namespace tallmar
