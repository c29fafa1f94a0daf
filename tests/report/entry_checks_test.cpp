#include "report/entry_checks.h"

#include <gtest/gtest.h>

#include "common/dates.h"
#include "support/fake_platform.h"

namespace tallmar {

namespace {

constexpr const char* kSixDigits =
    "You have entered an invalid Provider Number!\rProvider number must be 6 numeric digits.";

class EntryChecksTest : public ::testing::Test {
  protected:
    EntryChecksTest() {
        entries.providerNumber = "147100";
        entries.fyStart = "10/1/15";
        entries.facilityName = "Harbor Home Health";
    }
    EntryField Check(const char* format = kNewReportDates) { return Check_Entries(entries, format, year); }

    FakePlatform platform;
    NewReportEntries entries;
    FiscalYear year;
};

}  // namespace

TEST_F(EntryChecksTest, ProviderNumberIsRewrittenWithItsHyphen) {
    for (const char* typed : {"147100", "14-7100", "1-4-7-1-0-0"}) {
        entries.providerNumber = typed;
        EXPECT_EQ(Check(), EntryField::None);
        EXPECT_EQ(entries.providerNumber, "14-7100");
    }
}

TEST_F(EntryChecksTest, HomeOfficeNumberFailsAsNoNumber) {
    entries.providerNumber = "HO1234";
    platform.Expect_Box("Tallmar 1728", kSixDigits);
    EXPECT_EQ(Check(), EntryField::Provider);
    EXPECT_EQ(entries.providerNumber, "HO1234");
    EXPECT_EQ(platform.beeps, 1);
}

TEST_F(EntryChecksTest, FiveDigitsAreNoProviderNumber) {
    entries.providerNumber = "14-710";
    platform.Expect_Box("Tallmar 1728", kSixDigits);
    EXPECT_EQ(Check(), EntryField::Provider);
}

TEST_F(EntryChecksTest, SignOrBlankIsNoDigit) {
    for (const char* typed : {"+14710", " 14710", "14.710", "1e0010"}) {
        entries.providerNumber = typed;
        platform.Expect_Box("Tallmar 1728", kSixDigits);
        EXPECT_EQ(Check(), EntryField::Provider) << typed;
    }
}

TEST_F(EntryChecksTest, StartMustBeADate) {
    entries.fyStart = "13/1/15";
    platform.Expect_Box("Error: Invalid Fiscal Year Start Date",
                        "Fiscal Year Start date is not a valid date.  Please (re-)enter one.");
    EXPECT_EQ(Check(), EntryField::Start);
}

TEST_F(EntryChecksTest, EndMustBeADateOrEmpty) {
    entries.fyEnd = "someday";
    platform.Expect_Box("Error: Invalid Fiscal Year End Date",
                        "Fiscal Year End date is not a valid date.  Please (re-)enter one.");
    EXPECT_EQ(Check(), EntryField::End);
}

TEST_F(EntryChecksTest, EmptyEndIsAYearLessADay) {
    EXPECT_EQ(Check(), EntryField::None);
    EXPECT_EQ(entries.fyStart, "10/1/15");
    EXPECT_EQ(entries.fyEnd, "9/30/16");
    EXPECT_EQ(year.end, Date_Of(2016, 9, 30));
}

TEST_F(EntryChecksTest, DatesAreRewritten) {
    entries.fyStart = "2015-10-01";
    entries.fyEnd = "Sep 30, 2016";
    EXPECT_EQ(Check(), EntryField::None);
    EXPECT_EQ(entries.fyStart, "10/1/15");
    EXPECT_EQ(entries.fyEnd, "9/30/16");
}

TEST_F(EntryChecksTest, YearThatIsShownWithTwoDigitsKeepsItsCentury) {
    entries.fyStart = "10/1/2029";
    EXPECT_EQ(Check(), EntryField::None);
    EXPECT_EQ(year.start, Date_Of(2029, 10, 1));
    EXPECT_EQ(year.end, Date_Of(2030, 9, 30));
}

TEST_F(EntryChecksTest, EndOnTheStartIsOutOfSequence) {
    entries.fyEnd = "10/1/15";
    platform.Expect_Box("Error: Invalid Dates", "Invalid sequence of dates -- FY End preceeds FY Start.", Answer::Ok,
                        kExclamation);
    EXPECT_EQ(Check(), EntryField::End);
}

TEST_F(EntryChecksTest, AYearOfTwoDaysIsTheShortest) {
    entries.fyEnd = "10/2/15";
    EXPECT_EQ(Check(), EntryField::None);
    EXPECT_EQ(year.end, Date_Of(2015, 10, 2));
    entries.fyEnd = "9/30/15";
    platform.Expect_Box_Starting("Error: Invalid Dates", "Invalid sequence of dates");
    EXPECT_EQ(Check(), EntryField::End);
}

TEST_F(EntryChecksTest, FullLeapYearPasses) {
    entries.fyStart = "1/1/2016";
    entries.fyEnd = "12/31/2016";
    EXPECT_EQ(Check(), EntryField::None);
}

TEST_F(EntryChecksTest, ADayMoreThanALeapYearIsAsked) {
    for (const auto& [answer, result] :
         {std::pair{Answer::Yes, EntryField::None}, std::pair{Answer::No, EntryField::End}}) {
        entries.fyStart = "1/1/2016";
        entries.fyEnd = "1/1/2017";
        platform.Expect_Box("Warning: Dates Span More Than One Fiscal Year",
                            "The F/Y Start and F/Y End dates entered span more than one fiscal year.  Click on the "
                            "'Yes' button to verify that this is what you intended.  Or, click on the 'No' button to "
                            "return to the form to alter one or both of the dates.",
                            answer);
        EXPECT_EQ(Check(), result);
    }
}

TEST_F(EntryChecksTest, NameHasEightToThirtySixCharacters) {
    entries.facilityName = "Harbors";
    platform.Expect_Box("Error: Invalid Facility Name",
                        "Facility Name must be at least 8 characters.  Please (re-)enter.");
    EXPECT_EQ(Check(), EntryField::Name);
    entries.facilityName = "Harbor H";
    EXPECT_EQ(Check(), EntryField::None);
    entries.facilityName = std::string(36, 'x');
    EXPECT_EQ(Check(), EntryField::None);
    entries.facilityName += 'x';
    platform.Expect_Box("Error: Invalid Facility Name",
                        "Facility Name must be at most 36 characters.  Please (re-)enter.");
    EXPECT_EQ(Check(), EntryField::Name);
}

TEST_F(EntryChecksTest, FirstFailureIsTheOnlyBox) {
    entries.providerNumber = "";
    entries.fyStart = "";
    entries.facilityName = "";
    platform.Expect_Box("Tallmar 1728", kSixDigits);
    EXPECT_EQ(Check(), EntryField::Provider);
}

TEST_F(EntryChecksTest, LeavingTheStartFillsAnEmptyEnd) {
    Leave_FYStart(entries, kNewReportDates);
    EXPECT_EQ(entries.fyEnd, "9/30/16");
    entries.fyStart = "1/1/15";
    Leave_FYStart(entries, kNewReportDates);
    EXPECT_EQ(entries.fyEnd, "9/30/16");
}

TEST_F(EntryChecksTest, LeavingABadDateTellsSoInFewerWords) {
    entries.fyStart = "x";
    platform.Expect_Box_Starting("Error: Invalid Fiscal Year Start Date",
                                 "Fiscal Year Start date is not a valid date.");
    Leave_FYStart(entries, kNewReportDates);
    EXPECT_EQ(platform.boxes[0].text, "Fiscal Year Start date is not a valid date.");
    entries.fyEnd = "x";
    platform.Expect_Box_Starting("Error: Invalid Fiscal Year End Date", "Fiscal Year End date is not a valid date.");
    Leave_FYEnd(entries, kNewReportDates);
    EXPECT_EQ(platform.boxes[1].text, "Fiscal Year End date is not a valid date.");
}

TEST_F(EntryChecksTest, LeavingABadProviderNumberInTheEditor) {
    entries.providerNumber = "14-71";
    platform.Expect_Box(
        "Tallmar 1728",
        "You have entered an invalid Provider Number!\rProvider number must be 6 digits and non-alpha numeric!");
    Leave_ProviderNumber(entries);
}

}  // namespace tallmar
