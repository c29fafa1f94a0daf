#include <gtest/gtest.h>

#include "db/database.h"
#include "db/db_fixture.h"
#include "db/statement_log.h"

namespace tallmar {
namespace {

class RecordsetTest : public DbTest {
  protected:
    void SetUp() override {
        Job job(db);
        Make_Table(db, "A",
                   {{"LineNum", FieldType::Currency},
                    {"Label", FieldType::Text, 10},
                    {"Col_1", FieldType::Currency},
                    {"Hours", FieldType::Double},
                    {"Done", FieldType::Boolean},
                    {"Made", FieldType::Date}});
        Run("CREATE UNIQUE INDEX ndx ON A (LineNum) WITH DISALLOW NULL");
        Run("INSERT INTO A (LineNum, Label, Col_1) VALUES (3, 'three', 30)");
        Run("INSERT INTO A (LineNum, Label, Col_1) VALUES (1, 'one', 10)");
        Run("INSERT INTO A (LineNum, Label, Col_1) VALUES (2.5, 'half', 25)");
        Run("INSERT INTO A (LineNum, Label, Col_1) VALUES (5, 'five', 10)");
        job.Keep();
    }
    static std::string Label(const Recordset& rs) { return rs["Label"].To_Text(); }
    std::string Labels() { return Rows(db, "SELECT Label FROM A"); }
};

TEST_F(RecordsetTest, RowsComeInTheOrderInWhichTheyWereInserted) {
    std::string labels;
    for (Recordset rs = db.OpenRecordset("A"); !rs.Eof(); rs.MoveNext()) labels += Label(rs) + " ";
    EXPECT_EQ(labels, "three one half five ");
}

// The statements of the recordset end through the connection: it must outlive them.
TEST_F(RecordsetTest, TheLastOwnerOfAConnectionClosesIt) {
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(Label(rs), "three");
    db = Database();
    rs.Close();
    EXPECT_EQ(Code_Of([&] { rs.MoveNext(); }), DbErrorCode::InvalidOperation);
    EXPECT_TRUE(DBEngine::OpenDatabase(path).Is_Open());
}

TEST_F(RecordsetTest, ValuesComeInTheTypesOfTheirFields) {
    Run("UPDATE A SET Hours = 1.5, Done = True, Made = #10/1/2015# WHERE LineNum = 1");
    Recordset rs = db.OpenRecordset("SELECT * FROM A WHERE LineNum = 1");
    EXPECT_EQ(rs["LineNum"], Value(Currency(1)));
    EXPECT_EQ(rs["Label"], Value("one"));
    EXPECT_EQ(rs["Hours"], Value(1.5));
    EXPECT_EQ(rs["Done"], Value(true));
    EXPECT_EQ(rs["Made"], Value(Date{42278}));
    EXPECT_EQ(rs.Fields("label").Type(), FieldType::Text);
    EXPECT_EQ(rs.Fields("label").Size(), 10);
    EXPECT_EQ(rs.Fields("label").Name(), "Label");
    EXPECT_EQ(rs.Fields(0).Name(), "LineNum");
    EXPECT_EQ(rs.Fields_Count(), 6);
}

TEST_F(RecordsetTest, AnUnknownFieldIsNotFound) {
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(Error_Of([&] { rs.Fields("Col_9"); }), "Item 'Col_9' not found");
    EXPECT_EQ(Code_Of([&] { rs.Fields(6); }), DbErrorCode::ItemNotFound);
    EXPECT_EQ(Code_Of([&] { rs.Fields(-1); }), DbErrorCode::ItemNotFound);
}

TEST_F(RecordsetTest, AnEmptyRecordsetIsAtBothEnds) {
    Recordset rs = db.OpenRecordset("SELECT * FROM A WHERE LineNum = 99");
    EXPECT_TRUE(rs.Eof());
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(rs.AbsolutePosition(), -1);
    EXPECT_EQ(Code_Of([&] { rs["Label"]; }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.MoveFirst(); }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.MoveLast(); }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.MoveNext(); }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.Edit(); }), DbErrorCode::NoCurrentRecord);
}

