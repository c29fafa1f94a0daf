// The command line as a whole: help, version, wrong lines, message boxes, where results go.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "cli/commands.h"
#include "cli_test.h"

namespace tallmar {

namespace {

using CommandLine = CliTest;

bool Holds(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

// "save-as" is tested by the suite SaveAsCommand.
std::string Suite_Of(std::string_view command) {
    std::string suite;
    bool upper = true;
    for (const char c : command) {
        if (c != '-') suite += upper ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        upper = c == '-';
    }
    return suite + "Command";
}

// The least arguments with which a command is complete, besides FILE.
Args Least_Arguments(const Command& command) {
    Args args;
    for (const ArgumentSpec& spec : command.arguments) {
        if (!spec.required) continue;
        if (spec.name.starts_with("--")) args.emplace_back(spec.name);
        args.emplace_back("x");
    }
    return args;
}

// Before the words of a program that a shell starts: it keeps nothing in the user's folders.
constexpr const char* kHomeless = "env -u HOME -u XDG_DATA_HOME ";

TEST_F(CommandLine, EachCommandAndOptionHasATest) {
    std::set<std::string> suites;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) suites.insert(all.GetTestSuite(i)->name());
    std::string sources;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(TALLMAR_SOURCE_DIR) + "/tests/cli")) {
        sources += Read_Bytes(entry.path());
    }
    for (const Command& command : All_Commands()) {
        EXPECT_TRUE(suites.contains(Suite_Of(command.name))) << Suite_Of(command.name);
        for (const ArgumentSpec& spec : command.arguments) {
            if (!spec.name.starts_with("--")) continue;
            EXPECT_TRUE(Holds(sources, '"' + std::string(spec.name) + '"')) << command.name << ' ' << spec.name;
        }
    }
}

TEST_F(CommandLine, HelpNamesEachCommand) {
    const std::string help = Succeed({"--help"});
    for (const Command& command : All_Commands()) {
        EXPECT_TRUE(Holds(help, std::string(command.name) + " ")) << command.name;
        EXPECT_TRUE(Holds(help, command.help)) << command.name;
    }
    EXPECT_EQ(Succeed({"-h"}), help);
}

TEST_F(CommandLine, HelpOfACommandNamesItsArguments) {
    for (const Command& command : All_Commands()) {
        const std::string help = Succeed({std::string(command.name), "--help"});
        EXPECT_TRUE(Holds(help, "tallmar " + std::string(command.name))) << help;
        EXPECT_TRUE(Holds(help, "FILE")) << help;
        EXPECT_TRUE(Holds(help, "--answer")) << help;
        for (const ArgumentSpec& spec : command.arguments) EXPECT_TRUE(Holds(help, spec.name)) << spec.name;
    }
}

TEST_F(CommandLine, VersionIsThatOfTheBuild) {
    EXPECT_EQ(Succeed({"--version"}), "tallmar " TALLMAR_VERSION "\n");
}

TEST_F(CommandLine, AnUnknownCommandIsNamed) {
    EXPECT_EQ(Fail({"bogus", crf}, "", kExitUsage),
              "There is no command bogus.\nRun with --help for more information.\n");
    EXPECT_TRUE(Holds(Fail({"Calc", crf}, "", kExitUsage), "There is no command Calc."));
}

TEST_F(CommandLine, WithoutACommandItIsWrong) {
    EXPECT_EQ(Fail({}, "", kExitUsage), "A command is missing.\nRun with --help for more information.\n");
    EXPECT_EQ(Fail({"--bogus"}, "", kExitUsage),
              "There is no option --bogus.\nRun with --help for more information.\n");
    EXPECT_EQ(Fail({"--answer", "yes"}, "", kExitUsage),
              "There is no option --answer.\nRun with --help for more information.\n");
}

// Each of them in turn: one that is missing must not be taken for another, or for an empty one.
TEST_F(CommandLine, EachRequiredArgumentIsRequired) {
    for (const Command& command : All_Commands()) {
        for (const ArgumentSpec& left : command.arguments) {
            if (!left.required) continue;
            Args args{std::string(command.name), crf};
            for (const ArgumentSpec& spec : command.arguments) {
                if (!spec.required || &spec == &left) continue;
                if (spec.name.starts_with("--")) args.emplace_back(spec.name);
                args.emplace_back("x");
            }
            EXPECT_TRUE(Holds(Fail(args, "", kExitUsage), std::string(left.name))) << command.name << ' ' << left.name;
        }
    }
    EXPECT_TRUE(Names().empty());
}

