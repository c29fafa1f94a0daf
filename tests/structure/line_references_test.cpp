#include "structure/line_references.h"

#include <gmock/gmock.h>

#include <set>

#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

using testing::ElementsAre;

std::vector<Currency> Lines_Of(std::string_view table) {
    std::vector<Currency> lines;
    for (const Row& row : db.Read_Rows(Sql("SELECT LineNum FROM ", table, " ORDER BY LineNum;"))) {
        lines.push_back(row["LineNum"].To_Currency());
    }
    return lines;
}

const LineReference& Reference_Of(std::string_view table, std::string_view key) {
    for (const LineReference& reference : Line_References()) {
        if (reference.tables.Matches(table) && reference.key == key) return reference;
    }
    throw std::invalid_argument("no reference");
}

std::int32_t Rows_That_Name(std::string_view table, const LineReference& reference, Currency line) {
    return db.Read_Row(Sql("SELECT Count(*) FROM ", table, " WHERE ", Where_Names(reference, line), ";"))[0].To_Long();
}

}  // namespace

// The side tables of the hospices come with them.
TEST(LineReferences, EveryFieldThatIsNamedIsInItsTable) {
    const Report report(fy1999);
    std::set<std::string_view> absent;
    for (const LineReference& reference : Line_References()) absent.insert(reference.tables.Text());
    for (const std::string& table : Tables_Of_Lines()) {
        const TableShape shape = db.TableDefs().Item(table).Shape();
        for (const LineReference& reference : Line_References()) {
            if (!reference.tables.Matches(table)) continue;
            absent.erase(reference.tables.Text());
            for (const std::string_view field : {reference.key, reference.repeat, reference.name, reference.group}) {
                EXPECT_TRUE(field.empty() || shape.Find_Field(field) != nullptr) << table << "." << field;
            }
        }
    }
    EXPECT_THAT(absent, ElementsAre("K5p2h#X"));
}

TEST(LineReferences, EachLineOfTheChartHasItsRowWhereTheReferenceFindsIt) {
    for (const FiscalYear& year : {fy1999, fy2016}) {
        const Report report(year);
        for (const std::string& table : Tables_Of_Lines()) {
            const LineReference* reference = Row_Reference(table);
            if (reference == nullptr) continue;
            for (const Currency line : Lines_Of("CostCenters")) {
                if (!reference->lines.Has(line)) continue;
                EXPECT_EQ(Rows_That_Name(table, *reference, line), 1) << table << " " << line.To_Text();
            }
        }
    }
}

TEST(LineReferences, EveryColumnOfACostCenterBelongsToATableThatIsNamed) {
    const Report report(fy2016);
    for (const std::string& table : Tables_Of_Lines()) {
        const TableShape shape = db.TableDefs().Item(table).Shape();
        for (const FieldDef& field : shape.fields) {
            if (!field.name.starts_with("CC_") && !field.name.starts_with("Recon_")) continue;
            const std::string prefix = field.name.substr(0, field.name.find('_') + 1);
            EXPECT_TRUE(std::ranges::any_of(Line_Columns(),
                                            [&](const LineColumns& columns) {
                                                return columns.tables.Matches(table) &&
                                                       std::ranges::find(columns.prefixes, prefix) !=
                                                           columns.prefixes.end();
                                            }))
                << table << "." << field.name;
        }
    }
}

TEST(LineReferences, NumbersOfATableStandOffThoseOfTheChart) {
    EXPECT_EQ(Where_Names(Reference_Of("A", "CCNum"), 5.01_cur), "CCNum=5.01");
    EXPECT_EQ(Where_Names(Reference_Of("Cp3", "LineNum"), 12_cur), "LineNum=15");
    EXPECT_EQ(Where_Names(Reference_Of("A4", "Col_3"), 5_cur), "Col_3=5 and LineNum<30");
    EXPECT_EQ(Where_Names(Reference_Of("B1X", "ColCCNum"), 5_cur), "ColCCNum=\"CC_500\"");
    EXPECT_EQ(Where_Names(Reference_Of("K5p2h0X", "ColCCNum"), 5_cur), "ColCCNum=5");
    EXPECT_TRUE(Reference_Of("Cp3", "LineNum").lines.Has(13.2_cur));
    EXPECT_FALSE(Reference_Of("Cp3", "LineNum").lines.Has(14_cur));
    EXPECT_TRUE(Reference_Of("A", "CCNum").lines.Has(14_cur));
}