TEST_F(RecordsetTest, RecordCountIsWhatHasBeenSeen) {
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(rs.RecordCount(), 1);
    rs.MoveNext();
    EXPECT_EQ(rs.RecordCount(), 2);
    rs.MoveFirst();
    EXPECT_EQ(rs.RecordCount(), 2);
    rs.MoveLast();
    EXPECT_EQ(rs.RecordCount(), 4);
}

TEST_F(RecordsetTest, MovesPassTheEndsOnceAndNoFurther) {
    Recordset rs = db.OpenRecordset("A");
    rs.MovePrevious();
    EXPECT_TRUE(rs.Bof());
    EXPECT_FALSE(rs.Eof());
    EXPECT_EQ(Code_Of([&] { rs.MovePrevious(); }), DbErrorCode::NoCurrentRecord);
    rs.MoveNext();
    EXPECT_EQ(Label(rs), "three");
    rs.MoveLast();
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_FALSE(rs.Bof());
    EXPECT_EQ(Code_Of([&] { rs.MoveNext(); }), DbErrorCode::NoCurrentRecord);
    rs.MovePrevious();
    EXPECT_EQ(Label(rs), "five");
}

TEST_F(RecordsetTest, PositionsAndBookmarksLeadBack) {
    Recordset rs = db.OpenRecordset("A");
    rs.AbsolutePosition(2);
    EXPECT_EQ(Label(rs), "half");
    EXPECT_EQ(rs.AbsolutePosition(), 2);
    const auto mark = rs.Bookmark();
    rs.MoveFirst();
    rs.Bookmark(mark);
    EXPECT_EQ(Label(rs), "half");
    EXPECT_EQ(Code_Of([&] { rs.AbsolutePosition(4); }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.Bookmark(Recordset::BookmarkValue{}); }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Label(rs), "half");
}

TEST_F(RecordsetTest, ACloneHasTheSameRowsAndItsOwnPosition) {
    Recordset rs = db.OpenRecordset("SELECT * FROM A ORDER BY LineNum");
    rs.MoveLast();
    Recordset clone = rs.Clone();
    clone.MoveFirst();
    EXPECT_EQ(Label(clone), "one");
    EXPECT_EQ(Label(rs), "five");
    clone.Bookmark(rs.Bookmark());
    EXPECT_EQ(Label(clone), "five");
}

TEST_F(RecordsetTest, FindsGoByTheOrderOfTheRecordset) {
    Recordset rs = db.OpenRecordset("SELECT * FROM A ORDER BY LineNum DESC");
    rs.FindFirst("Col_1 = 10");
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(Label(rs), "five");
    rs.FindNext("Col_1 = 10");
    EXPECT_EQ(Label(rs), "one");
    rs.FindNext("Col_1 = 10");
    EXPECT_TRUE(rs.NoMatch());
    EXPECT_EQ(Label(rs), "one");
    rs.FindPrevious("Col_1 = 10");
    EXPECT_EQ(Label(rs), "five");
    rs.FindLast("Col_1 >= 25 AND Label Like '*h*'");
    EXPECT_EQ(Label(rs), "half");
}

TEST_F(RecordsetTest, AFindThatFailsKeepsTheCurrentRecord) {
    Recordset rs = db.OpenRecordset("A");
    rs.MoveNext();
    rs.FindFirst("LineNum = 99");
    EXPECT_TRUE(rs.NoMatch());
    EXPECT_EQ(Label(rs), "one");
    rs.FindFirst("LineNum = 2.5");
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(Label(rs), "half");
}

TEST_F(RecordsetTest, AFindStaysWithinTheRowsOfTheRecordset) {
    Recordset rs = db.OpenRecordset("SELECT * FROM A WHERE LineNum > 2");
    rs.FindFirst("Label = 'one'");
    EXPECT_TRUE(rs.NoMatch());
    Run("INSERT INTO A (LineNum, Label) VALUES (9, 'new')");
    rs.FindFirst("Label = 'new'");
    EXPECT_TRUE(rs.NoMatch());
}

