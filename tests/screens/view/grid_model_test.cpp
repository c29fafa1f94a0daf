// What a cell of the grid offers: texts, shades, totals, heads.
#include "screens/view/grid_model.h"

#include "screens/view/view_test.h"

namespace tallmar {

TEST(GridModelTest, CellsAreFormattedAndFiguresStandToTheRight) {
    Report r(fy2016);
    r.Cell("A", 5, 1, 1234567);
    r.Cell("A", 5, 2, -1200);
    const auto form = Open_View("A");
    EXPECT_EQ(Text_At(*form, 5_cur, "Col_1").toStdString(), "1,234,567");
    EXPECT_EQ(Text_At(*form, 5_cur, "Col_2").toStdString(), "(1,200)");
    EXPECT_EQ(Text_At(*form, 5_cur, "Col_2", Qt::EditRole).toStdString(), "-1200");
    const auto alignment = [&](std::string_view field) {
        return Text_At(*form, 5_cur, field, Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(alignment("Col_1"), Qt::AlignRight);
    EXPECT_EQ(alignment("CCName"), Qt::AlignLeft);
}

// The grid may ask for a cell until it is gone.
TEST(GridModelTest, TheModelHasItsFormAsLongAsTheGridLives) {
    Report r(fy2016);
    auto form = Open_View("A");
    std::string asked;
    const GridModel& model = form->Model();
    QObject::connect(&form->Grid(), &QObject::destroyed, &form->Grid(), [&] {
        asked = model.Form().Worksheet().Name() + model.index(0, 0).data().toString().toStdString();
    });
    form.reset();
    EXPECT_EQ(asked, "A1");
}

TEST(GridModelTest, AmountsAmongTheAnswersStandToTheRight) {
    Report r(fy2016);
    r.Cell("S2", 10, 1, "118400");
    const auto form = Open_View("S2");
    EXPECT_EQ(Text_At(*form, 10_cur, "Col_1").toStdString(), "118,400");
    EXPECT_EQ(Text_At(*form, 10_cur, "Col_1", Qt::EditRole).toStdString(), "118400");
    const auto alignment = [&](Currency line) {
        return Text_At(*form, line, "Col_1", Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(alignment(10_cur), Qt::AlignRight);
    EXPECT_EQ(alignment(1_cur), Qt::AlignLeft);
}

TEST(GridModelTest, NullFiguresAreShadedAndShowNothing) {
    Report r(fy2016);
    const auto form = Open_View("S3p1");
    const GridModel& model = form->Model();
    const QModelIndex shaded = model.index(model.Row_Of(9_cur), model.Column_Of("Col_2"));
    EXPECT_TRUE(shaded.data(kShadedRole).toBool());
    EXPECT_TRUE(shaded.data().toString().isEmpty());
    const QModelIndex open = model.index(model.Row_Of(9_cur), model.Column_Of("Col_1"));
    EXPECT_FALSE(open.data(kShadedRole).toBool());
    EXPECT_EQ(open.data().toString().toStdString(), "0");
}

TEST(GridModelTest, RowsOfTotalsAreToldApart) {
    Report r(fy2016);
    const auto form = Open_View("S3p1");
    const GridModel& model = form->Model();
    EXPECT_TRUE(model.index(model.Row_Of(8_cur), 0).data(kTotalRole).toBool());
    EXPECT_FALSE(model.index(model.Row_Of(1_cur), 0).data(kTotalRole).toBool());
}

TEST(GridModelTest, NoCellOfAViewTakesAnEntry) {
    Report r(fy2016);
    const auto form = Open_View("A");
    const GridModel& model = form->Model();
    for (int column = 0; column < model.columnCount(); ++column) {
        EXPECT_FALSE(model.flags(model.index(0, column)).testFlag(Qt::ItemIsEditable)) << column;
        EXPECT_TRUE(model.flags(model.index(0, column)).testFlag(Qt::ItemIsSelectable)) << column;
    }
}

TEST(GridModelTest, HeadsHoldNumberAndLabel) {
    Report r(fy2016);
    const auto form = Open_View("A");
    const GridModel& model = form->Model();
    const int column = model.Column_Of("Col_4");
    EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString().toStdString(), "Contracted Purchased Services");
    EXPECT_EQ(model.headerData(column, Qt::Horizontal, kNumberRole).toString().toStdString(), "4");
    EXPECT_EQ(model.Whole_Head(column).toStdString(), "4 Contracted Purchased Services");
    EXPECT_EQ(model.Whole_Head(0).toStdString(), "Line #");
}

TEST(GridModelTest, ColumnsOfOtherYearsAreNotShown) {
    Report r(fy2016);
    // Worksheet B-1's key is no column of its form; a field that no form shows is none either.
    const auto form = Open_View("A");
    EXPECT_EQ(form->Model().Column_Of("NoSuchField"), -1);
    for (int column = 0; column < form->Model().columnCount(); ++column) {
        EXPECT_FALSE(form->Model().Column(column).hidden);
    }
}

TEST(GridModelTest, HeadsOfAQuestionnaireFollowTheCursor) {
    Report r(fy2016);
    const auto form = Open_View("S2");
    const auto head = [&](int column) {
        return form->Model().headerData(column, Qt::Horizontal).toString().toStdString();
    };
    const int answer = form->Model().Column_Of("Col_1");
    Put_Cursor(*form, 1_cur, "Col_1");
    EXPECT_EQ(head(answer), "Street");
    EXPECT_EQ(head(0), "Line #");
    Put_Cursor(*form, 2_cur, "Col_1");
    EXPECT_EQ(head(answer), "Component Name");
    EXPECT_EQ(head(answer + 1), "Provider No.");
    Put_Cursor(*form, 23_cur, "Col_1");
    EXPECT_EQ(head(answer), "Part A");
}

TEST(GridModelTest, ReloadShowsWhatWasStoredSince) {
    Report r(fy2016);
    const auto form = Open_View("A");
    r.Cell("A", 6, 1, 77);
    EXPECT_EQ(Text_At(*form, 6_cur, "Col_1").toStdString(), "0");
    form->Reload();
    EXPECT_EQ(Text_At(*form, 6_cur, "Col_1").toStdString(), "77");
}

}  // namespace tallmar
