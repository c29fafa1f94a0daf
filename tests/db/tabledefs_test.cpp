#include <gtest/gtest.h>

#include "db/database.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

class TableDefsTest : public DbTest {
  protected:
    void SetUp() override {
        Job job(db);
        Make_Table(db, "A", {{"LineNum", FieldType::Currency}, {"Label", FieldType::Text, 40}});
        Run("CREATE UNIQUE INDEX ndx ON A (LineNum)");
        Run("INSERT INTO A (LineNum, Label) VALUES (5.01, 'first')");
        job.Keep();
    }
};

TEST_F(TableDefsTest, EveryTypeIsReadBackFromTheFile) {
    Make_Table(db, "Types",
               {{"f1", FieldType::Boolean},
                {"f2", FieldType::Byte},
                {"f3", FieldType::Integer},
                {"f4", FieldType::Long},
                {"f5", FieldType::Currency},
                {"f6", FieldType::Single},
                {"f7", FieldType::Double},
                {"f8", FieldType::Date},
                {"f9", FieldType::Text, 17},
                {"f10", FieldType::Memo},
                {"f11", FieldType::Char, 3}});
    const TableShape before = db.TableDefs().Item("Types").Shape();
    Reopen();
    const TableShape after = db.TableDefs().Item("types").Shape();
    EXPECT_EQ(after.name, "Types");
    EXPECT_EQ(after.fields, before.fields);
    EXPECT_EQ(after.fields[8].size, 17);
    EXPECT_EQ(after.fields[10].type, FieldType::Char);
}

TEST_F(TableDefsTest, ATextFieldWithoutASizeHas255) {
    EXPECT_EQ(db.CreateTableDef("X").CreateField("t", FieldType::Text).size, 255);
    EXPECT_EQ(db.CreateTableDef("X").CreateField("t", FieldType::Memo).size, 0);
}

TEST_F(TableDefsTest, TablesStandInNameOrderWithoutRegardToCase) {
    Make_Table(db, "b1", {{"x", FieldType::Long}});
    Make_Table(db, "C", {{"x", FieldType::Long}});
    ASSERT_EQ(db.TableDefs().Count(), 3);
    EXPECT_EQ(db.TableDefs().Item(0).Name(), "A");
    EXPECT_EQ(db.TableDefs().Item(1).Name(), "b1");
    EXPECT_EQ(db.TableDefs().Item(2).Name(), "C");
    EXPECT_TRUE(db.TableDefs().Has("B1"));
    EXPECT_FALSE(db.TableDefs().Has("D"));
    EXPECT_EQ(Code_Of([&] { db.TableDefs().Item(3); }), DbErrorCode::ItemNotFound);
    EXPECT_EQ(Code_Of([&] { db.TableDefs().Item("D"); }), DbErrorCode::ItemNotFound);
}

TEST_F(TableDefsTest, ATableOfTheSameNameIsRefused) {
    TableDef table = db.CreateTableDef("a");
    table.Fields_Append(table.CreateField("x", FieldType::Long));
    EXPECT_EQ(Code_Of([&] { db.TableDefs().Append(table); }), DbErrorCode::TableExists);
}

TEST_F(TableDefsTest, ATableWithoutFieldsIsRefused) {
    TableDef table = db.CreateTableDef("Empty");
    EXPECT_EQ(Code_Of([&] { db.TableDefs().Append(table); }), DbErrorCode::InvalidOperation);
}

TEST_F(TableDefsTest, ADoubledFieldIsRefused) {
    TableDef table = db.CreateTableDef("D");
    table.Fields_Append(table.CreateField("x", FieldType::Long));
    EXPECT_EQ(Code_Of([&] { table.Fields_Append(table.CreateField("X", FieldType::Long)); }), DbErrorCode::FieldExists);
    TableDef known = db.TableDefs().Item("A");
    EXPECT_EQ(Code_Of([&] { known.Fields_Append(known.CreateField("LINENUM", FieldType::Long)); }),
              DbErrorCode::FieldExists);
}

