#include "db/replay.h"

#include <gtest/gtest.h>

namespace tallmar {
namespace {

class ReplayTest : public testing::Test {
  protected:
    ReplayTest() {
        TableDef table = db_.CreateTableDef("T");
        table.Fields_Append(table.CreateField("LineNum", FieldType::Currency));
        table.Fields_Append(table.CreateField("Label", FieldType::Text, 8));
        db_.TableDefs().Append(table);
    }
    ~ReplayTest() override { db_.Close(); }

    int Rows(const char* where) {
        return db_.Read_Row(std::string("SELECT Count(*) AS Cnt FROM T ") + where)[0].To_Long();
    }

    Database db_ = DBEngine::CreateDatabase("never-written.CRF", "");
};

TEST_F(ReplayTest, DoesAgainWhatWasRecorded) {
    Replay replay(db_, Record_Statements(db_, [&] {
                      db_.Execute("INSERT INTO T (LineNum, Label) VALUES (5.01, 'one');");
                      db_.Execute("INSERT INTO T (LineNum) VALUES (6);");
                  }));
    EXPECT_EQ(Rows(""), 2);
    replay.Run();
    replay.Run();
    EXPECT_EQ(Rows("WHERE LineNum = 5.01 AND Label = 'one'"), 3);
    EXPECT_EQ(Rows("WHERE Label Is Null"), 3);
}

TEST_F(ReplayTest, PreparesEachTextOnce) {
    Replay replay(db_, Record_Statements(db_, [&] {
                      for (const char* line : {"1", "2", "3"}) {
                          db_.Execute(std::string("INSERT INTO T (LineNum) VALUES (") + line + ");");
                      }
                  }));
    replay.Run();
    EXPECT_GE(replay.Statements(), 3U);
    EXPECT_LT(replay.Distinct_Statements(), replay.Statements());
}

TEST_F(ReplayTest, RecordingEndsWithTheWorkEvenWhenItFails) {
    std::size_t before = 0;
    EXPECT_THROW(Record_Statements(db_, [&] { db_.Execute("UPDATE Nowhere SET A = 1;"); }), DbError);
    const auto recorded = Record_Statements(db_, [&] { before = 1; });
    EXPECT_EQ(before, 1U);
    EXPECT_TRUE(recorded.empty());
}

}  // namespace
}  // namespace tallmar
