#include "common/dates.h"

#include <gtest/gtest.h>

#include "common/variant.h"

namespace tallmar {

TEST(DatesTest, SerialsCountFromTheEndOf1899) {
    EXPECT_EQ(Date_Of(1899, 12, 30).serial, 0);
    EXPECT_EQ(Date_Of(2000, 10, 1), kCostLimitsEnd);
    EXPECT_EQ(Date_Of(2007, 1, 31), kVaccineLineFrom);
    EXPECT_EQ(Date_Of(2015, 10, 1), kS21From);
    EXPECT_EQ(Date_Of(1966, 1, 1).serial, 24108);
    EXPECT_EQ(Date_Of(100, 1, 1).serial, -657434);
    EXPECT_EQ(Date_Of(9999, 12, 31).serial, 2958465);
}

TEST(DatesTest, EveryDayFollowsTheOneBefore) {
    double serial = Date_Of(1899, 1, 1).serial;
    for (int year = 1899; year <= 2101; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; Is_Real_Date(year, month, day); ++day, ++serial) {
                ASSERT_EQ(Date_Of(year, month, day).serial, serial);
                const CivilDate c = To_Civil(Date{serial});
                ASSERT_TRUE(c.year == year && c.month == month && c.day == day) << serial;
            }
        }
    }
    EXPECT_EQ(serial, Date_Of(2102, 1, 1).serial);
}

TEST(DatesTest, LeapDaysAreThoseOfTheCalendar) {
    EXPECT_TRUE(Is_Real_Date(2000, 2, 29));
    EXPECT_FALSE(Is_Real_Date(1900, 2, 29));
    EXPECT_FALSE(Is_Real_Date(2015, 2, 29));
    EXPECT_FALSE(Is_Real_Date(2015, 13, 1));
    EXPECT_FALSE(Is_Real_Date(99, 12, 31));
    EXPECT_FALSE(Is_Real_Date(10000, 1, 1));
    EXPECT_THROW(Date_Of(2015, 4, 31), std::invalid_argument);
}

TEST(DatesTest, TheTimeCountsForwardBeforeTheFirstDayToo) {
    EXPECT_EQ(General_Date(Date{-1.25}), "12/29/1899 6:00:00 AM");
    EXPECT_EQ(Date_Of({1899, 12, 29, 6, 0, 0}).serial, -1.25);
    EXPECT_EQ(General_Date(Date{1.25}), "12/31/1899 6:00:00 AM");
    EXPECT_EQ(General_Date(Date{-0.5}), "12/30/1899 12:00:00 PM");
}

TEST(DatesTest, TheTimeIsTakenToTheNearestSecond) {
    EXPECT_EQ(General_Date(Date{42278 + 0.9999999}), "10/2/2015");
    EXPECT_EQ(General_Date(Date{-1.9999999}), "12/30/1899");
    for (int second = 0; second < 86400; second += 7) {
        const CivilDate c = {2016, 9, 30, second / 3600, second / 60 % 60, second % 60};
        const CivilDate back = To_Civil(Date_Of(c));
        ASSERT_EQ(back.hour * 3600 + back.minute * 60 + back.second, second);
        ASSERT_EQ(back.day, 30);
    }
}

TEST(DatesTest, ASerialOutsideTheCalendarIsItsBound) {
    EXPECT_EQ(Iso_Date(Date{1e300}), "9999-12-31");
    EXPECT_EQ(Iso_Date(Date{-1e300}), "0100-01-01");
}

TEST(DatesTest, AYearLaterTheLeapDayIsTheDayBefore) {
    EXPECT_EQ(Add_Years(Date_Of(2016, 2, 29), 1), Date_Of(2017, 2, 28));
    EXPECT_EQ(Add_Years(Date_Of(2016, 2, 29), 4), Date_Of(2020, 2, 29));
    EXPECT_EQ(Add_Years(Date_Of(2015, 10, 1), 1), Date_Of(2016, 10, 1));
    EXPECT_EQ(General_Date(Add_Years(Date{42278.25}, -1)), "10/1/2014 6:00:00 AM");
}

TEST(DatesTest, ParseTakesTheUsualForms) {
    const Date october = Date_Of(2015, 10, 1);
    for (const char* text : {"10/1/2015", "10/01/15", "10-1-2015", " 10/1/2015 ", "2015-10-01", "2015/10/1",
                             "Oct 1, 2015", "October 1 2015", "1 oct 2015", "1-Oct-15"}) {
        EXPECT_EQ(Parse_Date(text), october) << text;
    }
    EXPECT_EQ(Parse_Date("1/2/16"), Date_Of(2016, 1, 2)) << "month first";
}

