// The examples of README.md do what it says.
#include <nlohmann/json.hpp>

#include "cli_test.h"

namespace tallmar {

namespace {

std::string After(const std::string& text, const std::string& mark) {
    const std::size_t at = text.find(mark);
    return at == std::string::npos ? "" : text.substr(at + mark.size());
}

// The words of a line as the shell takes them; quotes hold blanks.
Args Words(const std::string& line) {
    Args words;
    std::string word;
    bool begun = false;
    char quote = 0;
    for (const char c : line) {
        if (quote != 0 && c == quote) {
            quote = 0;
        } else if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
            begun = true;
        } else if (quote == 0 && c == ' ') {
            if (begun) words.push_back(std::exchange(word, {}));
            begun = false;
        } else {
            word += c;
            begun = true;
        }
    }
    if (begun) words.push_back(word);
    return words;
}

class ReadmeTest : public CliTest {
  protected:
    // A line of the example: `echo TEXT | tallmar ...` or `tallmar ... > FILE`, reports in the test's folder.
    Ran Run_Line(const std::string& line) {
        Args words = Words(line);
        std::string input;
        if (words[0] == "echo") {
            input = words.at(1) + "\n";
            words.erase(words.begin(), words.begin() + 3);
        }
        EXPECT_EQ(words.at(0), "tallmar") << line;
        words.erase(words.begin());
        std::string results;
        if (words.size() > 2 && words[words.size() - 2] == ">") {
            results = words.back();
            words.resize(words.size() - 2);
        }
        for (std::string& word : words) {
            if (word == "my.CRF") word = Path(word);
        }
        Ran ran = Run_Tallmar(words, input);
        if (!results.empty()) Write_Bytes(Path(results), ran.out);
        return ran;
    }
};

TEST_F(ReadmeTest, AReportByHandGoesThroughLineByLine) {
    const std::string readme = Read_Bytes(std::string(TALLMAR_SOURCE_DIR) + "/README.md");
    std::string block = After(After(readme, "## A report by hand"), "```sh\n");
    block = block.substr(0, block.find("```"));
    std::istringstream lines(block);
    int run = 0;
    for (std::string line; std::getline(lines, line);) {
        // The first lines build the program.
        if (line.starts_with("scripts/") || line.starts_with("export ")) continue;
        const Ran ran = Run_Line(line);
        EXPECT_EQ(ran.status, kExitDone) << line << '\n' << ran.err;
        EXPECT_EQ(ran.err, "") << line;
        if (line.find("SELECT") != std::string::npos) {
            EXPECT_EQ(nlohmann::json::parse(ran.out)["Col_10"], 1118400) << line;
        }
        ++run;
    }
    EXPECT_GE(run, 6);
    EXPECT_TRUE(Names().contains("my.CRF"));
}

}  // namespace

}  // namespace tallmar
