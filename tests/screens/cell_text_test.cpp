#include "screens/cell_text.h"

#include "report/open_report.h"
#include "screens/entry_test.h"
#include "screens/form_rows.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

// A cell of an open form, as its grid shows it.
std::string Text(const FormDescription& form, const Item& item, Currency line, std::string_view column) {
    const OpenForm open(form, item);
    const FormRows rows(form, item);
    const GridColumn* cell = open.Find_Column(column);
    const auto at = rows.Find(line);
    if (cell == nullptr || !at) return "no such cell";
    const RowUnderEdit row(line, rows.At(*at));
    return Cell_Text(form, {item, *cell, row});
}

// The same of a form of one column that holds `value`.
std::string Text_Of(const Value& value, std::string_view format = {}) {
    static const FormDescription form{.name = "frmEditA"};
    const GridColumn column{.field = "Col_1", .number = "1", .label = {}, .format = std::string(format), .tag = {}};
    const RowUnderEdit row(1_cur, Row(std::vector<std::string>{"Col_1"}, {value}));
    const Item item("A");
    return Cell_Text(form, {item, column, row});
}

GridColumn Column(std::string_view number, FieldType type, int size = 0, CellKind kind = CellKind::Shown) {
    return {.field = "Col_1",
            .number = std::string(number),
            .label = {},
            .format = {},
            .kind = kind,
            .type = type,
            .size = size,
            .tag = {}};
}

std::vector<GridColumn> Shown_Columns(const FormDescription& form, const Item& item) {
    std::vector<GridColumn> shown;
    const OpenForm open(form, item);
    for (const GridColumn& column : open.Columns()) {
        if (!column.hidden) shown.push_back(column);
    }
    return shown;
}

}  // namespace

TEST(CellTextTest, FiguresReadByTheirFormat) {
    Report r(fy2016);
    r.Cell("A", 5, 3, -1200_cur);
    r.Cell("A", 6, 3, 1234567_cur);
    EXPECT_EQ(Text(kEditA, "A", 5_cur, "Col_3"), "(1,200)");
    EXPECT_EQ(Text(kEditA, "A", 6_cur, "Col_3"), "1,234,567");
    EXPECT_EQ(Text(kEditA, "A", 7_cur, "Col_3"), "0");
    EXPECT_EQ(Text(kEditA, "A", 5_cur, "CCName"), "Administrative & General");
    EXPECT_EQ(Text_Of(0.5, "0.000000"), "0.500000");
}

TEST(CellTextTest, LinesShowNoDecimalsOrTwo) {
    EXPECT_EQ(Text_Of(5_cur), "5");
    EXPECT_EQ(Text_Of(5.01_cur), "5.01");
    EXPECT_EQ(Text_Of(13.2_cur), "13.20");
    EXPECT_EQ(Text_Of(-0.5_cur), "-0.50");
    EXPECT_EQ(Text_Of(0.1234_cur), "0.1234");
}

TEST(CellTextTest, WithoutAFormatANumberIsShort) {
    EXPECT_EQ(Text_Of(12.5), "12.5");
    EXPECT_EQ(Text_Of(1e15), "1000000000000000");
    EXPECT_EQ(Text_Of(7), "7");
    EXPECT_EQ(Text_Of(Date_Of(2016, 3, 1)), "03/01/2016");
    EXPECT_EQ(Text_Of("as typed "), "as typed ");
    EXPECT_EQ(Text_Of(Null), "");
    EXPECT_EQ(Text_Of(Null, "0.00"), "");
}

TEST(CellTextTest, AnswersOutOfAListShowTheirWords) {
    Report r(fy2016);
    r.Cell("S2", 14, 1, "Y");
    r.Cell("S2", 15, 1, "N");
    r.Cell("S2", 16, 1, "?");
    r.Cell("S2", 8, 1, "10");
    r.Cell("S2", 9, 1, "L");
    for (const FormDescription* form : {&kEditS2, &kViewS2}) {
        EXPECT_EQ(Text(*form, "S2", 14_cur, "Col_1"), "Yes");
        EXPECT_EQ(Text(*form, "S2", 15_cur, "Col_1"), "No");
        EXPECT_EQ(Text(*form, "S2", 16_cur, "Col_1"), "?") << "what the list has not reads as it stands";
        EXPECT_EQ(Text(*form, "S2", 8_cur, "Col_1"), "10 Governmental - City");
        EXPECT_EQ(Text(*form, "S2", 9_cur, "Col_1"), "Low");
    }
    r.Cell("S21", 1, 1, "y");
    EXPECT_EQ(Text(kViewS21, "S21", 1_cur, "Col_1"), "Yes");
}

