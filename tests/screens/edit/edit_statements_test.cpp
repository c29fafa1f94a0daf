// What an entry costs: the statements that reach the file for one table.
#include "db/statement_log.h"
#include "report/open_report.h"
#include "screens/edit/edit_test.h"

namespace tallmar {

namespace {

// Counts the statements of a table while it lives: those of one row, and those of all rows that the form shows.
class Counted {
  public:
    explicit Counted(const std::string& table) {
        Set_Statement_Log(db, [this, name = '"' + table + '"'](std::string_view sql, const std::vector<StoredValue>&) {
            if (sql.find(name) == std::string_view::npos) return;
            if (sql.starts_with("UPDATE")) ++updates;
            if (sql.find("ORDER BY t0.\"LineNum\"") != std::string_view::npos) ++tables;
            if (sql.starts_with("SELECT") && sql.find("t0.\"LineNum\"=") != std::string_view::npos) ++rows;
        });
    }
    ~Counted() { Set_Statement_Log(db, {}); }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    int updates = 0;
    int rows = 0;    // SELECTs of one
    int tables = 0;  // SELECTs of all
};

}  // namespace

TEST(EditStatements, AFormReadsItsTableOnce) {
    Report r(fy2016);
    for (const char* item : {"A", "S2", "S21", "A5"}) {
        const Counted counted(item);
        const Screen s(item);
        EXPECT_EQ(counted.tables, 1) << item;
    }
}

TEST(EditStatements, AKeyedRowIsOneUpdateAndOneSelect) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    const Counted counted("A");
    s.Type("5");
    s.Press(Qt::Key_Tab);
    s.Type("7");
    EXPECT_TRUE(s.grd.Commit());
    EXPECT_CELL("A", 6, 1, 5_cur);
    EXPECT_EQ(counted.updates, 1);
    EXPECT_EQ(counted.rows, 1 + 1) << "that of the row, and that of this test";
    EXPECT_EQ(counted.tables, 0);
}

TEST(EditStatements, AnAnswerThatOpensOtherLinesReadsNoOtherRow) {
    Report r(fy2016);
    Screen s("S21");
    s.At(6, 1);
    EXPECT_EQ(s.form.Model().flags(s.Index(7, 1)) & Qt::ItemIsEditable, 0);
    const Counted counted("S21");
    s.grd.Enter_Text(s.Index(6, 1), "Y");
    EXPECT_TRUE(s.grd.Commit());
    EXPECT_EQ(counted.updates, 1);
    EXPECT_EQ(counted.tables, 0);
    EXPECT_NE(s.form.Model().flags(s.Index(7, 1)) & Qt::ItemIsEditable, 0);
}

TEST(EditStatements, WhereOtherRowsMayFollowTheTableIsReadOnce) {
    Report r(fy2016);
    Screen s("S2");
    s.At(10, 1);
    const Counted counted("S2");
    s.grd.Enter_Text(s.Index(10, 1), "12");
    EXPECT_TRUE(s.grd.Commit());
    EXPECT_EQ(counted.updates, 1);
    EXPECT_EQ(counted.tables, 1);
}

TEST(EditStatements, ARowIsReadBeforeItIsStoredOnlyWhereTheFileHasChanged) {
    Report r(fy2016);
    Screen s("A");
    s.At(6, 1);
    s.grd.Enter_Text(s.Index(6, 1), "5");
    r.Cell("A", 7, 1, 99_cur);
    const Counted counted("A");
    EXPECT_TRUE(s.grd.Commit());
    EXPECT_EQ(counted.rows, 2);
}

}  // namespace tallmar
