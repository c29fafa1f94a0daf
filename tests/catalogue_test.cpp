// The catalogue's rows against each other, against the registry, and against the tests that each family owes.
#include "catalogue.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "common/sql_text.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

// What a row may leave out, and why.
struct MissingMember {
    std::string_view items;
    std::string_view member;
    std::string_view reason;
    friend auto operator<=>(const MissingMember& a, const MissingMember& b) {
        return std::tie(a.items, a.member) <=> std::tie(b.items, b.member);
    }
    friend bool operator==(const MissingMember& a, const MissingMember& b) {
        return a.items == b.items && a.member == b.member;
    }
};

constexpr std::string_view kEntriesOnly = "entries alone, no line follows from another";
constexpr std::string_view kByStepDown = "the step-down of B-1 fills it";
constexpr std::string_view kAllComputed = "every cell is computed";
constexpr std::string_view kInternal = "a table behind B-1 that no user sees";

constexpr MissingMember kMissing[] = {
    {"A6pA", "calc", kEntriesOnly},   {"A6pC", "calc", kEntriesOnly},   {"A83p2*", "edit", kAllComputed},
    {"A83p3*", "edit", kAllComputed}, {"B", "calc", kByStepDown},       {"B", "edit", kAllComputed},
    {"B1X", "calc", kInternal},       {"B1X", "edit", kInternal},       {"B1X", "view", kInternal},
    {"StatLinks", "calc", kInternal}, {"StatLinks", "edit", kInternal}, {"StatLinks", "view", kInternal},
    {"Cp1", "edit", kAllComputed},    {"Sp2", "edit", kAllComputed},
};

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

// What stands before the open places: "Cp2" of "Cp2*".
std::string Stem_Of(std::string_view pattern) {
    return std::string(pattern.substr(0, pattern.find_first_of("*?#")));
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
    const auto families = All_Families();
    for (const WorksheetFamily& family : families) {
        for (const std::string& item : Examples_Of(family.items.Text())) {
            for (const WorksheetFamily& other : families) {
                EXPECT_EQ(other.items.Matches(item), &other == &family) << item << " and " << other.items.Text();
            }
        }
    }
}

TEST(CatalogueTest, EveryMissingMemberHasItsReason) {
    std::set<MissingMember> missing;
    for (const WorksheetFamily& family : All_Families()) {
        EXPECT_NE(family.build, nullptr) << family.items.Text();
        if (family.calc == nullptr) missing.insert({family.items.Text(), "calc", {}});
        if (family.edit == nullptr) missing.insert({family.items.Text(), "edit", {}});
        if (family.view == nullptr) missing.insert({family.items.Text(), "view", {}});
    }
    const std::set<MissingMember> listed(std::begin(kMissing), std::end(kMissing));
    for (const MissingMember& member : missing) {
        EXPECT_TRUE(listed.contains(member)) << member.items << " has no " << member.member << ", without a reason";
    }
    for (const MissingMember& member : listed) {
        EXPECT_TRUE(missing.contains(member)) << member.items << " has a " << member.member << " by now";
        EXPECT_FALSE(member.reason.empty()) << member.items;
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
            EXPECT_EQ(worksheet.level, Find_Family(worksheet.item)->calcLevel) << worksheet.item;
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
        EXPECT_THAT(tests, testing::HasSubstr('"' + Stem_Of(family.items.Text()))) << "tests/calc names it nowhere";
    }
}

TEST(CatalogueTest, EveryFamilyStandsInAGoldenReport) {
    const std::string goldens = Files_Below("golden", "tables.json");
    for (const WorksheetFamily& family : All_Families()) {
        const std::string_view pattern = family.items.Text();
        const std::string key = '"' + Stem_Of(pattern) + (Stem_Of(pattern) == pattern ? "\":" : "");
        EXPECT_NE(goldens.find(key), std::string::npos) << pattern;
    }
}

}  // namespace tallmar
