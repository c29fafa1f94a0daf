// Statistics of B-1, entered as a person types them.
#include "common/worksheets.h"
#include "screens/entry_test.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr const char* kAccumulated =
    "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center";
constexpr const char* kExcluded = "Warning: Modifying An Excluded 'Accumulated Costs' Statistic";
constexpr const char* kRecipient = "Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center";
constexpr const char* kOverridden =
    "Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center Having An Override Value";

constexpr int kAsk = kOkCancel + kExclamation;

// The amount in B1X for line 6 of a column; Null where it has no row.
Value Override(const Report& r, const std::string& column) {
    return r.Read("SELECT Amount FROM B1X WHERE RowCCNum = 6 AND ColCCNum = '" + column + "';");
}

}  // namespace

TEST(EnterB1, AStatisticIsAWholeNumber) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("B1", "6", "CC_100", "2,850"), kStored);
    EXPECT_CELL("B1", 6, "CC_100", 2850.0);
    r.platform.Expect_Box_Starting("Too Specific Numeric Entry", "You're attempting to enter invalid data ['12.5'].");
    EXPECT_EQ(Answer_To("B1", "6", "CC_200", "12.5"), kStored);
    EXPECT_CELL("B1", 6, "CC_200", 13.0);
    EXPECT_EQ(
        Answer_To("B1", "6", "CC_100", "x"),
        "Invalid Non-Numeric Entry: You're attempting to enter invalid data ['x'].  The cell you're attempting to "
        "input or modify only accepts numeric data.  Your entry or modification is being discarded.");
}

TEST(EnterB1, TheTriangleTotalsAndReconciliationsAreShut) {
    Report r(fy2016);
    EXPECT_EQ(Title_Of("B1", "1", "CC_300", "5"), kShut) << "above its own line";
    EXPECT_EQ(Title_Of("B1", "3", "CC_300", "5"), kShut) << "the total on its own line";
    EXPECT_EQ(Answer_To("B1", "4", "CC_300", "5"), kStored);
    EXPECT_EQ(Title_Of("B1", "6", "Recon_500", "5"), kShut);
    EXPECT_EQ(Title_Of("B1", "29", "CC_100", "5"), kShut);
    EXPECT_EQ(Title_Of("B1", "6", "CCName", "x"), kShut);
}

TEST(EnterB1, AccumulatedCostTakesAnExclusion) {
    Report r(fy2016);
    r.platform.Expect_Box(kAccumulated,
                          "The statistic you just modified belongs to a cost center that is an 'Accumulated Costs' "
                          "type Cost Center.  The only change you may make to 'Accumulated Costs' type Cost Centers is "
                          "to establish one [or more] exclusions from the 'Accumulated Costs' calculation process.  "
                          "Select OK to make this exclusion, or Cancel to abort it.",
                          Answer::Ok, kAsk);
    EXPECT_EQ(Answer_To("B1", "6", "CC_500", "1"), kStored);
    EXPECT_EQ(Override(r, "CC_500"), Value(-1.0));
}

TEST(EnterB1, WhatStandsIsNoModification) {
    Report r(fy2016);
    EXPECT_EQ(Answer_To("B1", "6", "CC_500", "0"), kStored);
    EXPECT_EQ(Answer_To("B1", "6", "CC_500", ""), kStored) << "a blank is 0";
    EXPECT_EQ(Override(r, "CC_500"), Null);
    r.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);");
    r.Execute("INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (6, 'CC_300', 40);");
    r.Cell("B1", 6, "CC_300", 40.0);
    EXPECT_EQ(Answer_To("B1", "6", "CC_300", "40"), kStored);
    EXPECT_EQ(Override(r, "CC_300"), Value(40.0));
}

TEST(EnterB1, ACancelledExclusionIsARefusalThatWasShown) {
    Report r(fy2016);
    r.platform.Expect_Box_Starting(kAccumulated, "The statistic you just modified", Answer::Cancel);
    const std::optional<Refusal> outcome = Enter("B1", "6", "CC_500", "1");
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->title, kAccumulated);
    Show_Refusal(*outcome);
    EXPECT_EQ(Override(r, "CC_500"), Null);
    EXPECT_CELL("B1", 6, "CC_500", 0.0);
}

