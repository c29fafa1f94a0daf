#include "common/numbers.h"

#include <gtest/gtest.h>

namespace tallmar {

TEST(NumbersTest, TextIsTheShortestWithoutExponent) {
    EXPECT_EQ(Number_Text(0.1), "0.1");
    EXPECT_EQ(Number_Text(33.333333), "33.333333");
    EXPECT_EQ(Number_Text(1e21), "1000000000000000000000");
    EXPECT_EQ(Number_Text(1e-7), "0.0000001");
    EXPECT_EQ(Number_Text(-0.0), "0");
}

TEST(NumbersTest, RoundHalfGoesAwayFromZero) {
    EXPECT_EQ(Round_Half(0.5, 0), 1);
    EXPECT_EQ(Round_Half(-0.5, 0), -1);
    EXPECT_EQ(Round_Half(12.5, 0), 13);
    EXPECT_EQ(Round_Half(-12.5, 0), -13);
    EXPECT_EQ(Round_Half(-12.4, 0), -12);
    EXPECT_EQ(Round_Half(100.0 / 3, 6), 33.333333);
    EXPECT_EQ(Round_Half(2.4999999, 0), 3) << "within a millionth of the half it counts as a half";
    EXPECT_EQ(Round_Half(2.499998, 0), 2);
}

TEST(NumbersTest, PreciseAllowsATenThousandthOfTheLastPlace) {
    EXPECT_TRUE(Is_Precise(12.00001, 0));
    EXPECT_FALSE(Is_Precise(12.5, 0));
    EXPECT_FALSE(Is_Precise(12.0002, 0));
    EXPECT_TRUE(Is_Precise(12.25, 2));
}

TEST(NumbersTest, ParseTakesTheWholeTextOnly) {
    EXPECT_EQ(Parse_Number(" -12.5 "), -12.5);
    EXPECT_EQ(Parse_Number("1e3"), 1000);
    EXPECT_EQ(Parse_Number(""), std::nullopt);
    EXPECT_EQ(Parse_Number("12a"), std::nullopt);
    EXPECT_EQ(Parse_Number("1,000"), std::nullopt);
    EXPECT_EQ(Parse_Number("1e999"), std::nullopt);
    EXPECT_EQ(Parse_Number("nan"), std::nullopt);
    EXPECT_EQ(Parse_Number("+-1"), std::nullopt);
}

TEST(NumbersTest, ValReadsTheNumberAtTheStart) {
    EXPECT_EQ(Val("501"), 501);
    EXPECT_EQ(Val("12ab"), 12);
    EXPECT_EQ(Val(" 1 2"), 12);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val("-3.5.1"), -3.5);
    EXPECT_EQ(Val("1e2x"), 100);
    EXPECT_EQ(Val(""), 0);
}

TEST(NumbersTest, RoundEvenTakesHalvesToEven) {
    EXPECT_EQ(Round_Even(2.5, 0), 2);
    EXPECT_EQ(Round_Even(3.5, 0), 4);
}

}  // namespace tallmar
