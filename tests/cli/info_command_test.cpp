#include <nlohmann/json.hpp>

#include "cli_test.h"

namespace tallmar {

namespace {

using InfoCommand = CliTest;

TEST_F(InfoCommand, TheTextTellsIdentityCountsAndRegistry) {
    New();
    const std::string text = Succeed({"info", crf});
    for (const char* line :
         {"Prairie Hearth Home Health\n", "Provider     14-7100\n", "Form         CMS 1728\n",
          "Fiscal year  10/1/2015 to 9/30/2016\n", "CapitalCCs   2\n", "    4  A                 A\n",
          "   11  Sp2               S  Part-2\n", "  999  Worksheets"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line << "is not in\n" << text;
    }
}

// A name that another program wrote is shown, and not obeyed by the terminal.
TEST_F(InfoCommand, ControlCharactersOfANameAreNotPrinted) {
    New();
    Sql("UPDATE Master SET ProviderName = \"Prairie \x1b[31mHearth\r\nProvider 99\"");
    const std::string text = Succeed({"info", crf});
    EXPECT_TRUE(text.starts_with("Prairie ?[31mHearth Provider 99\nProvider     14-7100\n")) << text.substr(0, 80);
}

TEST_F(InfoCommand, JsonTellsTheSame) {
    New();
    const auto info = nlohmann::json::parse(Succeed({"info", crf, "--json"}));
    EXPECT_EQ(info["File"], crf);
    EXPECT_EQ(info["FormNum"], "1728");
    EXPECT_EQ(info["ProviderNumber"], "14-7100");
    EXPECT_EQ(info["ProviderName"], "Prairie Hearth Home Health");
    EXPECT_EQ(info["FYStart"], "2015-10-01");
    EXPECT_EQ(info["FYEnd"], "2016-09-30");
    EXPECT_EQ(info["CapitalCCs"], 2);
    EXPECT_EQ(info["EmpBenCCs"], 0);
    const auto& registry = info["Worksheets"];
    ASSERT_FALSE(registry.empty());
    EXPECT_EQ(registry[0], (nlohmann::json{{"Item", "A4"}, {"Calc_Lvl", 0}, {"ItemName", "A-4"}}));
    for (std::size_t i = 1; i < registry.size(); ++i) EXPECT_LE(registry[i - 1]["Calc_Lvl"], registry[i]["Calc_Lvl"]);
}

TEST_F(InfoCommand, AReadOnlyReportCanBeRead) {
    New();
    std::filesystem::permissions(crf, std::filesystem::perms::owner_read);
    const std::string before = Read_Bytes(crf);
    Succeed({"info", crf});
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

}  // namespace

}  // namespace tallmar
