#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "db/database.h"
#include "db/db_fixture.h"
#include "db/statement_cache.h"
#include "db/statement_log.h"

namespace tallmar {
namespace {

class ExecuteTest : public DbTest {
  protected:
    void SetUp() override {
        Job job(db);
        Make_Table(db, "A",
                   {{"LineNum", FieldType::Currency}, {"Col_1", FieldType::Currency}, {"t", FieldType::Text, 5}});
        Run("CREATE UNIQUE INDEX ndx ON A (LineNum) WITH DISALLOW NULL");
        for (const char* values : {"(1, 10, 'a')", "(2, 20, 'b')", "(3, 30, 'c')"}) {
            Run("INSERT INTO A (LineNum, Col_1, t) VALUES " + std::string(values));
        }
        Make_Table(db, "B", {{"LineNum", FieldType::Currency}, {"Add", FieldType::Currency}});
        job.Keep();
    }
};

TEST_F(ExecuteTest, TellsTheRowsChanged) {
    EXPECT_EQ(db.Execute("UPDATE A SET Col_1 = Col_1 + 1 WHERE LineNum >= 2"), 2);
    EXPECT_EQ(db.Execute("UPDATE A SET Col_1 = 0 WHERE LineNum = 99"), 0);
    EXPECT_EQ(db.Execute("INSERT INTO B (LineNum, Add) SELECT LineNum, Col_1 FROM A"), 3);
    EXPECT_EQ(db.Execute("DELETE * FROM B WHERE LineNum < 3"), 2);
    EXPECT_EQ(db.Execute("SELECT * INTO C FROM A"), 3);
    EXPECT_EQ(db.Execute("DROP TABLE C"), 0);
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A"), "10;21;31;");
}

TEST_F(ExecuteTest, ASelectIsNotExecuted) {
    EXPECT_EQ(Code_Of([&] { Run("SELECT * FROM A"); }), DbErrorCode::InvalidOperation);
}

TEST_F(ExecuteTest, TellsASelectFromAnAction) {
    EXPECT_TRUE(Database::Is_Select("select * from A"));
    EXPECT_TRUE(Database::Is_Select("SELECT [INTO] FROM A WHERE t = 'x INTO y'"));
    EXPECT_FALSE(Database::Is_Select("SELECT A.* INTO B FROM A"));
    EXPECT_FALSE(Database::Is_Select("INSERT INTO A SELECT * FROM B"));
    EXPECT_FALSE(Database::Is_Select("UPDATE A SET t = 'SELECT'"));
}

TEST_F(ExecuteTest, AFailureInTheMiddleChangesNothing) {
    EXPECT_EQ(Code_Of([&] { Run("UPDATE A SET t = t & IIF(LineNum = 3, '123456', '')"); }), DbErrorCode::TextTooLong);
    EXPECT_EQ(Code_Of([&] { Run("UPDATE A SET LineNum = 7"); }), DbErrorCode::DuplicateKey);
    EXPECT_EQ(Code_Of([&] { Run("INSERT INTO A (LineNum) SELECT LineNum + 2 FROM A"); }), DbErrorCode::DuplicateKey);
    EXPECT_EQ(Rows(db, "A"), "1|10|a;2|20|b;3|30|c;");
}

TEST_F(ExecuteTest, ASelectIntoThatFailsLeavesNoTable) {
    EXPECT_EQ(Code_Of([&] { Run("SELECT LineNum, 1 / (Col_1 - 30) AS x INTO C FROM A"); }),
              DbErrorCode::DivisionByZero);
    EXPECT_FALSE(db.TableDefs().Has("C"));
    EXPECT_EQ(Code_Of([&] { Run("SELECT * INTO B FROM A"); }), DbErrorCode::TableExists);
}

TEST_F(ExecuteTest, ASelectIntoKeepsTypesAndSizes) {
    Run("SELECT A.* INTO C FROM A WHERE LineNum = 0");
    EXPECT_EQ(db.TableDefs().Item("C").Shape().fields, db.TableDefs().Item("A").Shape().fields);
    EXPECT_EQ(Rows(db, "C"), "");
}

TEST_F(ExecuteTest, EveryMatchOfAJoinIsApplied) {
    Run("INSERT INTO B (LineNum, Add) VALUES (2, 5)");
    Run("INSERT INTO B (LineNum, Add) VALUES (1, 7)");
    Run("INSERT INTO B (LineNum, Add) VALUES (2, 11)");
    EXPECT_EQ(db.Execute("UPDATE A INNER JOIN B ON A.LineNum = B.LineNum SET A.Col_1 = A.Col_1 + B.Add"), 3);
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A"), "17;36;30;");
}

TEST_F(ExecuteTest, AMatchThatFailsTakesThoseBeforeItBack) {
    Run("INSERT INTO B (LineNum, Add) VALUES (1, 5)");
    Run("INSERT INTO B (LineNum, Add) VALUES (2, 4)");
    const char* sql = "UPDATE A INNER JOIN B ON A.LineNum = B.LineNum SET A.LineNum = B.Add + B.LineNum";
    EXPECT_EQ(Code_Of([&] { Run(sql); }), DbErrorCode::DuplicateKey);
    EXPECT_EQ(Rows(db, "SELECT LineNum FROM A"), "1;2;3;");
    Job job(db);
    EXPECT_EQ(Code_Of([&] { Run(sql); }), DbErrorCode::DuplicateKey);
    EXPECT_EQ(Rows(db, "SELECT LineNum FROM A"), "1;2;3;");
}

struct OracleRow {
    int key;
    double value;
};

void Fill(Database& db, const char* table, const std::vector<OracleRow>& rows) {
    db.Execute(std::string("DELETE * FROM ") + table);
    for (const OracleRow& row : rows) {
        db.Execute("INSERT INTO " + std::string(table) + " (k, v) VALUES (" + std::to_string(row.key) + ", " +
                   std::to_string(static_cast<int>(row.value)) + ")");
    }
}

std::vector<OracleRow> Random_Rows(std::mt19937& random) {
    std::vector<OracleRow> rows(random() % 6);
    for (OracleRow& row : rows) row = {static_cast<int>(random() % 4), static_cast<double>(random() % 10)};
    return rows;
}

std::string Values(const std::vector<OracleRow>& rows) {
    std::string text;
    for (const OracleRow& row : rows) text += Value(row.value).To_Text() + ";";
    return text;
}

// Doubling before adding shows the order of the matches.
TEST_F(ExecuteTest, AJoinUpdatesAsALoopOverItsMatchesWould) {
    const Job job(db);
    Make_Table(db, "T", {{"k", FieldType::Long}, {"v", FieldType::Double}});
    Make_Table(db, "S", {{"k", FieldType::Long}, {"v", FieldType::Double}});
    std::mt19937 random(1728);
    for (int round = 0; round < 150; ++round) {
        std::vector<OracleRow> target = Random_Rows(random);
        const std::vector<OracleRow> source = Random_Rows(random);
        Fill(db, "T", target);
        Fill(db, "S", source);
        std::int64_t matches = 0;
        for (const OracleRow& s : source) {
            for (OracleRow& t : target) {
                if (t.key != s.key) continue;
                t.value = t.value * 2 + s.value;
                ++matches;
            }
        }
        EXPECT_EQ(db.Execute("UPDATE T INNER JOIN S ON T.k = S.k SET T.v = T.v * 2 + S.v"), matches);
        EXPECT_EQ(Rows(db, "SELECT v FROM T"), Values(target)) << "round " << round;
    }
}

// The table reads itself: a match sees what every match before it has left, in its own row and in the others.
TEST_F(ExecuteTest, ATableJoinedToItselfUpdatesAsALoopWould) {
    const Job job(db);
    Make_Table(db, "T", {{"k", FieldType::Long}, {"v", FieldType::Double}});
    std::mt19937 random(94);
    for (int round = 0; round < 150; ++round) {
        std::vector<OracleRow> rows = Random_Rows(random);
        Fill(db, "T", rows);
        for (std::size_t u = 0; u < rows.size(); ++u) {
            for (OracleRow& t : rows) {
                if (t.key == rows[u].key + 1) t.value = t.value * 2 + rows[u].value;
            }
        }
        Run("UPDATE T, T AS U SET T.v = T.v * 2 + U.v WHERE T.k = U.k + 1");
        EXPECT_EQ(Rows(db, "SELECT v FROM T"), Values(rows)) << "round " << round;
    }
}

TEST_F(ExecuteTest, LiteralsShareOneStatement) {
    std::vector<std::string> ran;
    Run("UPDATE A SET Col_1 = 1 WHERE LineNum = 1");
    Set_Statement_Log(db, [&](std::string_view sql, const std::vector<StoredValue>& values) {
        ran.emplace_back(sql);
        EXPECT_EQ(values.size(), 2u);
    });
    Run("UPDATE A SET Col_1 = 2 WHERE LineNum = 2");
    Run("update A set Col_1 = 3  where LineNum = 3");
    Set_Statement_Log(db, nullptr);
    Run("UPDATE A SET Col_1 = 4 WHERE LineNum = 99");
    ASSERT_EQ(ran.size(), 2u);
    EXPECT_EQ(ran[0], ran[1]);
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A"), "1;2;3;");
}

TEST_F(ExecuteTest, TheLogHoldsTheParametersAsTheyAreStored) {
    std::vector<StoredValue> last;
    Set_Statement_Log(db, [&](std::string_view, const std::vector<StoredValue>& values) { last = values; });
    Run("UPDATE A SET t = 'it''s' WHERE LineNum = 2.5");
    EXPECT_EQ(last, (std::vector<StoredValue>{std::string("it's"), std::int64_t{25'000}}));
}

TEST_F(ExecuteTest, ACacheOfOneStatementChangesNoResult) {
    Set_Statement_Cache_Size(db, 1);
    Recordset rs = db.OpenRecordset("A");
    for (int i = 0; i < 3; ++i) {
        Run("UPDATE A SET Col_1 = Col_1 + 1 WHERE LineNum = 1");
        Run("UPDATE A SET Col_1 = Col_1 + 2");
        rs.Edit();
        rs.Fields("t").Set(Value(i));
        rs.Update();
        rs.MoveNext();
    }
    EXPECT_EQ(Rows(db, "A"), "1|19|0;2|26|1;3|36|2;");
}

TEST_F(ExecuteTest, AClosedFileExecutesNothing) {
    db.Close();
    EXPECT_EQ(Error_Of([&] { Run("DELETE * FROM A"); }), "The database is closed");
    EXPECT_EQ(Code_Of([] { Database().Execute("DELETE * FROM A"); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { db.OpenRecordset("A"); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { db.Read_Row("SELECT * FROM A"); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { db.Close(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(db.Path(), path);
}

}  // namespace
}  // namespace tallmar
