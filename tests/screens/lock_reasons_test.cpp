// Cells that take nothing, and the reason that the person reads.
#include "screens/lock_reasons.h"

#include "screens/entry_test.h"

namespace tallmar {

namespace {

struct Locked {
    const char *item, *line, *column, *text;  // behind "takes no entry: "
};

void Expect_Locked(std::span<const Locked> cells) {
    for (const auto& [item, line, column, text] : cells) {
        const std::optional<Refusal> outcome = Enter(item, line, column, "1");
        EXPECT_EQ(Title_Of(outcome), kShut) << item << " " << line << " " << column;
        constexpr std::string_view kTakesNone = " takes no entry: ";
        const std::size_t at = Text_Of(outcome).find(kTakesNone);
        ASSERT_NE(at, std::string::npos) << Text_Of(outcome);
        EXPECT_EQ(Text_Of(outcome).substr(at + kTakesNone.size()), std::string(text) + ".") << Text_Of(outcome);
        EXPECT_EQ(outcome->brief, text);
    }
}

constexpr const char* kComputed = "it is computed";
constexpr const char* kShaded = "it is shaded on the form";
constexpr const char* kWording = "it is the form's own wording";
constexpr const char* kLimitYears = "it belongs to fiscal years that begin before 10/1/2000";
constexpr const char* kNamed = "it is the name of the cost center whose number stands beside it";

}  // namespace

TEST(LockReasons, InAYearWithoutCostLimits) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    EXPECT_EQ(Answer_To("A6pB", "1", "1", "5"), kStored);
    constexpr Locked kCells[] = {
        {"A", "6", "LineNum", "the form numbers its lines"},
        {"A", "6", "CCGroup", "it comes from the chart of cost centers"},
        {"A", "6", "CCNum", "the form does not show it"},
        {"A", "6", "10", kComputed},
        {"A", "29", "1", kComputed},
        {"A", "1", "1", kShaded},
        {"A5", "1", "3", kNamed},
        {"A5", "1", "Description", kWording},
        {"A5", "5", "2", "it comes from Worksheet A-6"},
        {"A5", "10.1", "2", "it comes from Worksheet A-8-3"},
        {"A5", "21", "2", kComputed},
        {"A6pA", "", "Question", kWording},
        {"A6pB", "1", "2", kNamed},
        {"A7", "1", "6", kComputed},
        {"B1", "3", "CC_300", kComputed},
        {"B1", "1", "CC_300", kShaded},
        {"B1", "6", "Recon_500", kComputed},
        {"Cp2m1600", "8", "4", kLimitYears},
        {"Cp2m1600", "13", "7", kLimitYears},
        {"Cp2m1600", "1", "4", kComputed},
        {"Cp3", "15.01", "3", "the line belongs to fiscal years that begin before 10/1/2000 and end after 9/30/2000"},
        {"Cp4", "23.01", "1", kLimitYears},
        {"Cp4", "23.01", "MSA_Code", "it comes from Worksheet S-3 Part III"},
        {"Dp1", "4.01", "2", "it comes from Worksheet C Part III"},
        {"Dp2", "15", "1", "it comes from Worksheet D Part I"},
        {"Dp2", "28", "1", "it comes from Worksheet D-1"},
        {"Dp2", "28.5", "1", kShaded},
        {"Dp2", "28.5", "2", kShaded},
        {"Dp2", "31", "1", kComputed},
        {"D1", "3.01", "Description", kWording},
        {"F", "51", "2", kShaded},
        {"F1", "4", "1", "it comes from Worksheet A"},
        {"F1", "33", "2", kComputed},
        {"S2", "8", "2", "the line has no answer there"},
        {"S2", "13", "1", kComputed},
        {"S2", "29.03", "3", "answer line 29 with Y first"},
        {"S21", "8", "1", "answer line 6 with Y first"},
        {"S21", "13", "1", "answer line 9 or 10 with Y first"},
        {"S21", "13", "LineLabel", "answer line 9 or 10 with Y first"},
        {"S3p1", "10.01", "2", kLimitYears},
        {"S3p1", "8", "1", kComputed},
        {"S3p1", "1", "Description", kWording},
        {"S3p3", "28", "1", kComputed},
    };
    Expect_Locked(kCells);
}

TEST(LockReasons, InAYearWithCostLimits) {
    Report r(fy1999);
    EXPECT_EQ(Answer_To("S3p3", "29", "1", "1600"), kStored);
    constexpr Locked kCells[] = {
        {"A", "6", "1", "in fiscal years that begin before 10/1/2000 it comes from Worksheet A-1"},
        {"A", "6", "2", "in fiscal years that begin before 10/1/2000 it comes from Worksheet A-2"},
        {"A", "6", "4", "in fiscal years that begin before 10/1/2000 it comes from Worksheet A-3"},
        {"A1", "6", "3", kShaded},
        {"A1", "6", "9", kComputed},
        {"A83p1P", "2", "1", kComputed},
        {"Cp2m1600", "8", "5", "it comes from lines 1 to 6"},
    };
    Expect_Locked(kCells);
    // What the calculation of a later year clears is keyed in this one.
    EXPECT_EQ(Answer_To("Cp2m1600", "8", "4", "98.45"), kStored);
    EXPECT_EQ(Answer_To("Cp2m1600", "13", "7", "3"), kStored);
    EXPECT_EQ(Answer_To("S3p1", "10.01", "2", "5.25"), kStored);
    EXPECT_EQ(Answer_To("S3p1", "10.02", "4", "5.25"), kStored);
    EXPECT_EQ(Answer_To("Cp4", "23.01", "1", "5.25"), kStored);
}

}  // namespace tallmar