TEST_F(CommandLine, MissingAndUnknownArgumentsAreWrong) {
    New();
    const std::string before = Read_Bytes(crf);
    for (const Command& command : All_Commands()) {
        const std::string name(command.name);
        EXPECT_TRUE(Holds(Fail({name}, "", kExitUsage), "FILE")) << name;

        Args whole{name, crf};
        const Args least = Least_Arguments(command);
        if (!least.empty()) Fail({name, crf}, "", kExitUsage);
        whole.insert(whole.end(), least.begin(), least.end());
        Args more = whole;
        more.emplace_back("--bogus");
        EXPECT_TRUE(Holds(Fail(more, "", kExitUsage), "--bogus")) << name;
        more.back() = "--answer";
        Fail(more, "", kExitUsage);
        more.emplace_back("maybe");
        EXPECT_TRUE(Holds(Fail(more, "", kExitUsage), "maybe")) << name;
    }
    for (const char* name : {"info", "calc", "compact"}) Fail({name, crf, "more"}, "", kExitUsage);
    Fail({"save-as", crf, Path("a.CRF"), Path("b.CRF")}, "", kExitUsage);
    Fail({"sql", crf, "SELECT * FROM A", "SELECT * FROM B"}, "", kExitUsage);
    Fail({"enter", crf, "a.csv", "b.csv"}, "", kExitUsage);
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CommandLine, ABoxIsOneLineAndTakesTheAnswer) {
    Args command{"new",      crf,     "--provider", "14-7100", "--start",
                 "1/1/2016", "--end", "1/1/2017",   "--name",  "Long Year"};
    const std::string box =
        "Warning: Dates Span More Than One Fiscal Year: The F/Y Start and F/Y End dates entered span more than one "
        "fiscal year.  Click on the 'Yes' button to verify that this is what you intended.  Or, click on the 'No' "
        "button to return to the form to alter one or both of the dates.\n";
    command.insert(command.end(), {"--answer", "no"});
    EXPECT_EQ(Fail(command), box);
    EXPECT_TRUE(Names().empty());

    // Yes is the default, and what a box gets that offers no "cancel".
    for (const Args& answer : {Args{"--answer", "yes"}, Args{"--answer", "cancel"}, Args{"--answer", "ok"}, Args{}}) {
        command.resize(10);
        command.insert(command.end(), answer.begin(), answer.end());
        const Ran ran = Run_Tallmar(command);
        EXPECT_EQ(ran.status, kExitDone);
        EXPECT_EQ(ran.err, box);
        EXPECT_EQ(ran.out, "");
        EXPECT_TRUE(std::filesystem::remove(crf));
    }
}

