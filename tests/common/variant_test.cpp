#include "common/variant.h"

#include <gtest/gtest.h>

namespace tallmar {

TEST(VariantTest, NzNumKeepsTheKindOfANumber) {
    EXPECT_EQ(Nz_Num(5.01_cur, 0), Value(5.01_cur));
    EXPECT_EQ(Nz_Num("12", 0), Value(12.0));
    EXPECT_EQ(Nz_Num(Null, 0), Value(0));
    EXPECT_EQ(Nz_Num("n/a", 7), Value(7));
    EXPECT_EQ(Nz_Num(Null), Value(Null));
}

TEST(VariantTest, ANullTotalIsZero) {
    EXPECT_EQ(Nz_Currency(Null), 0_cur);
    EXPECT_EQ(Nz_Currency("n/a"), 0_cur);
    EXPECT_EQ(Nz_Currency(12.5), 12.5_cur);
    EXPECT_EQ(Nz_Double(Null), 0);
    EXPECT_EQ(Nz_Double(12.5_cur), 12.5);
}

TEST(VariantTest, NzStrIsTheTextUnlessNull) {
    EXPECT_EQ(Nz_Str(Null), "");
    EXPECT_EQ(Nz_Str(Null, "none"), "none");
    EXPECT_EQ(Nz_Str("", "none"), "");
    EXPECT_EQ(Nz_Str(5.01_cur), "5.01");
}

TEST(VariantTest, BlankIsNullOrBlanks) {
    EXPECT_TRUE(Is_Blank(Null));
    EXPECT_TRUE(Is_Blank("   "));
    EXPECT_FALSE(Is_Blank("\t"));
    EXPECT_FALSE(Is_Blank(0));
}

TEST(VariantTest, AnAnswerIsYesByItsFirstLetter) {
    EXPECT_TRUE(Is_Yes("Y"));
    EXPECT_TRUE(Is_Yes("yes, of course"));
    EXPECT_FALSE(Is_Yes("No, yes"));
    EXPECT_FALSE(Is_Yes(" Y"));
    EXPECT_FALSE(Is_Yes(""));
    EXPECT_FALSE(Is_Yes(Null));
}

TEST(VariantTest, RoundHalfOfNoNumberIsNull) {
    EXPECT_EQ(Round_Half(Value(12.5_cur), 0), Value(13.0));
    EXPECT_EQ(Round_Half(Value("-12.5"), 0), Value(-13.0));
    EXPECT_EQ(Round_Half(Value(Null), 0), Value(Null));
    EXPECT_EQ(Round_Half(Value("x"), 0), Value(Null));
}

TEST(VariantTest, MaxAndMinPassOverNull) {
    EXPECT_EQ(Max_Var(Null, 3), Value(3));
    EXPECT_EQ(Max_Var(3, Null), Value(3));
    EXPECT_EQ(Min_Var(Null, 3), Value(3));
    EXPECT_EQ(Max_Var(Null, Null), Value(Null));
}

TEST(VariantTest, MaxAndMinKeepTheFirstOfEquals) {
    EXPECT_EQ(Max_Var(3, 3.0), Value(3));
    EXPECT_EQ(Min_Var(3.0, 3), Value(3.0));
    EXPECT_EQ(Max_Var(9.9999_cur, 10_cur), Value(10_cur));
    EXPECT_EQ(Min_Var(9, 10.5), Value(9));
    EXPECT_EQ(Max_Var(9, "10"), Value("10")) << "a numeric text beside a number is one";
    EXPECT_EQ(Max_Var("9", "10"), Value("9")) << "two texts compare as texts";
    EXPECT_EQ(Max_Var(9, "n/a"), Value("n/a"));
    EXPECT_EQ(Min_Var("n/a", 9), Value(9));
}

TEST(VariantTest, BetweenTakesBothEnds) {
    EXPECT_TRUE(Is_Between(1, 1, 3));
    EXPECT_TRUE(Is_Between(3, 1, 3));
    EXPECT_FALSE(Is_Between(3.01, 1, 3));
}

TEST(VariantTest, DigitsAndZeros) {
    EXPECT_EQ(Digits_Only("14-7100 a"), "147100");
    EXPECT_EQ(Digits_Only("é"), "");
    EXPECT_TRUE(All_Zeros("00"));
    EXPECT_FALSE(All_Zeros("010"));
    EXPECT_FALSE(All_Zeros(""));
}

TEST(VariantTest, RomanNumerals) {
    EXPECT_EQ(To_Roman(1), "I");
    EXPECT_EQ(To_Roman(4), "IV");
    EXPECT_EQ(To_Roman(49), "XLIX");
    EXPECT_EQ(To_Roman(1728), "MDCCXXVIII");
    EXPECT_EQ(To_Roman(3999), "MMMCMXCIX");
    EXPECT_EQ(To_Roman(0), "");
    EXPECT_EQ(To_Roman(4000), "");
}

}  // namespace tallmar
