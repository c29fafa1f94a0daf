#include "common/format.h"

#include <gtest/gtest.h>

#include "common/dates.h"

namespace tallmar {

TEST(FormatTest, ZerosFillAndSignsDoNot) {
    EXPECT_EQ(Format(5, "0000"), "0005");
    EXPECT_EQ(Format(12345, "0000"), "12345");
    EXPECT_EQ(Format(5, "000#"), "0005");
    EXPECT_EQ(Format(5, "##0"), "5");
    EXPECT_EQ(Format(0, "##0"), "0");
    EXPECT_EQ(Format(0, "###"), "");
    EXPECT_EQ(Format(5, "#0#"), "05") << "behind a zero every place fills";
    EXPECT_EQ(Format(5, "00000"), "00005");
}

TEST(FormatTest, DecimalsRoundHalvesAwayFromZeroOnTheShortestText) {
    EXPECT_EQ(Format(2.675, "##0.00"), "2.68");
    EXPECT_EQ(Format(-2.675, "##0.00"), "-2.68");
    EXPECT_EQ(Format(2.5, "0"), "3");
    EXPECT_EQ(Format(0.5, "0"), "1");
    EXPECT_EQ(Format(2.4999, "0"), "2");
    EXPECT_EQ(Format(999.995, "##0.00"), "1000.00");
    EXPECT_EQ(Format(5.01_cur, "##0.00"), "5.01");
    EXPECT_EQ(Format(5_cur, "##0   "), "5   ");
    EXPECT_EQ(Format(1e15, "0.0"), "1000000000000000.0");
}

TEST(FormatTest, PlacesOfOptionalDecimalsFallAway) {
    EXPECT_EQ(Format(1.5, "0.##"), "1.5");
    EXPECT_EQ(Format(1, "0.##"), "1.");
    EXPECT_EQ(Format(1.05, "0.0##"), "1.05");
    EXPECT_EQ(Format(1, "0.0##"), "1.0");
    EXPECT_EQ(Format(0.25, "#.##"), ".25");
    EXPECT_EQ(Format(12.25, ".00"), "12.25");
}

TEST(FormatTest, ThousandsAreParted) {
    EXPECT_EQ(Format(1234567, "#,##0"), "1,234,567");
    EXPECT_EQ(Format(123, "#,##0"), "123");
    EXPECT_EQ(Format(1000, "#,##0.00"), "1,000.00");
    EXPECT_EQ(Format(0, "#,##0"), "0");
    EXPECT_EQ(Format(-1234, "#,##0"), "-1,234");
    EXPECT_EQ(Format(5, "0,000"), "0,005");
    EXPECT_EQ(Format(999999.5, "#,##0"), "1,000,000");
}

TEST(FormatTest, SectionsTakeTheSigns) {
    const char* amounts = "###,###,##0;(###,###,##0)";
    EXPECT_EQ(Format(1234.5_cur, amounts), "1,235");
    EXPECT_EQ(Format(-1234.5_cur, amounts), "(1,235)");
    EXPECT_EQ(Format(0, amounts), "0");
    EXPECT_EQ(Format(-0.4, amounts), "0") << "nothing is not negative";
    EXPECT_EQ(Format(-0.4, "0"), "0");
    EXPECT_EQ(Format(-1234567890, "#,###,###,##0;(#,###,###,##0)"), "(1,234,567,890)");
    EXPECT_EQ(Format(0, "0;(0);none"), "none");
    EXPECT_EQ(Format(-7, "0;;none"), "-7") << "an empty section is the first one's";
}

TEST(FormatTest, NullIsEmptyButForAFourthSection) {
    EXPECT_EQ(Format(Null, "##0"), "");
    EXPECT_EQ(Format(Null, "0;-0;0;shaded"), "shaded");
    EXPECT_EQ(Format(Null, "mm/dd/yyyy"), "");
    EXPECT_EQ(Format(Null, "@@"), "");
    EXPECT_EQ(Format(Null, ""), "");
}

TEST(FormatTest, LiteralsStandForThemselves) {
    EXPECT_EQ(Format(12, "$#0"), "$12");
    EXPECT_EQ(Format(-12, "$#0"), "-$12");
    EXPECT_EQ(Format(12, "\\#0"), "#12");
    EXPECT_EQ(Format(12, "0\" 0;#\""), "12 0;#");
    EXPECT_EQ(Format(147100, "00-0000"), "14-7100");
    EXPECT_EQ(Format(0.125, "0.0%"), "12.5%");
    EXPECT_EQ(Format(12, "0 é"), "12 é");
    EXPECT_EQ(Format(12, "-"), "-");
}

TEST(FormatTest, ANumericTextIsTakenAsTheNumber) {
    EXPECT_EQ(Format("12", "0000"), "0012");
    EXPECT_EQ(Format("12345", "00000"), "12345");
    EXPECT_EQ(Format("12a", "0000"), "12a");
    EXPECT_EQ(Format("", "0000"), "");
    EXPECT_EQ(Format(true, "0"), "-1");
}

TEST(FormatTest, DateCodes) {
    const Date evening = Date_Of({2016, 1, 2, 20, 5, 9});
    EXPECT_EQ(Format(evening, "m/d/yy"), "1/2/16");
    EXPECT_EQ(Format(evening, "mm/dd/yyyy"), "01/02/2016");
    EXPECT_EQ(Format(evening, "mm/dd/yyyy hh:mm"), "01/02/2016 20:05");
    EXPECT_EQ(Format(evening, "h:n:s"), "20:5:9");
    EXPECT_EQ(Format(evening, "hh:nn:ss AM/PM"), "08:05:09 PM");
    EXPECT_EQ(Format(evening, "MM/DD/YYYY"), "01/02/2016");
    EXPECT_EQ(Format(evening, "Short Date"), "1/2/2016");
    EXPECT_EQ(Format(evening, "General Date"), "1/2/2016 8:05:09 PM");
    EXPECT_EQ(Format(evening, "dddd, mmmm d"), "Saturday, January 2");
    EXPECT_EQ(Format(evening, "ddd mmm y"), "Sat Jan 2");
    EXPECT_EQ(Format(Date_Of(1899, 12, 29), "ddd"), "Fri");
}

TEST(FormatTest, MinutesFollowTheHourOnly) {
    const Date noon = Date_Of({2016, 11, 2, 12, 5, 9});
    EXPECT_EQ(Format(noon, "hh:mm mm"), "12:05 11");
    EXPECT_EQ(Format(noon, "h:mm AM/PM"), "12:05 PM");
    EXPECT_EQ(Format(Date_Of(2016, 11, 2), "h AM/PM"), "12 AM");
}

TEST(FormatTest, ADateTextUnderDateCodes) {
    EXPECT_EQ(Format("10/1/2015", "mm/dd/yy"), "10/01/15");
    EXPECT_EQ(Format(36800, "m/d/yyyy"), "10/1/2000");
    EXPECT_EQ(Format("none", "m/d/yy"), "none");
}

TEST(FormatTest, TextPlacesFillFromTheRight) {
    EXPECT_EQ(Format("ab", "@@@@"), "  ab");
    EXPECT_EQ(Format("ab", "&&&&"), "ab");
    EXPECT_EQ(Format("abcdef", "@@-@@"), "abcd-ef");
    EXPECT_EQ(Format("147100", "@@-@@@@"), "14-7100");
    EXPECT_EQ(Format("aé", ">"), "AÉ");
    EXPECT_EQ(Format("AÉ", "<"), "aé");
    EXPECT_EQ(Format(12.5, ""), "12.5");
}

}  // namespace tallmar
