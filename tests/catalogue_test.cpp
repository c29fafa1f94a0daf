// The catalogue's rows against each other, against the tables of other folders, against the registry, and against the
// tests that each family owes.
#include "catalogue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/forms.h"
#include "screens/worksheet_forms.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

// Families without a calculation, and why.
struct Uncalculated {
    std::string_view items;
    std::string_view reason;
};
constexpr std::string_view kEntriesOnly = "entries alone, no line follows from another";
constexpr std::string_view kByStepDown = "the step-down of B-1 fills it";
constexpr std::string_view kInternal = "a table behind B-1 that no user sees";
constexpr Uncalculated kUncalculated[] = {
    {"A6pA", kEntriesOnly}, {"A6pC", kEntriesOnly}, {"B", kByStepDown}, {"B1X", kInternal}, {"StatLinks", kInternal},
};

// Forms in preparation: their families are not built yet.
constexpr std::string_view kToCome[] = {"K", "O", "S5"};

// Families that a new report has not: they come with what is entered.
struct LaterFamily {
    std::string_view items;
    const char* example;
    std::string_view comesWith;
};
constexpr LaterFamily kLater[] = {{"Cp2*", "Cp2c16580", "a code on S-3 Part III line 29"}};

// Items that a pattern means: each open place once as it may be filled.
std::vector<std::string> Examples_Of(std::string_view pattern) {
    std::vector<std::string> examples{""};
    for (const char c : pattern) {
        std::vector<std::string> longer;
        for (const std::string& begun : examples) {
            if (c == '*') {
                for (const char* rest : {"", "P", "X1"}) longer.push_back(begun + rest);
            } else {
                longer.push_back(begun + (c == '?' ? 'P' : c == '#' ? '0' : c));
            }
        }
        examples = std::move(longer);
    }
    return examples;
}

template <typename Row>
void Expect_No_Shadow(std::span<const Row> rows) {
    for (const Row& row : rows) {
        for (const std::string& item : Examples_Of(row.items.Text())) {
            for (const Row& other : rows) {
                EXPECT_EQ(other.items.Matches(item), &other == &row) << item << " and " << other.items.Text();
            }
        }
    }
}

// Every registered table that has a family, with its level and its name.
struct Registered {
    std::string item, name;
    int level = 0;
};
std::vector<Registered> Registered_Worksheets() {
    std::vector<Registered> found;
    Recordset rows = db.OpenRecordset("SELECT Item, ItemName, Calc_Lvl FROM Worksheets ORDER BY Item;");
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string item = rows["Item"].To_Text();
        if (Find_Family(item) == nullptr) continue;
        found.push_back({item, rows["ItemName"].To_Text(), rows["Calc_Lvl"].To_Long()});
    }
    return found;
}

bool Has_Cell(const Row& row, std::string_view text) {
    return std::ranges::any_of(*row.Field_Names(), [&](const std::string& name) { return Nz_Str(row[name]) == text; });
}

std::string Read_File(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The files below a folder of the tests, joined.
std::string Files_Below(const char* folder, std::string_view ending) {
    std::string text;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(std::string(TALLMAR_SOURCE_DIR "/tests/") + folder)) {
        if (entry.path().string().ends_with(ending)) text += Read_File(entry.path());
    }
    return text;
}

}  // namespace

TEST(CatalogueTest, NoPatternShadowsAnother) {
    Expect_No_Shadow(All_Families());
}

TEST(CatalogueTest, NoPatternOfTheFormsShadowsAnother) {
    Expect_No_Shadow(All_Forms());
}

TEST(CatalogueTest, EveryFamilyIsBuiltAndCalculatedOrHasItsReason) {
    for (const WorksheetFamily& family : All_Families()) {
        const std::string_view items = family.items.Text();
        EXPECT_NE(family.build, nullptr) << items;
        const auto reason = std::ranges::find(kUncalculated, items, &Uncalculated::items);
        EXPECT_EQ(family.calc == nullptr, reason != std::end(kUncalculated)) << items;
    }
}

TEST(CatalogueTest, EveryFamilyHasItsFormsOrAReason) {
    for (const WorksheetFamily& family : All_Families()) {
        const std::string_view items = family.items.Text();
        const WorksheetForms* forms = Find_Forms(std::string(Stem_Of(family.items)));
        ASSERT_NE(forms, nullptr) << items;
        EXPECT_EQ(forms->items.Text(), items);
        EXPECT_EQ(forms->edit == nullptr, !forms->noEdit.empty()) << items;
        EXPECT_EQ(forms->view == nullptr, !forms->noView.empty()) << items;
        EXPECT_EQ(forms->view == nullptr, forms->title.empty()) << items;
    }
}

