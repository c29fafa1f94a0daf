#include "report/master.h"

#include "support/report_test.h"

namespace tallmar {

namespace {

class MasterTest : public ReportTest {
  protected:
    MasterTest() {
        Empty_Database();
        Build_Worksheets();
    }
};

}  // namespace

TEST_F(MasterTest, HoldsTheIdentityAndNoCounts) {
    openReport.FormNum = "1728";
    openReport.ProviderNumber = "14-7100";
    openReport.ProviderName = "St. Mary's \"Harbor\" Home Health";
    openReport.FYStart = Date_Of(2015, 10, 1);
    openReport.FYEnd = Date_Of(2016, 9, 30);
    Build_Master();
    const Row row = db.Read_Row("SELECT * FROM Master;");
    EXPECT_EQ(Count("Master"), 1);
    EXPECT_EQ(row["BuildDate"], Value(platform.Now()));
    EXPECT_EQ(row["FormNum"], Value("1728"));
    EXPECT_EQ(row["ProviderNumber"], Value("14-7100"));
    EXPECT_EQ(row["ProviderName"], Value("St. Mary's \"Harbor\" Home Health"));
    EXPECT_EQ(row["FYStart"], Value(openReport.FYStart));
    EXPECT_EQ(row["FYEnd"], Value(openReport.FYEnd));
    for (const char* field :
         {"AllCCs", "GenSvcCCs", "CapitalCCs", "EmpBenCCs", "BSubTot1", "BSubTot2", "BSubTot3", "B1SubTot"}) {
        EXPECT_TRUE(row[field].Is_Null()) << field;
    }

    openReport.ProviderName.clear();
    openReport.FYEnd = Date{};
    EXPECT_TRUE(Load_Master());
    EXPECT_EQ(openReport.ProviderName, "St. Mary's \"Harbor\" Home Health");
    EXPECT_EQ(openReport.FYEnd, Date_Of(2016, 9, 30));
}

TEST_F(MasterTest, MissingTableOrRowIsToldApart) {
    EXPECT_FALSE(Load_Master());
    Build_Master();
    EXPECT_TRUE(Load_Master());
    db.Execute("DELETE * FROM Master;");
    EXPECT_FALSE(Load_Master());
}

TEST_F(MasterTest, HeaderLinesAreThreeAndEmpty) {
    Build_HeaderLines();
    EXPECT_EQ(Column("SELECT LineNum FROM HeaderLines;"), "1 2 3");
    EXPECT_EQ(Column("SELECT Item FROM Worksheets WHERE Calc_Lvl=999 And Item=\"HeaderLines\";"), "HeaderLines");
    openReport.HeaderLine2 = "old";
    Load_HeaderLines();
    EXPECT_EQ(openReport.HeaderLine2, "");
    db.Execute("UPDATE HeaderLines SET LineText=\"Draft\" WHERE LineNum=2;");
    Load_HeaderLines();
    EXPECT_EQ(openReport.HeaderLine1, "");
    EXPECT_EQ(openReport.HeaderLine2, "Draft");
}

TEST_F(MasterTest, ReportWithoutHeaderLinesHasEmptyOnes) {
    openReport.HeaderLine1 = "old";
    Load_HeaderLines();
    EXPECT_EQ(openReport.HeaderLine1, "");
}

}  // namespace tallmar