TEST_F(RecordsetTest, AFindSeesWhatHasBeenChanged) {
    Recordset rs = db.OpenRecordset("A");
    Run("UPDATE A SET Label = 'moved' WHERE LineNum = 5");
    rs.FindFirst("Label = 'moved'");
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs["LineNum"], Value(Currency(5)));
}

TEST_F(RecordsetTest, ACriterionOutsideTheDialectIsAnError) {
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(Code_Of([&] { rs.FindFirst("Nothing = 1"); }), DbErrorCode::UnknownField);
    EXPECT_EQ(Code_Of([&] { rs.FindFirst("LineNum = = 1"); }), DbErrorCode::SyntaxError);
}

TEST_F(RecordsetTest, OnlyTheFieldsSetAreWritten) {
    std::vector<std::string> written;
    Set_Statement_Log(db, [&](std::string_view sql, const std::vector<StoredValue>&) {
        if (sql.starts_with("UPDATE") || sql.starts_with("INSERT")) written.emplace_back(sql);
    });
    Recordset rs = db.OpenRecordset("A");
    rs.Edit();
    rs.Fields("Col_1").Set(Value(31));
    EXPECT_EQ(rs["Col_1"], Value(Currency(31)));
    rs.Update();
    EXPECT_EQ(rs["Col_1"], Value(Currency(31)));
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(written[0], "UPDATE \"A\" SET \"Col_1\" = ?1 WHERE rowid = ?2");
    EXPECT_EQ(Rows(db, "SELECT Label, Col_1 FROM A WHERE LineNum = 3"), "three|31;");
}

TEST_F(RecordsetTest, AddNewKeepsTheCurrentRecordAndAppendsTheRow) {
    Recordset rs = db.OpenRecordset("A");
    rs.MoveNext();
    rs.AddNew();
    EXPECT_TRUE(rs["Label"].Is_Null());
    rs.Fields("LineNum").Set(Value("7.25"));
    rs.Fields("Label").Set(Value(12));
    EXPECT_EQ(rs["LineNum"], Value(7.25_cur));
    rs.Update();
    EXPECT_EQ(Label(rs), "one");
    rs.MoveLast();
    EXPECT_EQ(rs["LineNum"], Value(7.25_cur));
    EXPECT_EQ(Label(rs), "12");
    EXPECT_EQ(rs.RecordCount(), 5);
    EXPECT_TRUE(rs["Col_1"].Is_Null());
}

TEST_F(RecordsetTest, ARowAddedPastTheEndStaysUnseen) {
    Recordset rs = db.OpenRecordset("A");
    rs.MoveLast();
    rs.MoveNext();
    rs.AddNew();
    rs.Fields("LineNum").Set(Value(8));
    rs.Update();
    EXPECT_TRUE(rs.Eof());
}

TEST_F(RecordsetTest, TheFirstRowOfAnEmptyTableBecomesCurrent) {
    Run("DELETE * FROM A");
    Recordset rs = db.OpenRecordset("A");
    rs.AddNew();
    rs.Fields("LineNum").Set(Value(1));
    rs.Update();
    EXPECT_FALSE(rs.Eof());
    EXPECT_EQ(rs["LineNum"], Value(Currency(1)));
}

TEST_F(RecordsetTest, AValueIsConvertedAndCheckedWhenItIsSet) {
    Recordset rs = db.OpenRecordset("A");
    rs.Edit();
    EXPECT_EQ(Error_Of([&] { rs.Fields("Label").Set(Value("eleven char")); }),
              "The text is too long for the field 'Label'");
    EXPECT_EQ(Code_Of([&] { rs.Fields("Col_1").Set(Value("abc")); }), DbErrorCode::TypeMismatch);
    rs.Fields("Col_1").Set(Value(1.00005));
    EXPECT_EQ(rs["Col_1"], Value(Currency(1)));
    rs.Fields("Col_1").Set(Value(1.00015));
    EXPECT_EQ(rs["Col_1"], Value(1.0002_cur));
    rs.CancelUpdate();
    EXPECT_EQ(rs["Col_1"], Value(Currency(30)));
}

