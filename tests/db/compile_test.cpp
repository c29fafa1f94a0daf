// What compiled statements do, on a bare SQLite.
#include <gtest/gtest.h>

#include "common/db_error.h"
#include "db/plan_runner.h"

namespace tallmar {
namespace {

using test::PlanRunner;
using Rows = std::vector<std::string>;

class Compiled : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* statement : {
                 "CREATE TABLE A (LineNum Currency, CCName Text(20), Col_1 Currency, Col_2 Double, N Long, Flag "
                 "Boolean, Made Date)",
                 "CREATE UNIQUE INDEX ndxA ON A (LineNum)",
                 "INSERT INTO A VALUES (5.01, 'Beta', 10.5, 1.5, 3, True, #10/1/2000#)",
                 "INSERT INTO A VALUES (13.2, 'alpha', -2, 2, 1, False, #10/2/2000#)",
                 "INSERT INTO A VALUES (5, 'BETA', Null, Null, Null, Null, Null)",
                 "CREATE TABLE A4 (LineNum Currency, Col_3 Currency, Col_4 Currency)",
                 "INSERT INTO A4 VALUES (1, 5.01, 100)",
                 "INSERT INTO A4 VALUES (2, 5.01, 0.25)",
                 "INSERT INTO A4 VALUES (3, 99, 7)",
             }) {
            runner.Run(statement);
        }
    }

    Rows Run(std::string_view statement) { return runner.Run(statement); }
    std::string One(std::string_view expression, std::string_view where = "LineNum = 5.01") {
        const Rows rows = Run("SELECT " + std::string(expression) + " FROM A WHERE " + std::string(where));
        return rows.size() == 1 ? rows[0] : std::to_string(rows.size()) + " rows";
    }
    std::string Message(std::string_view statement) {
        try {
            Run(statement);
        } catch (const DbError& error) {
            return error.Description();
        }
        return "no error";
    }
    std::string Type_Of_Column(std::string_view expression) {
        return std::string(Type_Name(
            sql::Compile("SELECT " + std::string(expression) + " FROM A", runner.Shapes()).select.columns[0].type));
    }

    PlanRunner runner;
};

TEST_F(Compiled, LineNumbersAreComparedExactly) {
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum = 5.01"), Rows{"5.01"});
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum IN (5, 13.2)"), (Rows{"13.2", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum BETWEEN 5.01 AND 13.20"), (Rows{"5.01", "13.2"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum + .01 = 5.01"), Rows{"5"});
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum = -(-5.01)"), Rows{"5.01"});
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE Int(LineNum) = 5"), (Rows{"5.01", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum = '5.01'"), Rows{"5.01"});
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum IN (5, '13.2', 5.010001)"), (Rows{"13.2", "5"}));
}

TEST_F(Compiled, LineNumbersAreComparedByTheIndex) {
    const sql::Plan plan = sql::Compile("SELECT LineNum FROM A WHERE LineNum BETWEEN 3.01 AND 3.49", runner.Shapes());
    EXPECT_EQ(plan.select.rows.sql,
              "SELECT t0.\"LineNum\" FROM \"A\" AS t0 WHERE (t0.\"LineNum\" BETWEEN ?1 AND ?2) ORDER BY t0.rowid");
    ASSERT_EQ(plan.select.rows.params.size(), 2U);
    EXPECT_EQ(plan.select.rows.params[0].rep, sql::Rep::Currency);
    const auto plans = runner.Rows(
        {"EXPLAIN QUERY PLAN " + sql::Compile("SELECT * FROM A WHERE LineNum=5", runner.Shapes()).select.rows.sql,
         {{sql::Param::From::Literal, 0, sql::Rep::Currency}}},
        sql::Lift("5").literals, {});
    EXPECT_NE(plans[0].find("USING INDEX"), std::string::npos) << plans[0];
}

