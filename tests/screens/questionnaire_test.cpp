// S-2 and S-2-1 line by line: the heads over each row, which cells take an answer, and which list opens over them.
#include <gtest/gtest.h>

#include "screens/dispatch.h"
#include "screens/entry_test.h"

namespace tallmar {

namespace {

// Of columns 1 to 3: "-" for a cell that is shut, the number of its list ("8", "YN"), "o" for any other.
struct Line {
    Currency line;
    const char* heads;
    const char* cells;
};

constexpr const char* kAnswer = "Description|Answer|N/A|N/A";
constexpr const char* kParts = "Description|Part A|Part B|N/A";
constexpr const char* kCity = "Description|City|State|Zip";
constexpr const char* kStreet = "Description|Street|P.O. Box|N/A";
constexpr const char* kComponent = "Component|Component Name|Provider No.|Date Certified";

constexpr Line kS2[] = {
    {1_cur, kStreet, "o o -"},      {1.01_cur, kCity, "o o o"},
    {2_cur, kComponent, "o o o"},   {7_cur, "Description|From|To|N/A", "o o -"},
    {8_cur, kAnswer, "8 - -"},      {9_cur, kAnswer, "9 - -"},
    {10_cur, kAnswer, "o - -"},     {11_cur, kAnswer, "o - -"},
    {12_cur, kAnswer, "o - -"},     {13_cur, kAnswer, "- - -"},
    {14_cur, kAnswer, "YN - -"},    {15_cur, kAnswer, "YN - -"},
    {16_cur, kAnswer, "YN - -"},    {17_cur, kAnswer, "o - -"},
    {18_cur, kAnswer, "YN - -"},    {19_cur, kAnswer, "YN - -"},
    {20_cur, kAnswer, "YN - -"},    {21_cur, kAnswer, "YN - -"},
    {22_cur, kAnswer, "YN - -"},    {22.01_cur, kAnswer, "YN - -"},
    {22.02_cur, kAnswer, "YN - -"}, {23_cur, kParts, "YN YN -"},
    {26_cur, kAnswer, "26 - -"},    {27_cur, kAnswer, "- - -"},
    {27.01_cur, kAnswer, "o - -"},  {27.02_cur, kAnswer, "o - -"},
    {27.03_cur, kAnswer, "o - -"},  {28_cur, kAnswer, "YN - -"},
    {29_cur, kAnswer, "YN - -"},    {29.01_cur, "Description|Name|Number|Contractor No.", "- - -"},
    {29.02_cur, kStreet, "- - -"},  {29.03_cur, kCity, "- - -"},
};
constexpr Line kS2InAChain[] = {
    {29.01_cur, "Description|Name|Number|Contractor No.", "o o o"},
    {29.02_cur, kStreet, "o o o"},
    {29.03_cur, kCity, "o o o"},
};

constexpr Line kS21[] = {
    {1_cur, "Description|Answer|Date|N/A", "YN o -"},
    {2_cur, "Description|Answer|Date|V/I", "YN o 2"},
    {3_cur, kAnswer, "YN - -"},
    {4_cur, "Description|Answer|A/C/R|Date", "YN 4 o"},
    {5_cur, kAnswer, "YN - -"},
    {6_cur, kAnswer, "YN - -"},
    {7_cur, kAnswer, "- - -"},
    {8_cur, kAnswer, "- - -"},
    {9_cur, "Description|Answer|Date|N/A", "YN o -"},
    {10_cur, "Description|Answer|Date|N/A", "YN o -"},
    {11_cur, kAnswer, "- - -"},
    {12_cur, kAnswer, "- - -"},
    {13_cur, kAnswer, "- - -"},
    {14_cur, kAnswer, "YN - -"},
    {15_cur, "Description|First Name|Last Name|Title", "o o o"},
    {16_cur, "Description|Employer|N/A|N/A", "o - -"},
    {17_cur, "Description|Phone Number|E-mail Address|N/A", "o o -"},
};
constexpr Line kS21AfterSix[] = {{7_cur, kAnswer, "YN - -"}, {8_cur, kAnswer, "YN - -"}, {11_cur, kAnswer, "- - -"}};
constexpr Line kS21AfterTen[] = {
    {7_cur, kAnswer, "- - -"}, {11_cur, kAnswer, "YN - -"}, {12_cur, kAnswer, "YN - -"}, {13_cur, kAnswer, "YN - -"}};

std::string Heads(const FormDescription& form, Currency line) {
    std::string heads;
    for (const std::string_view head : form.columns.headsAt(line))
        heads += (heads.empty() ? "" : "|") + std::string(head);
    return heads;
}

std::string Cell(const OpenForm& form, const GridColumn& column) {
    if (form.Is_Locked(column)) return "-";
    const PopupList* list = form.Description().cells.popup({form.Worksheet(), column, form.Under_Edit()});
    constexpr std::string_view kList = "ButtonList";
    return list == nullptr ? "o" : std::string(list->name.substr(kList.size()));
}

void Expect_Lines(const char* item, std::span<const Line> lines) {
    OpenForm form(*Form_Of(FormMode::Edit, item), item);
    for (const Line& line : lines) {
        ASSERT_TRUE(form.Place_Cursor(line.line)) << item << " " << line.line.To_Text();
        EXPECT_EQ(Heads(form.Description(), line.line), line.heads) << item << " " << line.line.To_Text();
        const std::string cells = Cell(form, *form.Find_Column("1")) + " " + Cell(form, *form.Find_Column("2")) + " " +
                                  Cell(form, *form.Find_Column("3"));
        EXPECT_EQ(cells, line.cells) << item << " " << line.line.To_Text();
        EXPECT_TRUE(form.Is_Locked(*form.Find_Column("LineNum")));
        form.Store_Row();
    }
}

}  // namespace

TEST(Questionnaire, S2LineByLine) {
    const Report r(fy2016);
    Expect_Lines("S2", kS2);
    EXPECT_EQ(Answer_To("S2", "29", "1", "Y"), kStored);
    Expect_Lines("S2", kS2InAChain);
}

TEST(Questionnaire, S21LineByLine) {
    const Report r(fy2016);
    Expect_Lines("S21", kS21);
    EXPECT_EQ(Answer_To("S21", "6", "1", "Y"), kStored);
    Expect_Lines("S21", kS21AfterSix);
    EXPECT_EQ(Answer_To("S21", "6", "1", "N"), kStored);
    EXPECT_EQ(Answer_To("S21", "10", "1", "Y"), kStored);
    Expect_Lines("S21", kS21AfterTen);
}

TEST(Questionnaire, ViewsHaveTheHeadsOfTheirRowsToo) {
    const Report r(fy2016);
    for (const Line& line : kS2) EXPECT_EQ(Heads(*Form_Of(FormMode::View, "S2"), line.line), line.heads);
    for (const Line& line : kS21) EXPECT_EQ(Heads(*Form_Of(FormMode::View, "S21"), line.line), line.heads);
}

}  // namespace tallmar
