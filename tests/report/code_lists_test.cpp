#include "report/code_lists.h"

#include "support/report_test.h"

namespace tallmar {

using CodeListsTest = ReportTest;

TEST_F(CodeListsTest, CodesStandInTheOrderOfTheLinesAndPadded) {
    Empty_Database();
    db.Execute("CREATE TABLE S3p3 (LineNum Currency, Col_1 Text(6), Col_2 Text(6));");
    db.Execute("INSERT INTO S3p3 (LineNum, Col_1) VALUES (28, \"7\");");
    db.Execute("INSERT INTO S3p3 (LineNum, Col_1, Col_2) VALUES (29.01, \"520\", Null);");
    db.Execute("INSERT INTO S3p3 (LineNum, Col_1, Col_2) VALUES (29, \"1600\", \"16974\");");
    db.Execute("INSERT INTO S3p3 (LineNum, Col_1, Col_2) VALUES (29.02, \"\", \"1234\");");
    gblMSACodes = {"old"};
    Load_MSA();
    EXPECT_EQ(gblMSACodes, (std::vector<std::string>{"1600", "0520"}));
    EXPECT_EQ(gblCBSACodes, (std::vector<std::string>{"16974", "01234"}));
}

TEST_F(CodeListsTest, ReportWithoutTheWorksheetHasNoCodes) {
    Empty_Database();
    gblMSACodes = {"old"};
    Load_MSA();
    EXPECT_TRUE(gblMSACodes.empty());
}

}  // namespace tallmar