TEST_F(Compiled, ArithmeticHasItsTypes) {
    EXPECT_EQ(Type_Of_Column("Col_1+1"), "Currency");
    EXPECT_EQ(Type_Of_Column("Col_1*2"), "Currency");
    EXPECT_EQ(Type_Of_Column("Col_1*.9"), "Double");
    EXPECT_EQ(Type_Of_Column("Col_1*Col_1"), "Currency");
    EXPECT_EQ(Type_Of_Column("Col_1/2"), "Double");
    EXPECT_EQ(Type_Of_Column("Col_1+Col_2"), "Double");
    EXPECT_EQ(Type_Of_Column("N+1"), "Long");
    EXPECT_EQ(Type_Of_Column("N+1.5"), "Double");
    EXPECT_EQ(Type_Of_Column("1.5"), "Double");
    EXPECT_EQ(Type_Of_Column("-1.5"), "Double");
    EXPECT_EQ(Type_Of_Column("IIF(N=1,0,Col_1)"), "Currency");
    EXPECT_EQ(Type_Of_Column("IIF(N=1,.5,1.5)"), "Double");
    EXPECT_EQ(Type_Of_Column("N=1"), "Boolean");
    EXPECT_EQ(Type_Of_Column("Made+1"), "Date");
    EXPECT_EQ(Type_Of_Column("Made-Made"), "Double");
    EXPECT_EQ(Type_Of_Column("Sum(Col_1)"), "Currency");
    EXPECT_EQ(Type_Of_Column("Sum(N)"), "Double");
    EXPECT_EQ(Type_Of_Column("Max(Made)"), "Date");
    EXPECT_EQ(Type_Of_Column("Count(*)"), "Long");
    EXPECT_EQ(Type_Of_Column("N & Col_1"), "Text");
    EXPECT_EQ(Type_Of_Column("Int(CCName)"), "Double");
    EXPECT_EQ(Type_Of_Column("Null"), "Text");
}

TEST_F(Compiled, ArithmeticHasItsValues) {
    EXPECT_EQ(One("Col_1*Col_1"), "110.25");
    EXPECT_EQ(One("Col_1 - .0001"), "10.4999");
    EXPECT_EQ(One("Col_1 + Col_2"), "12");
    EXPECT_EQ(One("Col_1 / 4"), "2.625");
    EXPECT_EQ(One("N \\ 2 & \",\" & N Mod 2 & \",\" & N ^ 2"), "1,1,9");
    EXPECT_EQ(One("Int(Col_1 * .9 + .5)"), "9");
    EXPECT_EQ(One("\"CC_\" & Val(Mid$(\"CC_502\",4))-\"1\""), "CC_501");
    EXPECT_EQ(One("\"1\"+\"2\" & \"/\" & 1+\"2\""), "12/3");
    EXPECT_EQ(One("Made + 1"), "10/2/2000");
    EXPECT_EQ(One("Flag & -N"), "-1-3");
    EXPECT_EQ(One("N=3"), "-1");
    EXPECT_EQ(One("Not N=3"), "0");
    EXPECT_EQ(One("(N=3)+1"), "0");
    EXPECT_EQ(One("Round(Col_1,0) & \",\" & Round(Col_2) & \",\" & Round(-Col_1)"), "10,2,-10");
    EXPECT_EQ(One("Col_1 & LineNum & \"\" & Made"), "10.55.0110/1/2000");
}

TEST_F(Compiled, NullIsNullEverywhereButInAJoinOfTexts) {
    EXPECT_EQ(One("Col_1+1", "LineNum=5"), "Null");
    EXPECT_EQ(One("\"a\" & Col_1 & \"b\"", "LineNum=5"), "ab");
    EXPECT_EQ(One("CCName + Null", "LineNum=5"), "Null");
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE Col_1 <> Null"), Rows{});
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE Col_1 = Null"), Rows{});
    EXPECT_EQ(One("IIF(Col_1 > 0, 1/0, \"no\")", "LineNum=5"), "no");
    EXPECT_EQ(One("IsNull(Col_1)", "LineNum=5"), "-1");
    EXPECT_EQ(Run("SELECT Sum(Col_1), Count(Col_1), Count(*), Max(CCName) FROM A WHERE LineNum > 100"),
              Rows{"Null|0|0|Null"});
}

