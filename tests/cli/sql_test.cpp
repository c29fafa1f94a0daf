// What `sql` prints: whole JSON lines, and none of a statement that failed.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli.h"
#include "support/temp_folder.h"

namespace tallmar {

namespace {

struct Ran {
    int status;
    std::string out, err;
};

Ran Run_Tallmar(const std::vector<std::string>& args, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int status = Run_Command_Line(args, in, out, err);
    return {status, out.str(), err.str()};
}

class SqlTest : public testing::Test {
  protected:
    void SetUp() override {
        const Ran made = Run_Tallmar({"new", file_, "--provider", "14-7100", "--start", "2015-10-01", "--end",
                                      "2016-09-30", "--name", "Example Agency"});
        ASSERT_EQ(made.status, 0) << made.err;
    }
    Ran Sql(const std::string& statement, const std::string& input = "") {
        return Run_Tallmar({"sql", file_, statement}, input);
    }

    TempFolder folder_;
    const std::string file_ = folder_.File("a.CRF");
};

}  // namespace

TEST_F(SqlTest, AnActionThatFailsPrintsNothing) {
    const Ran ran = Sql("UPDATE A SET Col_1 = 1/0");
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "");
    EXPECT_NE(ran.err.find("Division by zero"), std::string::npos) << ran.err;
}

TEST_F(SqlTest, ALineThatFailsTakesTheLinesBeforeItBack) {
    const Ran ran =
        Sql("-", "CREATE TABLE T (N Long);\nINSERT INTO T VALUES (7);\nSELECT N FROM T;\nDELETE FROM Tt;\n");
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "") << "what was taken back is not told as done";
    EXPECT_EQ(Sql("SELECT N FROM T").status, 1);
}

TEST_F(SqlTest, RowsComeInTheirOrderAsJsonLines) {
    EXPECT_EQ(Sql("SELECT TOP 2 LineNum FROM A WHERE LineNum < 5 ORDER BY LineNum DESC, CCName").out,
              "{\"LineNum\":4}\n{\"LineNum\":3}\n");
}

}  // namespace tallmar
