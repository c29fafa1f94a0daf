#include "common/value.h"

#include <gtest/gtest.h>

#include "common/dates.h"

namespace tallmar {

TEST(ValueTest, NumericIsEveryNumberAndANumericText) {
    EXPECT_TRUE(Value(5).Is_Numeric());
    EXPECT_TRUE(Value(5.01_cur).Is_Numeric());
    EXPECT_TRUE(Value(true).Is_Numeric());
    EXPECT_TRUE(Value(Date{1}).Is_Numeric());
    EXPECT_TRUE(Value(" -12.5 ").Is_Numeric());
    EXPECT_FALSE(Value("12a").Is_Numeric());
    EXPECT_FALSE(Value("").Is_Numeric());
    EXPECT_FALSE(Value(Null).Is_Numeric());
}

TEST(ValueTest, ToDoubleOfEachKind) {
    EXPECT_EQ(Value(true).To_Double(), -1);
    EXPECT_EQ(Value(false).To_Double(), 0);
    EXPECT_EQ(Value(5.01_cur).To_Double(), 5.01);
    EXPECT_EQ(Value(Date{36800}).To_Double(), 36800);
    EXPECT_EQ(Value("12.5").To_Double(), 12.5);
    EXPECT_THROW(Value(Null).To_Double(), std::invalid_argument);
    EXPECT_THROW(Value("x").To_Double(), std::invalid_argument);
}

TEST(ValueTest, ToCurrencyRoundsHalvesToEven) {
    EXPECT_EQ(Value(0.00005).To_Currency(), 0_cur);
    EXPECT_EQ(Value(0.00015).To_Currency(), 0.0002_cur);
    EXPECT_EQ(Value("922337203685477.5807").To_Currency().Scaled(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(Value(" 1e3 ").To_Currency(), 1000_cur);
    EXPECT_THROW(Value(1e15).To_Currency(), std::overflow_error);
    EXPECT_THROW(Value(Null).To_Currency(), std::invalid_argument);
}

TEST(ValueTest, ToLongRoundsHalvesToEven) {
    EXPECT_EQ(Value(2.5).To_Long(), 2);
    EXPECT_EQ(Value(3.5_cur).To_Long(), 4);
    EXPECT_EQ(Value("-1.5").To_Long(), -2);
    EXPECT_EQ(Value(2147483647.0).To_Long(), 2147483647);
    EXPECT_THROW(Value(2147483648.0).To_Long(), std::overflow_error);
    EXPECT_THROW(Value("ten").To_Long(), std::invalid_argument);
}

TEST(ValueTest, ToDateOfASerialOrAText) {
    EXPECT_EQ(Value(36800).To_Date(), Date_Of(2000, 10, 1));
    EXPECT_EQ(Value("10/1/2000").To_Date(), Date_Of(2000, 10, 1));
    EXPECT_THROW(Value("36800").To_Date(), std::invalid_argument);
    EXPECT_THROW(Value(1e9).To_Date(), std::overflow_error);
    EXPECT_THROW(Value(Null).To_Date(), std::invalid_argument);
}

TEST(ValueTest, TheFirstAndTheLastDayAreDatesAndTheirNeighboursAreNot) {
    EXPECT_EQ(Value(-657434.0).To_Date(), Date_Of(100, 1, 1));
    EXPECT_EQ(Value(-657434.75).To_Date(), Date_Of({.year = 100, .month = 1, .day = 1, .hour = 18}));
    EXPECT_THROW(Value(-657435.0).To_Date(), std::overflow_error);
    EXPECT_EQ(Value(2958465.0).To_Date(), Date_Of(9999, 12, 31));
    EXPECT_THROW(Value(2958466.0).To_Date(), std::overflow_error);
}

TEST(ValueTest, ToTextIsWhatJoiningGives) {
    EXPECT_EQ(Value(Null).To_Text(), "");
    EXPECT_EQ(Value(true).To_Text(), "-1");
    EXPECT_EQ(Value(13.2_cur).To_Text(), "13.2");
    EXPECT_EQ(Value(1e-7).To_Text(), "0.0000001");
    EXPECT_EQ(Value(Date{36800}).To_Text(), "10/1/2000");
    EXPECT_EQ(Value(-3).To_Text(), "-3");
}

TEST(ValueTest, EqualityKnowsTheKind) {
    EXPECT_EQ(Value(5), Value(5));
    EXPECT_NE(Value(5), Value(5.0));
    EXPECT_NE(Value(""), Value(Null));
    EXPECT_EQ(Value(), Value(Null));
    EXPECT_NE(Value("a"), Value("A"));
}

}  // namespace tallmar