TEST_F(TableDefsTest, ADeletedTableIsGone) {
    db.TableDefs().Delete("a");
    EXPECT_FALSE(db.TableDefs().Has("A"));
    EXPECT_EQ(Code_Of([&] { db.TableDefs().Delete("A"); }), DbErrorCode::UnknownTable);
    EXPECT_EQ(Code_Of([&] { Rows(db, "A"); }), DbErrorCode::UnknownTable);
}

TEST_F(TableDefsTest, ARenamedTableKeepsItsRowsAndItsIndex) {
    TableDef table = db.TableDefs().Item("A");
    table.Name("A6pC");
    EXPECT_EQ(Rows(db, "A6pC"), "5.01|first;");
    EXPECT_EQ(Code_Of([&] { Rows(db, "A"); }), DbErrorCode::UnknownTable);
    EXPECT_EQ(Code_Of([&] { Run("INSERT INTO A6pC (LineNum) VALUES (5.01)"); }), DbErrorCode::DuplicateKey);
    Reopen();
    ASSERT_NE(db.TableDefs().Item("A6pC").Shape().Find_Index("ndx"), nullptr);
    EXPECT_TRUE(db.TableDefs().Item("A6pC").Shape().Find_Index("ndx")->unique);
}

TEST_F(TableDefsTest, ANewTableMayTakeTheNameThatARenamedOneLeft) {
    db.TableDefs().Item("A").Name("Old");
    Make_Table(db, "A", {{"LineNum", FieldType::Currency}});
    Run("CREATE UNIQUE INDEX ndx ON A (LineNum)");
    EXPECT_EQ(Rows(db, "A"), "");
    EXPECT_EQ(Rows(db, "Old"), "5.01|first;");
}

TEST_F(TableDefsTest, ATableIsRenamedToItselfInOtherLetters) {
    db.TableDefs().Item("A").Name("a");
    EXPECT_EQ(db.TableDefs().Item(0).Name(), "a");
    Reopen();
    EXPECT_EQ(db.TableDefs().Item(0).Name(), "a");
    EXPECT_EQ(Rows(db, "A"), "5.01|first;");
}

TEST_F(TableDefsTest, ANameThatIsTakenIsRefused) {
    Make_Table(db, "B", {{"x", FieldType::Long}});
    TableDef table = db.TableDefs().Item("A");
    EXPECT_EQ(Code_Of([&] { table.Name("b"); }), DbErrorCode::TableExists);
    EXPECT_EQ(Rows(db, "A"), "5.01|first;");
}

TEST_F(TableDefsTest, AnAppendedFieldIsNullInEveryRow) {
    TableDef table = db.TableDefs().Item("A");
    table.Fields_Append(table.CreateField("Col_1", FieldType::Currency));
    EXPECT_EQ(table.Fields_Count(), 3);
    EXPECT_EQ(Rows(db, "A"), "5.01|first|-;");
    Reopen();
    EXPECT_EQ(Rows(db, "SELECT Col_1 FROM A"), "-;");
}

TEST_F(TableDefsTest, ADeletedFieldIsGone) {
    TableDef table = db.TableDefs().Item("A");
    table.Fields_Delete("label");
    EXPECT_EQ(Rows(db, "A"), "5.01;");
    EXPECT_EQ(Code_Of([&] { table.Fields_Delete("Label"); }), DbErrorCode::UnknownField);
    Reopen();
    EXPECT_EQ(db.TableDefs().Item("A").Fields_Count(), 1);
}

TEST_F(TableDefsTest, AFieldThatAnIndexHoldsIsNotDeleted) {
    TableDef table = db.TableDefs().Item("A");
    EXPECT_EQ(Code_Of([&] { table.Fields_Delete("LineNum"); }), DbErrorCode::InvalidOperation);
    EXPECT_EQ(Rows(db, "A"), "5.01|first;");
}

