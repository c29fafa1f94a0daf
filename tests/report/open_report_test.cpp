#include "report/open_report.h"

#include "support/report_test.h"

namespace tallmar {

using OpenReportTest = ReportTest;

TEST_F(OpenReportTest, NothingOfAReportSurvivesItsClose) {
    New_Report();
    ASSERT_TRUE(Report_Save_As(folder.File("copy.CRF")));
    openReport.AGOption = 2;
    openReport.HeaderLine1 = openReport.HeaderLine2 = openReport.HeaderLine3 = "Draft";
    openReport.MsgLogPrefix = "CalcAll";
    openReport.ecrMayBeBuilt = true;
    openReport.entryAge.Other_Entry();
    ASSERT_TRUE(openReport.backupIsDue);
    ASSERT_TRUE(Report_Close());
    EXPECT_FALSE(db.Is_Open());
    for (const std::string* text : {&openReport.CRFPath, &openReport.CRFDir, &openReport.CRFTitle, &openReport.FormNum,
                                    &openReport.ProviderNumber, &openReport.ProviderName, &openReport.HeaderLine1,
                                    &openReport.HeaderLine2, &openReport.HeaderLine3, &openReport.MsgLogPrefix}) {
        EXPECT_EQ(*text, "");
    }
    EXPECT_EQ(openReport.FYStart, Date{});
    EXPECT_EQ(openReport.FYEnd, Date{});
    EXPECT_EQ(openReport.AGOption, 0);
    EXPECT_EQ(openReport.entryAge.Entries(), 0U);
    EXPECT_FALSE(openReport.ecrMayBeBuilt);
    EXPECT_FALSE(openReport.backupIsDue);
}

TEST_F(OpenReportTest, ANewReportTakesNothingFromTheOneThatWasOpen) {
    New_Report();
    openReport.AGOption = 2;
    openReport.HeaderLine1 = "Draft";
    openReport.ecrMayBeBuilt = true;
    New_Report(Date_Of(2015, 10, 1), Date_Of(2016, 9, 30), "Other.CRF");
    EXPECT_EQ(openReport.AGOption, 0);
    EXPECT_EQ(openReport.HeaderLine1, "");
    EXPECT_FALSE(openReport.ecrMayBeBuilt);
}

}  // namespace tallmar
