#include "screens/amount_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tallmar {

TEST(ParseAmountTest, TakesWhatAPersonKeys) {
    EXPECT_EQ(Parse_Amount("1200"), 1200);
    EXPECT_EQ(Parse_Amount(" 1200.50 "), 1200.5);
    EXPECT_EQ(Parse_Amount("$1,234,567.89"), 1234567.89);
    EXPECT_EQ(Parse_Amount("-500"), -500);
    EXPECT_EQ(Parse_Amount("500-"), -500);
    EXPECT_EQ(Parse_Amount("(500)"), -500);
    EXPECT_EQ(Parse_Amount("($1,500.25)"), -1500.25);
    EXPECT_EQ(Parse_Amount("-$500"), -500);
    EXPECT_EQ(Parse_Amount("$-500"), -500);
    EXPECT_EQ(Parse_Amount("$ 500 -"), -500);
    EXPECT_EQ(Parse_Amount("+12"), 12);
    EXPECT_EQ(Parse_Amount(".5"), 0.5);
    EXPECT_EQ(Parse_Amount("12."), 12);
    EXPECT_EQ(Parse_Amount("12\r\n"), 12);
}

TEST(ParseAmountTest, TakesTheAccountingFormat) {
    EXPECT_EQ(Parse_Amount(" $ 1,500.00 "), 1500);
    EXPECT_EQ(Parse_Amount(" $ (500.00)"), -500);
    EXPECT_EQ(Parse_Amount("$(5)"), -5);
    EXPECT_EQ(Parse_Amount("$ (500)"), -500);
    EXPECT_EQ(Parse_Amount("( $ 500 )"), -500);
    EXPECT_EQ(Parse_Amount("(500)$"), -500);
    EXPECT_EQ(Parse_Amount("500 $"), 500);
}

TEST(ParseAmountTest, ALoneDashIsZero) {
    for (const char* text : {"-", " -   ", " $ -   ", "-$", "\u2212", "\u2013", " $\u00A0-\u00A0\u00A0 "}) {
        EXPECT_EQ(Parse_Amount(text), 0) << text;
        EXPECT_FALSE(std::signbit(Parse_Amount(text).value_or(-1))) << text;
    }
}

TEST(ParseAmountTest, AMinusMayBeTheTypesettersAndABlankMayNotBreak) {
    EXPECT_EQ(Parse_Amount("\u2212"
                           "3,180"),
              -3180);
    EXPECT_EQ(Parse_Amount("3,180\u2212"), -3180);
    EXPECT_EQ(Parse_Amount("\u2013"
                           "500"),
              -500);
    EXPECT_EQ(Parse_Amount("\u00A0$\u202F(500)\u00A0"), -500);
}

TEST(ParseAmountTest, RefusesWhatIsNoAmount) {
    for (const char* text : {"",
                             " ",
                             "x",
                             "12a",
                             "1 2",
                             "--5",
                             "-5-",
                             "(-5)",
                             "(5",
                             "5)",
                             "()",
                             "$",
                             "$$5",
                             "1,23",
                             "1,2345",
                             ",123",
                             "1234,567",
                             "1,,234",
                             "1,234.5,6",
                             "1.2.3",
                             "nan",
                             "inf",
                             "0x10",
                             "1,23,4",
                             "5%",
                             "1e3",
                             "1E3",
                             "12\u00A0"
                             "5",
                             "--",
                             "(-)",
                             ")5(",
                             "5+",
                             ".",
                             "+-5",
                             "((5))",
                             "+",
                             "\u2014",
                             "1.5e2",
                             "1\u202F"
                             "234",
                             "5 (",
                             "-(5)",
                             "$-$"}) {
        EXPECT_EQ(Parse_Amount(text), std::nullopt) << text;
    }
}

TEST(ParseAmountTest, MinusZeroIsZero) {
    EXPECT_FALSE(std::signbit(Parse_Amount("-0").value()));
}

TEST(BlankTextTest, NoBreakSpacesAreBlanks) {
    EXPECT_TRUE(Is_Blank_Text(""));
    EXPECT_TRUE(Is_Blank_Text(" \t\r\n"));
    EXPECT_TRUE(Is_Blank_Text("\u00A0 \u202F"));
    EXPECT_FALSE(Is_Blank_Text("\u00A0-"));
}

}  // namespace tallmar
