#include "structure/edit_key.h"

#include "support/report_test.h"

namespace tallmar {

namespace {

void Build_S2_Lines(const Item& item) {
    db.Execute("CREATE TABLE S2 (LineNum Currency, Col_1 Text(40), Col_2 Text(16));");
    for (const int line : {2, 7, 26}) db.Execute(Sql("INSERT INTO S2 (LineNum) VALUES (", line, ");"));
    Edit_Worksheets(item.Name(), "Make", 0);
}
void Build_Plain(const Item& item) {
    db.Execute(Sql("CREATE TABLE ", item.Name(), " (LineNum Currency);"));
    Edit_Worksheets(item.Name(), "Make", 0);
}
void Build_Broken(const Item&) {
    db.Execute("UPDATE NoSuchTable SET Col_1=0;");
}
constexpr WorksheetFamily kFamilies[] = {
    {"S2", 0, Years::Always, true, Build_S2_Lines},      {"A1", 0, Years::CostLimits, true, Build_Plain},
    {"A2", 0, Years::CostLimits, true, Build_Plain},     {"A3", 0, Years::CostLimits, true, Build_Plain},
    {"A83p1*", 0, Years::CostLimits, true, Build_Plain}, {"A83p2*", 0, Years::CostLimits, true, Build_Plain},
    {"S21", 0, Years::FromS21, true, Build_Plain}};
constexpr WorksheetFamily kBrokenA1[] = {{"S2", 0, Years::Always, true, Build_S2_Lines},
                                         {"A1", 0, Years::CostLimits, true, Build_Broken},
                                         {"S21", 0, Years::FromS21, true, Build_Plain}};

constexpr const char* kToLimits =
    "The new fiscal year uses other worksheets: A-1, A-2, A-3, A-8-3; no longer used: S-2-1.  Do you wish to continue?";

class EditKeyTest : public ReportTest {
  protected:
    EditKeyTest() {
        Install_Catalogue(kFamilies);
        New_Report();
        entries = Load_Edit_Key();
    }
    // A year of the cost limits.
    void Key_1999() {
        entries.fyStart = "10/1/1998";
        entries.fyEnd = "9/30/1999";
    }
    static std::string Yearly() {
        return Column("SELECT Item FROM Worksheets WHERE Item Like \"A*\" Or Item=\"S21\" ORDER BY Item;");
    }
    NewReportEntries entries;
};

}  // namespace

TEST_F(EditKeyTest, ShowsThePresentIdentity) {
    EXPECT_EQ(entries.providerNumber, "14-7100");
    EXPECT_EQ(entries.fyStart, "10/1/2015");
    EXPECT_EQ(entries.fyEnd, "9/30/2016");
    EXPECT_EQ(entries.facilityName, "Harbor Home Health");
}

TEST_F(EditKeyTest, SaveWritesS2AndMaster) {
    platform.Advance(60);
    entries.providerNumber = "157200";
    entries.fyStart = "2/1/2016";
    entries.fyEnd = "1/31/2017";
    entries.facilityName = "The \"New\" Harbor";
    EXPECT_EQ(Save_Edit_Key(entries), EntryField::None);
    EXPECT_EQ(Read("SELECT Col_1 FROM S2 WHERE LineNum=2;"), Value("The \"New\" Harbor"));
    EXPECT_EQ(Read("SELECT Col_2 FROM S2 WHERE LineNum=2;"), Value("15-7200"));
    EXPECT_EQ(Read("SELECT Col_1 FROM S2 WHERE LineNum=7;"), Value("02/01/2016"));
    EXPECT_EQ(Read("SELECT Col_2 FROM S2 WHERE LineNum=7;"), Value("01/31/2017"));
    const Row master = db.Read_Row("SELECT * FROM Master;");
    EXPECT_EQ(master["BuildDate"], Value(platform.Now()));
    EXPECT_EQ(master["ProviderNumber"], Value("15-7200"));
    EXPECT_EQ(master["FYStart"], Value(Date_Of(2016, 2, 1)));
    EXPECT_EQ(master["FYEnd"], Value(Date_Of(2017, 1, 31)));
    EXPECT_EQ(master["ProviderName"], Value("The \"New\" Harbor"));
    EXPECT_EQ(openReport.ProviderName, "The \"New\" Harbor");
    EXPECT_EQ(openReport.FYStart, Date_Of(2016, 2, 1));
    EXPECT_EQ(openReport.FormNum, "1728");
}

TEST_F(EditKeyTest, RefusedEntryChangesNothing) {
    entries.facilityName = "Short";
    platform.Expect_Box_Starting("Error: Invalid Facility Name", "Facility Name must be at least 8 characters.");
    EXPECT_EQ(Save_Edit_Key(entries), EntryField::Name);
    EXPECT_EQ(Read("SELECT ProviderName FROM Master;"), Value("Harbor Home Health"));
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
}

TEST_F(EditKeyTest, AMoveOverADividingDateIsAskedAndBringsItsWorksheets) {
    EXPECT_EQ(Yearly(), "S21");
    Key_1999();
    platform.Expect_Box("Change of Fiscal Year", kToLimits, Answer::Yes, kYesNo + kQuestion + kDefaultButton2);
    EXPECT_EQ(Save_Edit_Key(entries), EntryField::None);
    EXPECT_EQ(Yearly(), "A1 A2 A3 A83p1 A83p2");
    EXPECT_FALSE(TableExists("S21", false));
    EXPECT_FALSE(CRF_Needs_Upgrade());
    EXPECT_EQ(openReport.MsgLogPrefix, "");
}

TEST_F(EditKeyTest, AMoveThatIsNotConfirmedChangesNothing) {
    Key_1999();
    platform.Expect_Box("Change of Fiscal Year", kToLimits, Answer::No);
    EXPECT_EQ(Save_Edit_Key(entries), EntryField::Start);
    EXPECT_EQ(Yearly(), "S21");
    EXPECT_EQ(openReport.FYStart, Date_Of(2015, 10, 1));
    EXPECT_EQ(Read("SELECT FYStart FROM Master;"), Value(Date_Of(2015, 10, 1)));
}

TEST_F(EditKeyTest, OnlyWhatComesOrGoesIsNamed) {
    EXPECT_EQ(Change_Of_Year_Question(Date_Of(2015, 9, 30)),
              "The new fiscal year uses other worksheets: none; no longer used: S-2-1.  Do you wish to continue?");
    EXPECT_EQ(Change_Of_Year_Question(Date_Of(2016, 10, 1)), "");
    openReport.FYStart = Date_Of(2000, 9, 30);
    EXPECT_EQ(Change_Of_Year_Question(Date_Of(2000, 10, 1)),
              "The new fiscal year uses other worksheets: none; no longer used: A-1, A-2, A-3, A-8-3.  Do you wish to "
              "continue?");
    EXPECT_EQ(Change_Of_Year_Question(Date_Of(2000, 9, 29)), "");
    openReport.FYStart = Date_Of(2015, 9, 30);
    EXPECT_EQ(Change_Of_Year_Question(Date_Of(2015, 10, 1)),
              "The new fiscal year uses other worksheets: S-2-1; no longer used: none.  Do you wish to continue?");
}

TEST_F(EditKeyTest, AFailureAtMasterLeavesS2AsItWas) {
    Identity identity = Present_Identity();
    identity.facilityName = std::string(38, 'x');  // fits S-2 and not Master
    EXPECT_THROW(Store_Identity(identity), DbError);
    EXPECT_TRUE(Read("SELECT Col_1 FROM S2 WHERE LineNum=2;").Is_Null());
    EXPECT_TRUE(Read("SELECT Col_1 FROM S2 WHERE LineNum=7;").Is_Null());
    EXPECT_EQ(openReport.ProviderName, "Harbor Home Health");
}

TEST_F(EditKeyTest, AWorksheetThatCannotBeBuiltLeavesTheYearAsItWas) {
    Install_Catalogue(kBrokenA1);
    Identity identity = Present_Identity();
    identity.year = {Date_Of(1998, 10, 1), Date_Of(1999, 9, 30)};
    EXPECT_THROW(Store_Identity(identity), DbError);
    EXPECT_EQ(openReport.FYStart, Date_Of(2015, 10, 1));
    EXPECT_EQ(Read("SELECT FYStart FROM Master;"), Value(Date_Of(2015, 10, 1)));
    EXPECT_EQ(Yearly(), "S21");
    EXPECT_TRUE(TableExists("S21", true));
}

TEST_F(EditKeyTest, AMovedYearKeepsABackupOfTheReportBefore) {
    const TempFolder data;
    platform.dataFolder = data.Path();
    Report_Release();
    ASSERT_TRUE(Report_Open(folder.File("Agency.CRF")));
    entries = Load_Edit_Key();
    Key_1999();
    platform.Expect_Box_Starting("Change of Fiscal Year", "The new fiscal year", Answer::Yes);
    EXPECT_EQ(Save_Edit_Key(entries), EntryField::None);
    EXPECT_TRUE(std::filesystem::exists(data.File("backups")));
    EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
}

TEST_F(EditKeyTest, SaveAsChangesTheCopyOnly) {
    const std::string before = Bytes(folder.File("Agency.CRF"));
    entries.providerNumber = "15-7200";
    EXPECT_TRUE(Save_Edit_Key_As(entries, folder.File("Copy.CRF")));
    EXPECT_EQ(openReport.CRFPath, folder.File("Copy.CRF"));
    EXPECT_EQ(Read("SELECT ProviderNumber FROM Master;"), Value("15-7200"));
    Report_Release();
    EXPECT_EQ(Bytes(folder.File("Agency.CRF")), before);
}

TEST_F(EditKeyTest, FailedSaveAsChangesNothing) {
    platform.Expect_Box_Starting("Error: Save As Request Failed", "PROBLEM Encountered");
    entries.providerNumber = "15-7200";
    EXPECT_FALSE(Save_Edit_Key_As(entries, folder.File("nowhere/Copy.CRF")));
    EXPECT_EQ(Read("SELECT ProviderNumber FROM Master;"), Value("14-7100"));
    EXPECT_EQ(openReport.ProviderNumber, "14-7100");
}

}  // namespace tallmar