TEST(TablesOfLines, AreTheLiveWorksheetsByItemAndThenTheInternalTables) {
    Report report(fy2016);
    report.platform.Advance(10);
    Edit_Worksheets("A4", "Kill");
    const std::vector<std::string> tables = Tables_Of_Lines();
    EXPECT_EQ(tables.front(), "A");
    EXPECT_THAT(tables, testing::Not(testing::Contains("A4")));
    EXPECT_LT(std::ranges::find(tables, "Sp2"), std::ranges::find(tables, "B1X"));
    EXPECT_THAT(tables, testing::Contains("StatLinks"));
    report.Execute("DROP TABLE StatLinks;");
    EXPECT_THAT(Tables_Of_Lines(), testing::Not(testing::Contains("StatLinks")));
}

TEST(RenumberLine, MovesTheRowWithItsNumbersAndItsGroup) {
    Report report(fy2016);
    report.Cell("A", 12, 3, 120);
    report.Cell("Cp3", 15, 3, 150);
    for (const char* table : {"A", "Cp3"}) Renumber_Line(table, 12_cur, 12.05_cur);
    EXPECT_CELL("A", 12.05, 3, 120);
    EXPECT_CELL("A", 12.05, "CCNum", 12.05_cur);
    EXPECT_CELL("A", 12.05, "CCGroup", 1205);
    EXPECT_CELL("A", 13, "CCGroup", 1300);
    EXPECT_CELL("Cp3", 15.05, 3, 150);
    EXPECT_CELL("Cp3", 15.05, 1, 12.05_cur);
    EXPECT_CELL("Cp3", 16, 1, 13);
}

TEST(RenumberLine, LeavesRowsThatOnlyHaveTheSameNumber) {
    Report report(fy2016);
    const Value before = report.Read("SELECT Count(*) FROM Cp3 WHERE LineNum=16.2;");
    Renumber_Line("Cp3", 13.2_cur, 13.3_cur);
    EXPECT_EQ(before, Value(1));
    EXPECT_EQ(report.Read("SELECT Count(*) FROM Cp3 WHERE LineNum=16.3;"), Value(1));
    // Line 15 of the chart is not on C Part III; line 15 of C Part III is line 12 of the chart.
    Renumber_Line("Cp3", 15_cur, 15.05_cur);
    EXPECT_CELL("Cp3", 15, 1, 12);
}

TEST(RenumberLine, RenamesColumnsAndWhatNamesThem) {
    Report report(fy2016);
    report.Cell("B1", 6, "CC_400", 12.5);
    report.Execute("INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (6, 'CC_400', 1);");
    report.Execute("INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (3, 4);");
    for (const std::string& table : Tables_Of_Lines()) Renumber_Line(table, 4_cur, 4.01_cur);
    EXPECT_CELL("B1", 6, "CC_401", 12.5);
    EXPECT_EQ(db.TableDefs().Item("B1").Shape().Find_Field("CC_400"), nullptr);
    EXPECT_NE(db.TableDefs().Item("B").Shape().Find_Field("CC_401"), nullptr);
    EXPECT_EQ(report.Read("SELECT ColCCNum FROM B1X;"), Value("CC_401"));
    EXPECT_EQ(report.Read("SELECT FromCCNum FROM StatLinks;"), Value(3_cur));
    EXPECT_EQ(report.Read("SELECT ToCCNum FROM StatLinks;"), Value(4.01_cur));
}

}  // namespace tallmar