TEST_F(RecordsetTest, SettingAndUpdatingNeedAnEdit) {
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(Code_Of([&] { rs.Fields("Col_1").Set(Value(1)); }), DbErrorCode::NoEdit);
    EXPECT_EQ(Code_Of([&] { rs.Update(); }), DbErrorCode::NoEdit);
    EXPECT_EQ(Code_Of([&] { rs.CancelUpdate(); }), DbErrorCode::NoEdit);
}

TEST_F(RecordsetTest, AMoveGivesUpAnEdit) {
    Recordset rs = db.OpenRecordset("A");
    rs.Edit();
    rs.Fields("Col_1").Set(Value(99));
    rs.MoveNext();
    EXPECT_EQ(Code_Of([&] { rs.Update(); }), DbErrorCode::NoEdit);
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A"), "30;10;25;10;");
}

TEST_F(RecordsetTest, ADoubledKeyNamesTheTable) {
    Recordset rs = db.OpenRecordset("A");
    rs.AddNew();
    rs.Fields("LineNum").Set(Value(3));
    EXPECT_EQ(Error_Of([&] { rs.Update(); }), "Duplicate value in the unique index of 'A'");
    EXPECT_EQ(Labels(), "three;one;half;five;");
}

TEST_F(RecordsetTest, AKeyThatIsLeftOutOrNullIsRefused) {
    Recordset rs = db.OpenRecordset("A");
    rs.AddNew();
    rs.Fields("Label").Set(Value("x"));
    EXPECT_EQ(Error_Of([&] { rs.Update(); }), "The field 'LineNum' cannot be Null");
    rs.Edit();
    rs.Fields("LineNum").Set(Null);
    EXPECT_EQ(Code_Of([&] { rs.Update(); }), DbErrorCode::NullNotAllowed);
    rs.Edit();
    rs.Fields("Label").Set(Null);
    rs.Update();
    EXPECT_EQ(Labels(), "-;one;half;five;");
}

TEST_F(RecordsetTest, AnEditThatSetsNothingIsFine) {
    Recordset rs = db.OpenRecordset("A");
    rs.Edit();
    rs.Update();
    rs.Edit();
    rs.Fields("Label").Set(rs["Label"]);
    rs.Update();
    EXPECT_EQ(Labels(), "three;one;half;five;");
}

TEST_F(RecordsetTest, ADeletedRowIsPassedOver) {
    Recordset rs = db.OpenRecordset("A");
    rs.MoveLast();
    rs.AbsolutePosition(1);
    rs.Delete();
    EXPECT_EQ(Code_Of([&] { rs["Label"]; }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.Delete(); }), DbErrorCode::NoCurrentRecord);
    rs.MoveNext();
    EXPECT_EQ(Label(rs), "half");
    EXPECT_EQ(rs.AbsolutePosition(), 1);
    EXPECT_EQ(rs.RecordCount(), 3);
    rs.MovePrevious();
    EXPECT_EQ(Label(rs), "three");
    EXPECT_EQ(Labels(), "three;half;five;");
}

TEST_F(RecordsetTest, WhenTheLastRowIsDeletedNothingIsLeft) {
    Recordset rs = db.OpenRecordset("SELECT * FROM A WHERE LineNum < 3");
    for (; !rs.Eof(); rs.MoveNext()) rs.Delete();
    EXPECT_TRUE(rs.Eof());
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(Labels(), "three;five;");
}

TEST_F(RecordsetTest, ADynasetReadsARowWhenItComesToIt) {
    Recordset rs = db.OpenRecordset("A");
    Run("UPDATE A SET Label = 'later' WHERE LineNum = 1");
    Run("DELETE * FROM A WHERE LineNum = 2.5");
    rs.MoveNext();
    EXPECT_EQ(Label(rs), "later");
    rs.MoveNext();
    EXPECT_EQ(Code_Of([&] { rs["Label"]; }), DbErrorCode::NoCurrentRecord);
    EXPECT_EQ(Code_Of([&] { rs.Edit(); }), DbErrorCode::NoCurrentRecord);
    rs.MoveNext();
    EXPECT_EQ(Label(rs), "five");
}