TEST_F(CommandLine, ResultsThatCannotBeWrittenAreAFailure) {
    New();
    std::istringstream in;
    std::ofstream out("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(Run_Command_Line({"dump", crf}, in, out, err), kExitFailed);
    EXPECT_EQ(err.str(), "The results could not be written to standard output.\n");
}

TEST_F(CommandLine, HelpThatCannotBeWrittenIsAFailure) {
    for (const Args& args : {Args{"--help"}, Args{"--version"}, Args{"calc", "--help"}}) {
        std::istringstream in;
        std::ofstream out("/dev/full");
        std::ostringstream err;
        EXPECT_EQ(Run_Command_Line(args, in, out, err), kExitFailed) << args[0];
        EXPECT_EQ(err.str(), "The results could not be written to standard output.\n");
    }
}

// Whoever calls the calculation again for want of an answer must find the report as it was.
TEST_F(CommandLine, ACalculationWhoseMessagesCannotBeWrittenIsNotKept) {
    New();
    Sql("UPDATE A SET Col_1 = 500000000000000 WHERE LineNum < 3");
    const std::string before = Read_Bytes(crf);
    std::istringstream in;
    std::ofstream out("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(Run_Command_Line({"calc", crf}, in, out, err), kExitFailed);
    EXPECT_EQ(err.str(), "The results could not be written to standard output.\n");
    EXPECT_TRUE(Read_Bytes(crf) == before);
    EXPECT_NE(Succeed({"calc", crf}), "") << "there are messages";
}

TEST_F(CommandLine, NoControlCharacterReachesTheTerminal) {
    EXPECT_EQ(One_Line("a\r\nb\tc\x1b[31md\x7f\xC2\x9B\xC3\xA9"), "a b c?[31md??\xC3\xA9");
    EXPECT_EQ(Fail({"\x1b[31mcalc"}, "", kExitUsage),
              "There is no command ?[31mcalc.\nRun with --help for more information.\n");
}

// As a shell's <&- and >&- leave it: the number of a closed stream goes to no file that is opened later.
TEST_F(CommandLine, AClosedStandardStreamIsAFailure) {
    New();
    const std::string before = Read_Bytes(crf);
    const std::string program = std::string(kHomeless) + TALLMAR_BIN_DIR + "/tallmar ";
    const auto run = [&](const std::string& command) {
        return std::system((program + command + " 2>/dev/null").c_str());
    };
    EXPECT_EQ(WEXITSTATUS(run("sql '" + crf + "' - <&-")), kExitFailed);
    EXPECT_EQ(WEXITSTATUS(run("enter '" + crf + "' <&-")), kExitFailed);
    EXPECT_EQ(WEXITSTATUS(run("dump '" + crf + "' >&-")), kExitFailed);
    EXPECT_EQ(WEXITSTATUS(run("sql '" + crf + "' 'UPDATE A SET Col_1 = 5' >&-")), kExitFailed);
    EXPECT_EQ(WEXITSTATUS(run("sql '" + crf + "' - </")), kExitFailed);
    EXPECT_TRUE(Read_Bytes(crf) == before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

// A reader that goes away is a failed write, and no death in the middle of a job.
TEST_F(CommandLine, AReaderThatGoesAwayIsAFailure) {
    New();
    const std::string before = Read_Bytes(crf);
    const std::string status = Path("status");
    const std::string command = "(sleep 0.1; " + std::string(kHomeless) + TALLMAR_BIN_DIR + "/tallmar sql '" + crf +
                                "' 'UPDATE A SET Col_1 = 5' 2>/dev/null; echo $? >'" + status + "') | true";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(Read_Bytes(status), "1\n");
    EXPECT_TRUE(Read_Bytes(crf) == before);
    std::filesystem::remove(status);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CommandLine, ProgressIsShownOnATerminalOnly) {
    New();
    ConsoleOptions terminal;
    terminal.showProgress = true;
    EXPECT_TRUE(Holds(Run_Tallmar({"calc", crf}, "", terminal).err, " Calculating level 4: A"));
    EXPECT_EQ(Run_Tallmar({"calc", crf}).err, "");
}

TEST_F(CommandLine, ADocumentHasNoWindowToOpenIn) {
    std::ostringstream out, err;
    ConsolePlatform(out, err, {}).Open_Document("/usr/share/P1339.DOCX");
    EXPECT_EQ(err.str(),
              "Error: Document Not Opened: There is no window here to open the document /usr/share/P1339.DOCX in.\n");
    EXPECT_EQ(out.str(), "");
}

TEST_F(CommandLine, AChangedReportLeavesABackupInTheDataFolder) {
    New();
    const std::string before = Read_Bytes(crf);
    ConsoleOptions options;
    options.dataFolder = Path("data");
    ASSERT_EQ(Run_Tallmar({"info", crf}, "", options).status, kExitDone);
    EXPECT_FALSE(Names().contains("data"));
    ASSERT_EQ(Run_Tallmar({"calc", crf}, "", options).status, kExitDone);
    int backups = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Path("data"))) {
        if (entry.path().extension() != ".CRF") continue;
        ++backups;
        EXPECT_EQ(Read_Bytes(entry.path()), before);
    }
    EXPECT_EQ(backups, 1);
}

// In a child: the environment is the process's.
TEST_F(CommandLine, TheDataFolderIsNeverARelativeOne) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        setenv("HOME", "/home/mary", 1);
        setenv("XDG_DATA_HOME", "/data", 1);
        bool right = User_Data_Folder() == "/data/Tallmar 1728";
        for (const char* none : {"relative", "./relative", ""}) {
            setenv("XDG_DATA_HOME", none, 1);
            right = right && User_Data_Folder() == "/home/mary/.local/share/Tallmar 1728";
        }
        _exit(right ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

}  // namespace

}  // namespace tallmar
