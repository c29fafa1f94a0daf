#include "report/replace.h"

#include "support/report_test.h"

namespace tallmar {

namespace {

constexpr std::string_view kTitle = "Error: Save As Request Failed";

class ReplaceTest : public ReportTest {
  protected:
    void Expect_Refused(const std::string& name, const std::string& text) {
        platform.beeps = 0;
        platform.Expect_Box("System Error", text, Answer::Ok, kStop);
        EXPECT_FALSE(Check_Report_Name(folder.File(name), "System Error")) << name;
        EXPECT_EQ(platform.beeps, 1);
    }
    Answer Ask(Answer answer) {
        const std::string path = folder.File("old.CRF");
        platform.Expect_Box("Replace File?", "The file '" + path + "' exists already.  Do you want to replace it?",
                            answer, kYesNo | kQuestion | kDefaultButton2);
        return May_Replace_File(path) ? Answer::Yes : Answer::No;
    }
};

}  // namespace

TEST_F(ReplaceTest, OnlyAFileThatIsThereIsAskedAbout) {
    EXPECT_TRUE(May_Replace_File(folder.File("old.CRF")));
    Write(folder.File("old.CRF"), "x");
    EXPECT_EQ(Ask(Answer::Yes), Answer::Yes);
    EXPECT_EQ(Ask(Answer::No), Answer::No);
}

TEST_F(ReplaceTest, TheOpenReportIsNotReplacedByItself) {
    New_Report();
    EXPECT_TRUE(May_Replace_File(folder.File("Agency.CRF")));
    EXPECT_TRUE(May_Replace_File(folder.Path() + "/./Agency.CRF"));
}

TEST_F(ReplaceTest, NamesOfFilesBesideAReportAreRefused) {
    EXPECT_TRUE(Check_Report_Name(folder.File("Agency.CRF"), kTitle));
    EXPECT_TRUE(Check_Report_Name(folder.File("QVRTemp"), kTitle));
    for (const std::string& name : {std::string("QVRTemp.CRF"), std::string("qvrtemp.crf")}) {
        Expect_Refused(name,
                       "The name " + name + " is kept for the compaction of reports.  Please choose another one.");
    }
    for (const std::string& name :
         {std::string("a.CRF-journal"), std::string("a.CRF.lock"), std::string("a.CRF.tallmar")}) {
        Expect_Refused(name, "The name " + name + " is that of a file beside a report.  Please choose another one.");
    }
}

TEST_F(ReplaceTest, NamesThatLeaveNoRoomForTheJournalAreRefused) {
    const std::string longest = std::string(243, 'x') + ".CRF";
    EXPECT_TRUE(Check_Report_Name(folder.File(longest), kTitle));
    Expect_Refused("x" + longest, "The name of the file x" + longest + " is too long.  Please choose a shorter one.");
}

TEST_F(ReplaceTest, SaveAsAndNewRefuseSuchNamesAndChangeNothing) {
    New_Report();
    platform.Expect_Box_Starting(kTitle, "The name QVRTemp.CRF is kept");
    EXPECT_FALSE(Report_Save_As(folder.File("QVRTemp.CRF")));
    EXPECT_EQ(openReport.CRFTitle, "Agency.CRF");
    EXPECT_TRUE(Report_Is_Open());
    Report_Release();
    NewReportEntries entries;
    entries.providerNumber = "14-7100";
    entries.facilityName = "Meadow Home Health";
    platform.Expect_Box_Starting("System Error", "The name QVRTemp.CRF is kept");
    EXPECT_FALSE(Create_CRF(folder.File("QVRTemp.CRF"), entries, {Date_Of(2015, 10, 1), Date_Of(2016, 9, 30)}));
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

}  // namespace tallmar
