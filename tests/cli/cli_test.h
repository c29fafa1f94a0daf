// Commands run inside the test, on report files in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "support/temp_folder.h"

namespace tallmar {

using Args = std::vector<std::string>;

struct Ran {
    int status = 0;
    std::string out, err;
};

inline Ran Run_Tallmar(const Args& args, const std::string& input = "", ConsoleOptions options = {}) {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int status = Run_Command_Line(args, in, out, err, std::move(options));
    return {status, out.str(), err.str()};
}

// The options of a user whose backups are kept in `folder`.
inline ConsoleOptions Keeping_Backups_In(const std::string& folder) {
    ConsoleOptions options;
    options.dataFolder = folder;
    return options;
}

// Gives `text` and then fails, as a disk or a folder does.
class BrokenText : public std::streambuf {
  public:
    explicit BrokenText(std::string text) : text_(std::move(text)) {
        setg(text_.data(), text_.data(), text_.data() + text_.size());
    }

  private:
    int_type underflow() override { throw std::ios_base::failure("a read error"); }
    std::string text_;
};

inline std::string Read_Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void Write_Bytes(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), std::streamsize(bytes.size()));
}

class CliTest : public testing::Test {
  private:
    TempFolder folder_;

  protected:
    CliTest() : crf(folder_.File("r.CRF")) {}

    const std::string crf;  // where New makes the report

    std::string Path(const std::string& name) const { return folder_.File(name); }
    std::string Folder() const { return folder_.Path(); }
    // What stands in the folder.
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

    static Args New_Command(const std::string& file) {
        return {"new",       file,    "--provider", "14-7100", "--start",
                "10/1/2015", "--end", "9/30/2016",  "--name",  "Prairie Hearth Home Health"};
    }
    void New() { Succeed(New_Command(crf)); }

    // Runs a command that must succeed without a word on standard error; its results.
    std::string Succeed(const Args& args, const std::string& input = "") {
        const Ran ran = Run_Tallmar(args, input);
        EXPECT_EQ(ran.status, kExitDone) << args[0] << ": " << ran.err;
        EXPECT_EQ(ran.err, "") << args[0];
        return ran.out;
    }
    // Runs a command that must fail without a result; what it says.
    std::string Fail(const Args& args, const std::string& input = "", int status = kExitFailed) {
        const Ran ran = Run_Tallmar(args, input);
        EXPECT_EQ(ran.status, status) << args[0] << ": " << ran.err;
        EXPECT_EQ(ran.out, "") << args[0];
        EXPECT_NE(ran.err, "") << args[0];
        return ran.err;
    }
    std::string Sql(const std::string& statement) { return Succeed({"sql", crf, statement}); }
};

}  // namespace tallmar