TEST(EnterB1, AnExclusionIsRemovedByASecondChange) {
    Report r(fy2016);
    r.Execute("INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (6, 'CC_500', -1);");
    r.platform.Expect_Box_Starting(
        kExcluded,
        "The statistic you just modified belongs to a cost center that is an 'Accumulated Costs' type Cost Center and "
        "has previously been excluded from the 'Accumulated Costs' process.",
        Answer::Cancel, kAsk);
    EXPECT_TRUE(Enter("B1", "6", "CC_500", "1"));
    EXPECT_EQ(Override(r, "CC_500"), Value(-1.0));
    r.platform.Expect_Box_Starting(kExcluded, "The statistic you just modified");
    EXPECT_FALSE(Enter("B1", "6", "CC_500", "1"));
    EXPECT_EQ(Override(r, "CC_500"), Null);
}

TEST(EnterB1, ARecipientTakesAnOverride) {
    Report r(fy2016);
    r.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);");
    r.platform.Expect_Box(kRecipient,
                          "The statistic you just modified belongs to a cost center that is a Recipient Cost Center "
                          "within the StatLinks module.  Changing this statistic will establish an override.  Select "
                          "OK to make this change, or Cancel to abort it.",
                          Answer::Ok, kAsk);
    EXPECT_EQ(Answer_To("B1", "6", "CC_300", "40"), kStored);
    EXPECT_EQ(Override(r, "CC_300"), Value(40.0));
    EXPECT_CELL("B1", 6, "CC_300", 40.0);
}

TEST(EnterB1, AnOverrideIsReplacedRemovedOrKept) {
    Report r(fy2016);
    r.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);");
    r.Execute("INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (6, 'CC_300', 40);");
    r.platform.Expect_Box(kOverridden,
                          "The statistic you just modified belongs to a cost center that is a Recipient Cost Center "
                          "within the StatLinks module and has also been assigned an override value.  Select Yes to "
                          "replace the current override value.  Select No to remove this override altogether.  Select "
                          "Cancel to abort this change request.",
                          Answer::Cancel, kYesNoCancel + kExclamation);
    EXPECT_TRUE(Enter("B1", "6", "CC_300", "50"));
    EXPECT_EQ(Override(r, "CC_300"), Value(40.0));
    r.platform.Expect_Box_Starting(kOverridden, "The statistic you just modified", Answer::Yes);
    EXPECT_FALSE(Enter("B1", "6", "CC_300", "50"));
    EXPECT_EQ(Override(r, "CC_300"), Value(50.0));
    r.platform.Expect_Box_Starting(kOverridden, "The statistic you just modified", Answer::No);
    EXPECT_FALSE(Enter("B1", "6", "CC_300", "60"));
    EXPECT_EQ(Override(r, "CC_300"), Null);
}

TEST(EnterB1, ASourceIsCopiedToItsRecipients) {
    Report r(fy2016);
    r.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);");
    EXPECT_EQ(Answer_To("B1", "6", "CC_100", "900"), kStored);
    EXPECT_CELL("B1", 6, "CC_300", 900.0);
    EXPECT_CELL("B1", 3, "CC_300", 0.0);
}

TEST(EnterB1, TagsTellTheKindsOfColumns) {
    Report r(fy2016);
    r.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);");
    const OpenForm form(kEditB1, "B1");
    EXPECT_EQ(form.Find_Column("CC_100")->tag, "[Source CC]");
    EXPECT_EQ(form.Find_Column("CC_300")->tag, "[from CC_100]");
    EXPECT_EQ(form.Find_Column("CC_500")->tag, "ACCUM. COST");
    EXPECT_EQ(form.Find_Column("CC_200")->tag, "");
    EXPECT_EQ(form.Find_Column("CC_100")->label, "Cap Rel Bldgs & Fixtures (Square Feet)");
}

}  // namespace tallmar