TEST_F(RecordsetTest, ASnapshotHoldsItsValues) {
    Recordset rs = db.OpenRecordset("A", RecordsetType::Snapshot);
    Run("UPDATE A SET Label = 'later'");
    Run("DELETE * FROM A WHERE LineNum = 1");
    EXPECT_EQ(Label(rs), "three");
    rs.MoveNext();
    EXPECT_EQ(Label(rs), "one");
    EXPECT_EQ(Code_Of([&] { rs.Edit(); }), DbErrorCode::NotUpdatable);
    EXPECT_EQ(Code_Of([&] { rs.AddNew(); }), DbErrorCode::NotUpdatable);
    EXPECT_EQ(Code_Of([&] { rs.Delete(); }), DbErrorCode::NotUpdatable);
}

TEST_F(RecordsetTest, TotalsAreReadOnly) {
    Recordset rs = db.OpenRecordset("SELECT Sum(Col_1) AS Total FROM A");
    EXPECT_EQ(rs["Total"], Value(Currency(75)));
    EXPECT_EQ(Code_Of([&] { rs.Edit(); }), DbErrorCode::NotUpdatable);
    EXPECT_EQ(Code_Of([&] { rs.FindFirst("Total = 75"); }), DbErrorCode::InvalidOperation);
}

TEST_F(RecordsetTest, AnExpressionIsNotUpdatable) {
    Recordset rs = db.OpenRecordset("SELECT LineNum, Col_1 + 1 AS More FROM A");
    EXPECT_EQ(rs["More"], Value(Currency(31)));
    rs.Edit();
    EXPECT_EQ(Code_Of([&] { rs.Fields("More").Set(Value(1)); }), DbErrorCode::NotUpdatable);
}

TEST_F(RecordsetTest, ThroughAJoinTheFieldsOfOneTableAreUpdated) {
    Make_Table(db, "B", {{"LineNum", FieldType::Currency}, {"Total", FieldType::Currency}});
    Run("INSERT INTO B (LineNum, Total) VALUES (1, 100)");
    Run("INSERT INTO B (LineNum, Total) VALUES (3, 300)");
    Recordset rs = db.OpenRecordset("SELECT A.LineNum, Col_1, Total FROM A INNER JOIN B ON A.LineNum = B.LineNum");
    rs.FindFirst("Total = 100");
    ASSERT_FALSE(rs.NoMatch());
    rs.Edit();
    rs.Fields("Total").Set(Value(101));
    rs.Update();
    EXPECT_EQ(rs["Total"], Value(Currency(101)));
    EXPECT_EQ(Rows(db, "SELECT Total FROM B"), "101;300;");
    rs.Edit();
    rs.Fields("Total").Set(Value(1));
    rs.Fields("Col_1").Set(Value(1));
    EXPECT_EQ(Code_Of([&] { rs.Update(); }), DbErrorCode::NotUpdatable);
    EXPECT_EQ(Rows(db, "SELECT Total FROM B"), "101;300;");
}

TEST_F(RecordsetTest, SeekGoesByTheIndex) {
    Recordset rs = db.OpenRecordset("A", RecordsetType::Table);
    EXPECT_EQ(Label(rs), "three");
    rs.Index("NDX");
    EXPECT_EQ(Label(rs), "one");
    rs.Seek("=", Value(2.5));
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(Label(rs), "half");
    rs.MoveNext();
    EXPECT_EQ(Label(rs), "three");
    rs.Seek("=", Value(4));
    EXPECT_TRUE(rs.NoMatch());
    rs.Seek(">=", Value(4));
    EXPECT_EQ(Label(rs), "five");
    rs.Seek("<", Value(3));
    EXPECT_EQ(Label(rs), "half");
    rs.Seek("=", Null);
    EXPECT_TRUE(rs.NoMatch());
}