TEST(DatesTest, ParseTakesATimeBehindTheDate) {
    EXPECT_EQ(Parse_Date("10/1/2015 8:05"), Date_Of({2015, 10, 1, 8, 5, 0}));
    EXPECT_EQ(Parse_Date("10/1/2015 8:05:09 PM"), Date_Of({2015, 10, 1, 20, 5, 9}));
    EXPECT_EQ(Parse_Date("10/1/2015 12:00 am"), Date_Of(2015, 10, 1));
    EXPECT_EQ(Parse_Date("10/1/2015 12:30 PM"), Date_Of({2015, 10, 1, 12, 30, 0}));
    EXPECT_EQ(Parse_Date("2015-10-01T08:05:09"), Date_Of({2015, 10, 1, 8, 5, 9}));
}

TEST(DatesTest, YearsOfTwoDigitsTurnAtThirty) {
    EXPECT_EQ(Parse_Date("1/1/29"), Date_Of(2029, 1, 1));
    EXPECT_EQ(Parse_Date("1/1/30"), Date_Of(1930, 1, 1));
    EXPECT_EQ(Parse_Date("1/1/00"), Date_Of(2000, 1, 1));
    EXPECT_EQ(Parse_Date("1/1/99"), Date_Of(1999, 1, 1));
    EXPECT_EQ(Parse_Date("1/1/100"), Date_Of(100, 1, 1));
}

TEST(DatesTest, ParseRefusesWhatIsNoDate) {
    for (const char* text : {"",
                             " ",
                             "10/1",
                             "13/1/2015",
                             "2/30/2015",
                             "0/1/2015",
                             "10/1/2015x",
                             "10/1-2015",
                             "10/1/2015 25:00",
                             "10/1/2015 8",
                             "10/1/2015 8:60",
                             "10/1/2015 13:00 PM",
                             "10/1/2015 0:30 AM",
                             "Oc 1, 2015",
                             "Octo",
                             "8:05",
                             "42278",
                             "10/1/20150",
                             "10//2015",
                             "10/1/2015T",
                             "1/1/99999999999999",
                             "10 1 2015",
                             "2015-10",
                             "-1/1/2015"}) {
        EXPECT_EQ(Parse_Date(text), std::nullopt) << text;
    }
}

TEST(DatesTest, TextsOfADate) {
    EXPECT_EQ(General_Date(Date_Of(2015, 10, 1)), "10/1/2015");
    EXPECT_EQ(General_Date(Date_Of({2015, 10, 1, 20, 5, 9})), "10/1/2015 8:05:09 PM");
    EXPECT_EQ(General_Date(Date_Of({2015, 10, 1, 0, 0, 1})), "10/1/2015 12:00:01 AM");
    EXPECT_EQ(Iso_Date(Date_Of(2015, 10, 1)), "2015-10-01");
    EXPECT_EQ(Iso_Date_Time(Date_Of({2015, 10, 1, 20, 5, 9})), "2015-10-01T20:05:09");
}

TEST(DatesTest, SafeDateFallsBackToTheYear100) {
    EXPECT_EQ(Safe_Date("10/1/2015"), Date_Of(2015, 10, 1));
    EXPECT_EQ(Safe_Date(42278), Date_Of(2015, 10, 1));
    EXPECT_EQ(Safe_Date(Null), Date_Of(100, 1, 1));
    EXPECT_EQ(Safe_Date("none"), Date_Of(100, 1, 1));
    EXPECT_EQ(Safe_Date(1e9), Date_Of(100, 1, 1));
}

TEST(DatesTest, AValidDateLiesBetween1966AndToday) {
    const Date today = Date_Of(2016, 11, 15);
    EXPECT_TRUE(Is_Valid_Date("1/1/1966", today));
    EXPECT_FALSE(Is_Valid_Date("12/31/1965", today));
    EXPECT_TRUE(Is_Valid_Date("11/15/2016", today));
    EXPECT_FALSE(Is_Valid_Date("11/16/2016", today));
    EXPECT_FALSE(Is_Valid_Date("today", today));
}

}  // namespace tallmar