TEST(CatalogueTest, FormsWithoutAFamilyAreOfOtherTablesOrToCome) {
    const Report report(fy2016);  // installs the families
    for (const WorksheetForms& forms : All_Forms()) {
        const std::string stem(Stem_Of(forms.items));
        if (Find_Family(stem) != nullptr) continue;
        const bool isToCome = std::ranges::any_of(kToCome, [&](std::string_view s) { return stem.starts_with(s); });
        EXPECT_NE(isToCome, forms.edit != nullptr || forms.view != nullptr) << stem;
    }
}

// The registry keeps the order in which tables were made.
TEST(CatalogueTest, RowsAreInTheOrderOfBuilding) {
    for (const FiscalYear& year : {fy1999, fy2016}) {
        const Report report(year);
        const WorksheetFamily* last = All_Families().data();
        for (const std::string& item : Read_Items("SELECT Item FROM Worksheets;")) {
            const WorksheetFamily* family = Find_Family(item);
            if (family == nullptr) continue;
            EXPECT_GE(family, last) << item;
            last = family;
        }
    }
}

// A new report has them, by their labels.
TEST(CatalogueTest, LinesAreThoseOfTheForm) {
    for (const FiscalYear& year : {fy1999, fy2016}) {
        Report report(year);
        for (const LaterFamily& family : kLater) report.Build(family.example);
        for (const Registered& worksheet : Registered_Worksheets()) {
            for (const FixedRow& line : Find_Family(worksheet.item)->lines) {
                const Row row = db.Read_Row(Sql("SELECT * FROM ", worksheet.item, " WHERE LineNum = ", line.line, ";"));
                ASSERT_TRUE(row) << worksheet.item << " " << line.line.To_Text();
                const bool hasLabel = line.label == nullptr || Has_Cell(row, line.label);
                EXPECT_TRUE(hasLabel) << worksheet.item << " " << line.line.To_Text();
            }
        }
    }
}

// A year that moves takes them away, and undoing that brings them back.
TEST(CatalogueTest, WorksheetsOfSomeYearsAreKeptForTheUndoOfS2) {
    for (const WorksheetFamily& family : All_Families()) {
        const auto isKept = [&](const SideTable& side) { return side.tables.Matches(Stem_Of(family.items)); };
        EXPECT_EQ(std::ranges::any_of(kEditS2.rows.sides, isKept), family.years != Years::Always)
            << family.items.Text();
    }
}

TEST(CatalogueTest, EveryFamilyIsBuiltByANewReportOrComesLater) {
    std::set<std::string_view> built;
    for (const FiscalYear& year : {fy1999, fy2016}) {
        const Report report(year);
        for (const Registered& worksheet : Registered_Worksheets()) {
            built.insert(Find_Family(worksheet.item)->items.Text());
        }
    }
    for (const LaterFamily& family : kLater) {
        EXPECT_FALSE(built.contains(family.items)) << family.items;
        built.insert(family.items);
    }
    for (const WorksheetFamily& family : All_Families()) {
        EXPECT_TRUE(built.contains(family.items.Text())) << family.items.Text();
    }
}

TEST(CatalogueTest, ABuildRegistersTheLevelOfTheCatalogueAndTheDisplayName) {
    for (const FiscalYear& year : {fy1999, fy2000, fy2016}) {
        Report report(year);
        for (const LaterFamily& family : kLater) report.Build(family.example);
        for (const Registered& worksheet : Registered_Worksheets()) {
            EXPECT_EQ(worksheet.level, Find_Family(worksheet.item)->level) << worksheet.item;
            const bool isInternal = worksheet.level == kInternalLevel;
            EXPECT_EQ(worksheet.name, isInternal ? "" : WorksheetName(worksheet.item)) << worksheet.item;
        }
    }
}

TEST(CatalogueTest, ARebuildLeavesOneRowInTheRegistry) {
    Report report(fy2016);
    for (const Registered& worksheet : Registered_Worksheets()) {
        report.Build(worksheet.item);
        EXPECT_EQ(report.Read(Sql("SELECT Count(*) FROM Worksheets WHERE Item = ", Quoted(worksheet.item), ";")),
                  Value(1))
            << worksheet.item;
    }
}

TEST(CatalogueTest, EveryFamilyHasATestOfItsModule) {
    const std::string tests = Files_Below("calc", "_test.cpp");
    for (const WorksheetFamily& family : All_Families()) {
        EXPECT_THAT(tests, testing::HasSubstr('"' + std::string(Stem_Of(family.items))))
            << "tests/calc names it nowhere";
    }
}

TEST(CatalogueTest, EveryFamilyStandsInAGoldenReport) {
    const std::string goldens = Files_Below("golden", "tables.json");
    for (const WorksheetFamily& family : All_Families()) {
        const std::string pattern(family.items.Text()), stem(Stem_Of(family.items));
        const std::string key = '"' + stem + (stem == pattern ? "\":" : "");
        EXPECT_NE(goldens.find(key), std::string::npos) << pattern;
    }
}

}  // namespace tallmar