TEST_F(RecordsetTest, SeekFindsARowThatCameLater) {
    Recordset rs = db.OpenRecordset("A", RecordsetType::Table);
    rs.Index("ndx");
    Run("INSERT INTO A (LineNum, Label) VALUES (4, 'four')");
    rs.Seek("=", Value(4));
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(Label(rs), "four");
}

TEST_F(RecordsetTest, IndexAndSeekNeedATableRecordset) {
    Recordset rs = db.OpenRecordset("A");
    EXPECT_EQ(Code_Of([&] { rs.Index("ndx"); }), DbErrorCode::InvalidOperation);
    Recordset table = db.OpenRecordset("A", RecordsetType::Table);
    EXPECT_EQ(Code_Of([&] { table.Seek("=", Value(1)); }), DbErrorCode::InvalidOperation);
    EXPECT_EQ(Code_Of([&] { table.Index("none"); }), DbErrorCode::UnknownIndex);
    EXPECT_EQ(Code_Of([&] { db.OpenRecordset("SELECT * FROM A", RecordsetType::Table); }),
              DbErrorCode::InvalidOperation);
}

TEST_F(RecordsetTest, AClosedRecordsetIsAnError) {
    Recordset rs = db.OpenRecordset("A");
    rs.Close();
    EXPECT_EQ(Code_Of([&] { rs.MoveNext(); }), DbErrorCode::InvalidOperation);
    EXPECT_EQ(Code_Of([&] { rs["Label"]; }), DbErrorCode::InvalidOperation);
    EXPECT_EQ(Code_Of([&] { rs.Close(); }), DbErrorCode::InvalidOperation);
}

TEST_F(RecordsetTest, AClosedFileEndsItsRecordsets) {
    Recordset rs = db.OpenRecordset("A");
    Field field = rs.Fields("Label");
    rs.Edit();
    db.Close();
    EXPECT_EQ(Code_Of([&] { rs["Label"]; }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { rs.MoveNext(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { rs.Update(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { rs.FindFirst("LineNum = 1"); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { field.Set(Value("x")); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { field.Value(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { rs.Eof(); }), DbErrorCode::DatabaseClosed);
}

TEST_F(RecordsetTest, TwoRecordsetsOfOneStatementDoNotDisturbEachOther) {
    int pairs = 0;
    for (Recordset outer = db.OpenRecordset("A"); !outer.Eof(); outer.MoveNext()) {
        for (Recordset inner = db.OpenRecordset("A"); !inner.Eof(); inner.MoveNext()) {
            if (outer["Label"] == inner["Label"]) ++pairs;
        }
    }
    EXPECT_EQ(pairs, 4);
}

// What is no SELECT can only be a table's name.
TEST_F(RecordsetTest, AnActionIsNotOpened) {
    EXPECT_EQ(Code_Of([&] { db.OpenRecordset("DELETE * FROM A"); }), DbErrorCode::UnknownTable);
    EXPECT_EQ(Code_Of([&] { db.OpenRecordset("SELECT * INTO B FROM A"); }), DbErrorCode::InvalidOperation);
    EXPECT_EQ(Labels(), "three;one;half;five;");
}

TEST_F(RecordsetTest, ASingleRowIsReadWhole) {
    const Row row = db.Read_Row("SELECT LineNum, Label FROM A WHERE LineNum = 5");
    ASSERT_TRUE(row);
    EXPECT_EQ(row["label"], Value("five"));
    EXPECT_EQ(row[0], Value(Currency(5)));
    EXPECT_EQ(Code_Of([&] { row["Col_9"]; }), DbErrorCode::ItemNotFound);
    const Row none = db.Read_Row("SELECT LineNum FROM A WHERE LineNum = 99");
    EXPECT_FALSE(none);
    EXPECT_TRUE(none["LineNum"].Is_Null());
    EXPECT_EQ(Code_Of([&] { none["Label"]; }), DbErrorCode::ItemNotFound);
}

}  // namespace
}  // namespace tallmar