TEST_F(Compiled, OverflowAndDivisionByZeroAreErrors) {
    Run("INSERT INTO A (LineNum, Col_1, N) VALUES (99, 922337203685477.5807, 2147483647)");
    EXPECT_EQ(Message("SELECT Col_1+.0001 FROM A WHERE LineNum=99"), "Overflow");
    EXPECT_EQ(Message("SELECT Col_1+1-Col_1 FROM A WHERE LineNum=99"), "Overflow");
    EXPECT_EQ(Message("SELECT 1 FROM A WHERE Col_1+1>0"), "Overflow");
    EXPECT_EQ(Message("SELECT -Col_1-1 FROM A WHERE LineNum=99"), "Overflow");
    EXPECT_EQ(Message("SELECT IIF(True,Col_1+1,0)-1 FROM A WHERE LineNum=99"), "Overflow");
    EXPECT_EQ(Message("SELECT Sum(Col_1) FROM A"), "Overflow");
    EXPECT_EQ(Message("SELECT N+1 FROM A WHERE LineNum=99"), "Overflow");
    EXPECT_EQ(Message("SELECT N+1-1 FROM A WHERE LineNum=99"), "Overflow");
    EXPECT_EQ(Message("SELECT 1e300*1e300-1 FROM A"), "Overflow");
    EXPECT_EQ(Message("SELECT Int(1e300*1e300) FROM A"), "Overflow");
    EXPECT_EQ(Message("UPDATE A SET Col_1 = 1e300*1e300"), "Overflow");
    EXPECT_EQ(Message("SELECT Col_1/0 FROM A WHERE LineNum=5.01"), "Division by zero");
    EXPECT_EQ(Message("SELECT CCName+1 FROM A WHERE LineNum=5.01"), "Type mismatch: 'Beta'");
    EXPECT_EQ(Message("SELECT 1 FROM A WHERE CCName=1"), "Type mismatch: 'Beta'");
}

TEST_F(Compiled, TextsCompareWithoutRegardToCase) {
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE CCName = 'beta'"), (Rows{"5.01", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE UCase(CCName) = 'Beta'"), (Rows{"5.01", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE Left(CCName,4) IN ('beta')"), (Rows{"5.01", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE CCName BETWEEN 'a' AND 'b'"), Rows{"13.2"});
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE CCName Like(\"B*\")"), (Rows{"5.01", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE CCName Not Like \"[a-b]e?A\""), Rows{"13.2"});
    EXPECT_EQ(Run("SELECT LineNum FROM A ORDER BY CCName"), (Rows{"13.2", "5.01", "5"}));
    EXPECT_EQ(Run("SELECT DISTINCT CCName FROM A"), (Rows{"Beta", "alpha"}));
    EXPECT_EQ(Run("SELECT DISTINCT Mid(CCName,1,4) AS x FROM A ORDER BY x"), (Rows{"alph", "Beta"}));
    EXPECT_EQ(Run("SELECT CCName, Count(*) AS n FROM A GROUP BY CCName"), (Rows{"Beta|2", "alpha|1"}));
    EXPECT_EQ(Run("SELECT Max(CCName), Min(CCName) FROM A WHERE LineNum>5"), Rows{"Beta|alpha"});
}