TEST_F(TableDefsTest, ARenamedFieldIsRenamedInItsIndexToo) {
    TableDef table = db.TableDefs().Item("A");
    table.Field_Name("LineNum", "CCNum");
    table.Field_Name("label", "LABEL");
    EXPECT_EQ(table.Shape().fields[0].name, "CCNum");
    EXPECT_EQ(Rows(db, "SELECT CCNum, Label FROM A"), "5.01|first;");
    EXPECT_EQ(Code_Of([&] { Rows(db, "SELECT LineNum FROM A"); }), DbErrorCode::UnknownField);
    Reopen();
    const TableShape shape = db.TableDefs().Item("A").Shape();
    EXPECT_EQ(shape.fields[1].name, "LABEL");
    EXPECT_EQ(shape.indexes.at(0).fields.at(0), "CCNum");
    EXPECT_EQ(Code_Of([&] { Run("INSERT INTO A (CCNum) VALUES (5.01)"); }), DbErrorCode::DuplicateKey);
}

TEST_F(TableDefsTest, AnIndexNameBelongsToItsTable) {
    Make_Table(db, "B", {{"x", FieldType::Long}});
    Run("CREATE UNIQUE INDEX ndx ON B (x)");
    EXPECT_EQ(Code_Of([&] { Run("CREATE UNIQUE INDEX NDX ON B (x)"); }), DbErrorCode::IndexExists);
}

TEST_F(TableDefsTest, DoubledKeysKeepAUniqueIndexAway) {
    Run("INSERT INTO A (LineNum, Label) VALUES (6, 'first')");
    EXPECT_EQ(Error_Of([&] { Run("CREATE UNIQUE INDEX two ON A (Label)"); }),
              "Duplicate value in the unique index of 'A'");
    EXPECT_EQ(db.TableDefs().Item("A").Shape().Find_Index("two"), nullptr);
}

TEST_F(TableDefsTest, ANullKeepsAnIndexAwayThatRefusesIt) {
    Run("INSERT INTO A (LineNum) VALUES (6)");
    EXPECT_EQ(Error_Of([&] { Run("CREATE UNIQUE INDEX two ON A (Label) WITH DISALLOW NULL"); }),
              "The field 'Label' cannot be Null");
    Run("UPDATE A SET Label = 'x' WHERE LineNum = 6");
    Run("CREATE UNIQUE INDEX two ON A (Label) WITH DISALLOW NULL");
    Reopen();
    EXPECT_TRUE(db.TableDefs().Item("A").Shape().Disallows_Null("Label"));
    EXPECT_EQ(Code_Of([&] { Run("UPDATE A SET Label = Null"); }), DbErrorCode::NullNotAllowed);
}

TEST_F(TableDefsTest, AStatementCompiledBeforeSeesTheNewDesign) {
    EXPECT_EQ(Rows(db, "SELECT * FROM A"), "5.01|first;");
    TableDef table = db.TableDefs().Item("A");
    table.Fields_Append(table.CreateField("Col_1", FieldType::Long));
    EXPECT_EQ(Rows(db, "SELECT * FROM A"), "5.01|first|-;");
    db.TableDefs().Delete("A");
    Make_Table(db, "A", {{"x", FieldType::Text, 5}});
    Run("INSERT INTO A (x) VALUES ('abc')");
    EXPECT_EQ(Rows(db, "SELECT * FROM A"), "abc;");
}

TEST_F(TableDefsTest, NamesWithBlanksAndMarksAreKept) {
    Make_Table(db, "My \"odd\" table", {{"a b", FieldType::Long}, {"x!y", FieldType::Text, 5}});
    const std::string before = Dump(db);
    Reopen();
    EXPECT_EQ(Dump(db), before);
}

TEST_F(TableDefsTest, NamesOfTheRowKeyAreRefused) {
    TableDef table = db.CreateTableDef("K");
    EXPECT_EQ(Code_Of([&] { table.Fields_Append(table.CreateField("RowId", FieldType::Long)); }),
              DbErrorCode::InvalidOperation);
}

TEST_F(TableDefsTest, RefreshTellsThatTheFileIsClosed) {
    TableDefs tables = db.TableDefs();
    tables.Refresh();
    db.Close();
    EXPECT_EQ(Code_Of([&] { tables.Refresh(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { db.TableDefs().Refresh(); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([&] { tables.Delete("A"); }), DbErrorCode::DatabaseClosed);
    EXPECT_EQ(Code_Of([] { Database().TableDefs(); }), DbErrorCode::DatabaseClosed);
}

}  // namespace
}  // namespace tallmar
