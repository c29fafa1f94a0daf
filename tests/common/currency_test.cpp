#include "common/currency.h"

#include <gtest/gtest.h>

namespace tallmar {

TEST(CurrencyTest, LineNumbersAreExact) {
    EXPECT_EQ(Currency::From_Text("23.2"), 23.2_cur);
    EXPECT_EQ(Currency::From_Double(5.01), 5.01_cur);
    EXPECT_EQ(5_cur + 0.01_cur, 5.01_cur);
}

TEST(CurrencyTest, TheFifthPlaceRoundsHalvesToEven) {
    EXPECT_EQ(Currency::From_Double(0.00005), 0_cur);
    EXPECT_EQ(Currency::From_Double(0.00015), 0.0002_cur);
    EXPECT_EQ(Currency::From_Double(0.00025), 0.0002_cur);
    EXPECT_EQ(Currency::From_Double(0.000251), 0.0003_cur);
    EXPECT_EQ(Currency::From_Double(-0.00015), -0.0002_cur);
}

TEST(CurrencyTest, ProductsRoundHalvesToEven) {
    EXPECT_EQ(0.01_cur * 0.005_cur, 0_cur);
    EXPECT_EQ(0.03_cur * 0.005_cur, 0.0002_cur);
    EXPECT_EQ(-1.5_cur * 2_cur, -3_cur);
}

TEST(CurrencyTest, WhatDoesNotFitIsRefused) {
    EXPECT_EQ(Currency::From_Double(1e15), std::nullopt);
    EXPECT_EQ(Currency::From_Text("922337203685477.5808"), std::nullopt);
    EXPECT_EQ(Currency::From_Text("922337203685477.5807")->Scaled(), std::numeric_limits<std::int64_t>::max());
    EXPECT_THROW(Currency::From_Scaled(std::numeric_limits<std::int64_t>::max()) + 1_cur, std::overflow_error);
}

TEST(CurrencyTest, TextHasNoNeedlessZeros) {
    EXPECT_EQ((5_cur).To_Text(), "5");
    EXPECT_EQ((-0.5_cur).To_Text(), "-0.5");
    EXPECT_EQ((13.2_cur).To_Text(), "13.2");
    EXPECT_EQ((0.0001_cur).To_Text(), "0.0001");
}

TEST(CurrencyTest, IntIsTheFloor) {
    EXPECT_EQ((-0.5_cur).Int(), -1_cur);
    EXPECT_EQ((5.99_cur).Int(), 5_cur);
    EXPECT_EQ((-3_cur).Int(), -3_cur);
}

}  // namespace tallmar
