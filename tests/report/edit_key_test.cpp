#include "report/edit_key.h"

#include "support/report_test.h"

namespace tallmar {

namespace {

void Build_S2_Lines(const Item& item) {
    db.Execute("CREATE TABLE S2 (LineNum Currency, Col_1 Text(40), Col_2 Text(16));");
    for (const int line : {2, 7, 26}) db.Execute(Sql("INSERT INTO S2 (LineNum) VALUES (", line, ");"));
    Edit_Worksheets(item.Name(), "Make", 0);
}
constexpr WorksheetFamily kS2[] = {{"S2", 0, Build_S2_Lines, nullptr, nullptr, nullptr}};

class EditKeyTest : public ReportTest {
  protected:
    EditKeyTest() {
        Install_Catalogue(kS2);
        New_Report();
        entries = Load_Edit_Key();
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
    EXPECT_EQ(ProviderName, "The \"New\" Harbor");
    EXPECT_EQ(FYStart, Date_Of(2016, 2, 1));
    EXPECT_EQ(FormNum, "1728");
}

TEST_F(EditKeyTest, RefusedEntryChangesNothing) {
    entries.facilityName = "Short";
    platform.Expect_Box_Starting("Error: Invalid Facility Name", "Facility Name must be at least 8 characters.");
    EXPECT_EQ(Save_Edit_Key(entries), EntryField::Name);
    EXPECT_EQ(Read("SELECT ProviderName FROM Master;"), Value("Harbor Home Health"));
    EXPECT_EQ(ProviderName, "Harbor Home Health");
}

TEST_F(EditKeyTest, SaveAsChangesTheCopyOnly) {
    const std::string before = Bytes(folder.File("Agency.CRF"));
    entries.providerNumber = "15-7200";
    EXPECT_TRUE(Save_Edit_Key_As(entries, folder.File("Copy.CRF")));
    EXPECT_EQ(CRFPath, folder.File("Copy.CRF"));
    EXPECT_EQ(Read("SELECT ProviderNumber FROM Master;"), Value("15-7200"));
    Report_Release();
    EXPECT_EQ(Bytes(folder.File("Agency.CRF")), before);
}

TEST_F(EditKeyTest, FailedSaveAsChangesNothing) {
    platform.Expect_Box_Starting("Error: Save As Request Failed", "PROBLEM Encountered");
    entries.providerNumber = "15-7200";
    EXPECT_FALSE(Save_Edit_Key_As(entries, folder.File("nowhere/Copy.CRF")));
    EXPECT_EQ(Read("SELECT ProviderNumber FROM Master;"), Value("14-7100"));
    EXPECT_EQ(ProviderNumber, "14-7100");
}

}  // namespace tallmar