TEST_F(Compiled, RowsComeInTheirOrder) {
    EXPECT_EQ(Run("SELECT LineNum FROM A"), (Rows{"5.01", "13.2", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A WHERE LineNum > 0"), (Rows{"5.01", "13.2", "5"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A ORDER BY Col_1"), (Rows{"5", "13.2", "5.01"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A ORDER BY Col_1 DESC, CCName"), (Rows{"5.01", "13.2", "5"}));
    EXPECT_EQ(Run("SELECT LineNum, Col_1*2 AS Twice FROM A ORDER BY Twice DESC"),
              (Rows{"5.01|21", "13.2|-4", "5|Null"}));
    EXPECT_EQ(Run("SELECT TOP 1 LineNum FROM A ORDER BY CCName DESC"), Rows{"5"});
    EXPECT_EQ(Run("SELECT LineNum FROM A ORDER BY CCName DESC"), (Rows{"5.01", "5", "13.2"}));
    EXPECT_EQ(Run("SELECT TOP 2 LineNum FROM A"), (Rows{"5.01", "13.2"}));
    EXPECT_EQ(Run("SELECT LineNum FROM A ORDER BY True, Null, Fix(False)"), (Rows{"5.01", "13.2", "5"}));
    EXPECT_EQ(Run("SELECT A4.LineNum, A.LineNum FROM A4, A WHERE A4.LineNum<3 AND A.LineNum>5"),
              (Rows{"1|5.01", "1|13.2", "2|5.01", "2|13.2"}));
}

TEST_F(Compiled, JoinsOfEverySide) {
    EXPECT_EQ(Run("SELECT A.LineNum, A4.LineNum FROM A INNER JOIN A4 ON A.LineNum = A4.Col_3"),
              (Rows{"5.01|1", "5.01|2"}));
    EXPECT_EQ(Run("SELECT A.LineNum, A4.LineNum FROM A LEFT JOIN A4 ON A.LineNum = A4.Col_3"),
              (Rows{"5.01|1", "5.01|2", "13.2|Null", "5|Null"}));
    EXPECT_EQ(Run("SELECT A.LineNum, A4.LineNum FROM A RIGHT JOIN A4 ON A.LineNum = A4.Col_3"),
              (Rows{"5.01|1", "5.01|2", "Null|3"}));
    Run("CREATE TABLE T (K Currency)");
    Run("INSERT INTO T VALUES (3)");
    Run("INSERT INTO T VALUES (2)");
    EXPECT_EQ(Run("SELECT K, A4.LineNum, CCName FROM T LEFT JOIN (A4 INNER JOIN A ON A4.Col_3 = A.LineNum) "
                  "ON T.K = A4.LineNum"),
              (Rows{"3|Null|Null", "2|2|Beta"}));
    EXPECT_EQ(Run("SELECT K, A4.LineNum, CCName FROM (A4 LEFT JOIN A ON A4.Col_3 = A.LineNum) RIGHT JOIN T "
                  "ON T.K = A4.LineNum"),
              (Rows{"3|3|Null", "2|2|Beta"}));
    EXPECT_EQ(Run("SELECT x.K, y.K FROM T AS x, T y"), (Rows{"3|3", "3|2", "2|3", "2|2"}));
    EXPECT_EQ(Run("SELECT x.K, A4.LineNum, A.CCName FROM T x, A4 RIGHT JOIN A ON A4.Col_3 = A.LineNum WHERE x.K=2"),
              (Rows{"2|1|Beta", "2|2|Beta", "2|Null|alpha", "2|Null|BETA"}));
}

TEST_F(Compiled, OutputNamesAreTold) {
    const auto names = [&](std::string_view statement) {
        std::string all;
        for (const sql::OutputColumn& column : sql::Compile(statement, runner.Shapes()).select.columns)
            all += column.name + " ";
        return all;
    };
    EXPECT_EQ(names("SELECT linenum, N+1, CCName AS Name, 2 FROM A"), "LineNum Expr1000 Name Expr1001 ");
    EXPECT_EQ(names("SELECT * FROM A4 AS x, A"), "x.LineNum Col_3 Col_4 A.LineNum CCName Col_1 Col_2 N Flag Made ");
    EXPECT_EQ(names("SELECT N, N FROM A"), "N Expr1000 ");
    EXPECT_EQ(names("SELECT A4.*, A.N FROM A, A4"), "LineNum Col_3 Col_4 N ");
}

TEST_F(Compiled, GroupsComeInTheOrderOfTheirFirstRows) {
    EXPECT_EQ(Run("SELECT Col_3, Sum(Col_4) AS s FROM A4 GROUP BY Col_3"), (Rows{"5.01|100.25", "99|7"}));
    EXPECT_EQ(Run("SELECT Int(LineNum*10) AS k, Count(*) FROM A GROUP BY Int(LineNum*10)"), (Rows{"50|2", "132|1"}));
    EXPECT_EQ(Run("SELECT Col_3, Sum(Col_4) AS s FROM A4 GROUP BY Col_3 ORDER BY s"), (Rows{"99|7", "5.01|100.25"}));
    EXPECT_EQ(Run("SELECT A.CCName, Count(*) FROM A4, A GROUP BY A.CCName"), (Rows{"Beta|6", "alpha|3"}));
    EXPECT_EQ(Run("SELECT Avg(Col_4), Sum(N) FROM A4, A WHERE A4.LineNum < 3"), Rows{"50.125|8"});
    EXPECT_EQ(Run("SELECT DISTINCT True FROM A"), Rows{"-1"});
    EXPECT_EQ(Run("SELECT Count(*) FROM A GROUP BY False, Null"), Rows{"3"});
    EXPECT_EQ(Message("SELECT CCName, Sum(N) FROM A"),
              "'CCName' is neither grouped nor summed at character 8 of: SELECT CCName, Sum(N) FROM A");
}

TEST_F(Compiled, UpdatesThroughJoinsGoMatchByMatch) {
    Run("UPDATE A SET Col_1 = 0 WHERE Col_1 Is Null");
    Run("UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 SET A.Col_1 = "
        "A.Col_1+IIF(IsNull([A4].[Col_4]),0,[A4].[Col_4])");
    EXPECT_EQ(Run("SELECT Col_1 FROM A"), (Rows{"110.75", "-2", "0"}));
    Run("UPDATE A4 RIGHT JOIN A ON A4.Col_3 = A.LineNum SET N = IIF(IsNull(A4.LineNum),-1,A4.LineNum)");
    EXPECT_EQ(Run("SELECT N FROM A"), (Rows{"2", "-1", "-1"}));
    Run("UPDATE A RIGHT JOIN A4 ON A4.Col_3 = A.LineNum SET Col_2 = A4.LineNum");
    EXPECT_EQ(Run("SELECT Col_2 FROM A"), (Rows{"2", "2", "Null"}));
}

TEST_F(Compiled, OnlyTheFirstMatchIsWorkedOutBeforehand) {
    const auto lazy = [&](std::string_view statement) {
        return sql::Compile(statement, runner.Shapes()).rowUpdate.match.sql.find("row_number") != std::string::npos;
    };
    EXPECT_TRUE(lazy("UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 SET A.N = A.N + 1"));
    EXPECT_FALSE(lazy("UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 SET A4.Col_4 = A.N"));
    EXPECT_FALSE(lazy("UPDATE A4 RIGHT JOIN A ON A.LineNum = A4.Col_3 SET A4.Col_4 = A.N"));
    EXPECT_FALSE(lazy("UPDATE A, A4 SET A4.Col_4 = A.N WHERE A.LineNum = 5"));
    EXPECT_TRUE(lazy("UPDATE A, A4 SET A4.Col_4 = A.N WHERE A.LineNum > 5"));
    Run("CREATE TABLE S (K Long)");
    Run("CREATE UNIQUE INDEX ndx ON S (K)");
    EXPECT_FALSE(lazy("UPDATE A4, S LEFT JOIN A ON A.LineNum = 5 SET A4.Col_4 = A.N WHERE S.K = 5"));
    EXPECT_TRUE(lazy("UPDATE A4, A LEFT JOIN S ON A.LineNum = 5 AND S.K = 1 SET A4.Col_4 = A.N"));
    // The second match would divide by zero on the row as it stands before the first.
    Run("UPDATE A SET N = 0");
    Run("UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 SET N = IIF(A4.LineNum=1, 5, 10/N)");
    EXPECT_EQ(One("N"), "2");
}

TEST_F(Compiled, KeysMoveSoThatEachFindsItsPlaceFree) {
    Run("UPDATE A SET LineNum = LineNum + .01 WHERE LineNum < 6");
    EXPECT_EQ(Run("SELECT LineNum FROM A"), (Rows{"5.02", "13.2", "5.01"}));
    Run("UPDATE A SET N = 7, LineNum = LineNum - .01 WHERE LineNum < 6");
    EXPECT_EQ(Run("SELECT LineNum, N FROM A"), (Rows{"5.01|7", "13.2|1", "5|7"}));
    EXPECT_EQ(sql::Compile("UPDATE A SET LineNum = 1", runner.Shapes()).rowUpdate.apply.sql,
              "UPDATE \"A\" SET \"LineNum\"=?1 WHERE rowid=?2");
    EXPECT_THROW(Run("UPDATE A SET LineNum = 13.2 WHERE LineNum = 5"), std::runtime_error);
}

TEST_F(Compiled, UpdatesReadTheOldValues) {
    Run("UPDATE A SET Col_1 = N, N = Col_1 WHERE LineNum = 13.2");
    EXPECT_EQ(One("Col_1 & \"/\" & N", "LineNum = 13.2"), "1/-2");
    EXPECT_EQ(sql::Compile("UPDATE A SET N = 1", runner.Shapes()).kind, sql::Plan::Kind::Update);
    EXPECT_EQ(sql::Compile("UPDATE A SET LineNum = 1", runner.Shapes()).kind, sql::Plan::Kind::RowUpdate);
    EXPECT_EQ(Message("UPDATE A, A4 SET A.N = 1, A4.Col_3 = 1"),
              "Cannot be updated: 'Col_3' at character 27 of: UPDATE A, A4 SET A.N = 1, A4.Col_3 = 1");
}

TEST_F(Compiled, ValuesAreConvertedOnTheirWayIn) {
    Run("UPDATE A SET Col_1 = 1/3, Col_2 = Col_1, CCName = N, N = '7', Made = '10/1/2015', Flag = 5 WHERE "
        "LineNum=5.01");
    EXPECT_EQ(One("*"), "5.01|3|0.3333|10.5|7|-1|10/1/2015");
    EXPECT_EQ(Message("UPDATE A SET CCName = CCName & '123456789012345678'"),
              "The text is too long for the field 'CCName'");
    EXPECT_EQ(Message("UPDATE A SET N = 2147483648"), "Overflow");
    EXPECT_EQ(Message("UPDATE A SET Col_1 = CCName"), "Type mismatch: 'alpha'");
    Run("UPDATE A SET Col_1 = -.00005, Flag = CCName = '3' WHERE LineNum=5.01");
    EXPECT_EQ(One("Col_1 & Flag"), "0-1");
}

TEST_F(Compiled, InsertsTakeFieldsByNameWhereAllAreNamed) {
    Run("INSERT INTO A SELECT Col_4 AS Col_1, LineNum+100 AS LineNum FROM A4 WHERE LineNum=1");
    EXPECT_EQ(One("Col_1 & \"/\" & N", "LineNum=101"), "100/");
    EXPECT_EQ(Message("INSERT INTO A4 SELECT LineNum, Col_3*1 FROM A4"),
              "The number of values and the number of fields of 'A4' differ at character 13 of: INSERT INTO A4 SELECT "
              "LineNum, Col_3*1 FROM A4");
    Run("INSERT INTO A4 SELECT LineNum+10, Col_3*1, 0 FROM A4 WHERE LineNum=1");
    EXPECT_EQ(Run("SELECT * FROM A4 WHERE LineNum=11"), Rows{"11|5.01|0"});
    EXPECT_EQ(Message("INSERT INTO A4 VALUES (1, 2)").substr(0, 61),
              "The number of values and the number of fields of 'A4' differ ");
    EXPECT_EQ(Message("INSERT INTO A4 (Colour) VALUES (1)"),
              "Unknown field 'Colour' at character 17 of: INSERT INTO A4 (Colour) VALUES (1)");
}

TEST_F(Compiled, FieldsThatDisallowNullSayTheirName) {
    Run("CREATE TABLE W (Item Text(8), L Long)");
    Run("CREATE UNIQUE INDEX ndxW ON W (Item) WITH DISALLOW NULL");
    Run("INSERT INTO W VALUES ('A', 1)");
    EXPECT_EQ(Message("INSERT INTO W (L) VALUES (2)"), "The field 'Item' cannot be Null");
    EXPECT_EQ(Message("UPDATE W SET Item = Null"), "The field 'Item' cannot be Null");
    EXPECT_EQ(Message("INSERT INTO W SELECT CCName AS Item FROM A WHERE LineNum=0 Or N Is Null"), "no error");
}

TEST_F(Compiled, SelectIntoKeepsTypesAndSizes) {
    Run("SELECT A.*, N+1 AS M, LineNum & '' AS T, Col_1/2 AS H INTO C FROM A WHERE LineNum = 0");
    const TableShape& shape = *runner.Shapes().Find("c");
    EXPECT_EQ(Run("SELECT * FROM C"), Rows{});
    std::string fields;
    for (const FieldDef& field : shape.fields) {
        fields += field.name + " " + std::string(Type_Name(field.type)) + std::to_string(field.size) + " ";
    }
    EXPECT_EQ(fields,
              "LineNum Currency0 CCName Text20 Col_1 Currency0 Col_2 Double0 N Long0 Flag Boolean0 Made Date0 M Long0 "
              "T Text255 H Double0 ");
    EXPECT_EQ(Message("SELECT * INTO C FROM A"),
              "The table 'C' exists already at character 15 of: SELECT * INTO C FROM A");
}

TEST_F(Compiled, UnknownNamesHaveTheirPlace) {
    EXPECT_EQ(Message("SELECT Colour FROM A"), "Unknown field 'Colour' at character 8 of: SELECT Colour FROM A");
    EXPECT_EQ(Message("SELECT B.N FROM A"), "Unknown field 'B.N' at character 8 of: SELECT B.N FROM A");
    EXPECT_EQ(Message("SELECT LineNum FROM A, A4"),
              "The field 'LineNum' stands in more than one table at character 8 of: SELECT LineNum FROM A, A4");
    EXPECT_EQ(Message("SELECT * FROM Nowhere"), "Unknown table 'Nowhere' at character 15 of: SELECT * FROM Nowhere");
    EXPECT_EQ(Message("SELECT Nz(N) FROM A"), "Unknown function 'Nz' at character 8 of: SELECT Nz(N) FROM A");
    EXPECT_EQ(Message("SELECT Mid(N) FROM A"), "Wrong arguments of 'Mid' at character 8 of: SELECT Mid(N) FROM A");
    EXPECT_EQ(Message("SELECT N FROM A WHERE Sum(N)=1"),
              "Invalid operation: 'Sum' at character 23 of: SELECT N FROM A WHERE Sum(N)=1");
    EXPECT_EQ(Message("CREATE TABLE x (a Long, A Long)"),
              "The field 'A' exists already at character 25 of: CREATE TABLE x (a Long, A Long)");
}

TEST_F(Compiled, FindLooksAtOutputNamesAndTables) {
    EXPECT_EQ(runner.Find("A", "CCName='beta' And (Int(LineNum)=5)"), (Rows{"1", "3"}));
    EXPECT_EQ(runner.Find("SELECT LineNum*2 AS D FROM A WHERE LineNum<6 ORDER BY LineNum", "D > 1 And N Is Null"),
              Rows{"3"});
    EXPECT_EQ(runner.Find("SELECT TOP 1 * FROM A ORDER BY LineNum", "LineNum > 0"), Rows{"3"});
    EXPECT_EQ(runner.Find("SELECT * FROM A, A4 WHERE A.LineNum=5", "A4.LineNum = 2"), Rows{"3|2"});
    EXPECT_THROW(runner.Find("SELECT DISTINCT N FROM A", "N=1"), DbError);
}

TEST_F(Compiled, ARowIsReadByItsKeys) {
    const std::string_view statement = "SELECT A.CCName, A4.Col_4 FROM A LEFT JOIN A4 ON A.LineNum=A4.Col_3";
    const sql::Plan plan = sql::Compile(statement, runner.Shapes());
    EXPECT_EQ(runner.Rows(plan.select.keys, {}, {}), (Rows{"1|1", "1|2", "2|Null", "3|Null"}));
    EXPECT_EQ(runner.Rows(plan.select.row, {}, plan.select.columns, {"1", "2"}), Rows{"Beta|0.25"});
    EXPECT_EQ(runner.Rows(plan.select.row, {}, plan.select.columns, {"2", "Null"}), Rows{"alpha|Null"});
    EXPECT_EQ(runner.Rows(plan.select.row, {}, plan.select.columns, {"1", "77"}), Rows{});
    EXPECT_TRUE(sql::Compile("SELECT DISTINCT N FROM A", runner.Shapes()).select.keys.sql.empty());
}

TEST_F(Compiled, NamesMayHoldAnything) {
    Run("CREATE TABLE [a \"b'?] ([c $1 % #] Text(3), [select] Long)");
    Run("INSERT INTO [a \"b'?] VALUES ('abc', 1)");
    EXPECT_EQ(Run("SELECT [c $1 % #] & [select] FROM [a \"b'?] AS [x y] WHERE [x y].[select] = 1"), Rows{"abc1"});
    EXPECT_EQ(Message("UPDATE [a \"b'?] SET [c $1 % #] = 'long'"), "The text is too long for the field 'c $1 % #'");
    EXPECT_EQ(Message("CREATE TABLE t (rowid Long)"),
              "Invalid operation: 'rowid' at character 17 of: CREATE TABLE t (rowid Long)");
}

}  // namespace
}  // namespace tallmar