TEST(EditTextTest, EnteredAgainItGivesTheSameValue) {
    EXPECT_EQ(Edit_Text(-1200_cur), "-1200");
    EXPECT_EQ(Edit_Text(13.2_cur), "13.2");
    EXPECT_EQ(Edit_Text(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(Edit_Text("Y"), "Y");
    EXPECT_EQ(Edit_Text(Null), "");
    EXPECT_EQ(Edit_Text(Date_Of(2016, 3, 1)), "03/01/2016");
    EXPECT_EQ(Edit_Text(Date_Of({2016, 3, 1, 8, 5, 9})), "3/1/2016 8:05:09 AM");

    Report r(fy2016);
    for (const char* typed : {"1234567", "(500)", "$12", ""}) {
        EXPECT_FALSE(Enter("A", "5", "3", typed));
        const Value before = r.Cell("A", 5, 3);
        EXPECT_FALSE(Enter("A", "5", "3", Edit_Text(before)));
        EXPECT_EQ(r.Cell("A", 5, 3), before) << typed;
    }
    EXPECT_FALSE(Enter("D1", "3.02", "1", "3/1/2016"));
    const Value date = r.Cell("D1", 3.02, 1);
    EXPECT_FALSE(Enter("D1", "3.02", "1", Edit_Text(date)));
    EXPECT_EQ(r.Cell("D1", 3.02, 1), date);
}

TEST(ShadedTest, ANullFigureIsAShadedCell) {
    const FormDescription view{.name = "frmViewA", .readOnly = true};
    const FormDescription shading{.name = "frmEditF", .cells = {.nullIsShaded = true}};
    const FormDescription plain{.name = "frmEditA4"};
    const GridColumn total = Column("1", FieldType::Currency);
    const GridColumn amount = Column("1", FieldType::Double, 0, CellKind::Number);
    const GridColumn text = Column("1", FieldType::Text, 40);
    const GridColumn line = Column("", FieldType::Currency);
    EXPECT_TRUE(Is_Shaded(view, total, Null));
    EXPECT_TRUE(Is_Shaded(view, amount, Null));
    EXPECT_TRUE(Is_Shaded(shading, amount, Null));
    EXPECT_TRUE(Is_Shaded(plain, total, Null));
    EXPECT_FALSE(Is_Shaded(plain, amount, Null)) << "it takes an entry";
    EXPECT_FALSE(Is_Shaded(view, total, 0_cur));
    EXPECT_FALSE(Is_Shaded(view, text, Null));
    EXPECT_FALSE(Is_Shaded(view, line, Null));
}

TEST(FigureTest, IsANumberInANumberedColumn) {
    EXPECT_TRUE(Is_Figure(Column("1", FieldType::Currency)));
    EXPECT_TRUE(Is_Figure(Column("4A", FieldType::Double)));
    EXPECT_TRUE(Is_Figure(Column("1", FieldType::Integer)));
    EXPECT_FALSE(Is_Figure(Column("", FieldType::Currency)));
    EXPECT_FALSE(Is_Figure(Column("1", FieldType::Text, 40)));
    EXPECT_FALSE(Is_Figure(Column("1", FieldType::Date)));
}

TEST(FrozenTest, LineGroupAndNameStayInSight) {
    Report r(fy2016);
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kEditA, "A")), 3U);
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kEditB1, "B1")), 2U);
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kViewB, "B")), 2U);
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kEditS2, "S2")), 2U);
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kEditA6pA, "A6pA")), 1U);
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kViewCCs, "CCs")), 3U) << "line, number and name, not the codes behind";
    EXPECT_EQ(Frozen_Columns(Shown_Columns(kHeaderLines, "HeaderLines")), 0U) << "the only column moves";
    EXPECT_EQ(Frozen_Columns({}), 0U);
}

TEST(CellText, AmountsAmongTheAnswersReadAsFigures) {
    Report r(fy2016);
    r.Cell("S2", 10, 1, "118400");
    r.Cell("S2", 11, 1, "-500");
    r.Cell("S2", 13, 1, "117900");
    r.Cell("S2", 1, 1, "12345");
    for (const FormDescription* form : {&kEditS2, &kViewS2}) {
        EXPECT_EQ(Text(*form, "S2", 10_cur, "1"), "118,400");
        EXPECT_EQ(Text(*form, "S2", 11_cur, "1"), "(500)");
        EXPECT_EQ(Text(*form, "S2", 13_cur, "1"), "117,900");
        EXPECT_EQ(Text(*form, "S2", 1_cur, "1"), "12345") << "a street is none";
    }
}

}  // namespace tallmar
