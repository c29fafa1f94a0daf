// calc, save-as and compact: the commands that leave a file or change it as a whole.
#include "cli_test.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSaveAsFailed =
    "Error: Save As Request Failed: PROBLEM Encountered: Your Save As request failed and was not able to be "
    "accomplished.  Your original CRF file has not been altered.  Hit OK to continue running Tallmar.\n";

class CalcCommand : public CliTest {
  protected:
    void SetUp() override { New(); }
    // Runs a command that replaces a file, and is allowed to.
    void Replace(Args args) {
        args.insert(args.end(), {"--answer", "yes"});
        const Ran ran = Run_Tallmar(args);
        EXPECT_EQ(ran.status, kExitDone) << ran.err;
    }
};
using SaveAsCommand = CalcCommand;
using CompactCommand = CalcCommand;

TEST_F(CalcCommand, CarriesAnAmountThroughTheReport) {
    Succeed({"enter", crf}, "A,6,Col_1,1118400\n");
    EXPECT_EQ(Succeed({"calc", crf}), "");
    EXPECT_EQ(Sql("SELECT Col_10 FROM A WHERE LineNum = 29"), "{\"Col_10\":1118400}\n");
    EXPECT_EQ(Sql("SELECT NetExpenses FROM B WHERE LineNum = 29"), "{\"NetExpenses\":1118400}\n");
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CalcCommand, MessagesAreJsonLines) {
    Sql("DELETE * FROM B1 WHERE LineNum >= 29");
    EXPECT_EQ(Succeed({"calc", crf}),
              "{\"ErrLevel\":\"E\",\"ErrForm\":\"B1\",\"ErrMessage\":\"CALC_B1: No record found with LineNum = 30.\"}\n"
              "{\"ErrLevel\":\"E\",\"ErrForm\":\"B1\",\"ErrMessage\":\"CALC_B1: No record found with LineNum = 31.\"}\n"
              "{\"ErrLevel\":\"E\",\"ErrForm\":\"B1\",\"ErrMessage\":\"No current record\"}\n");
}

TEST_F(CalcCommand, AnOverflowNamesItsCellAndWhatIsOld) {
    std::string cells;
    for (int line = 6; line < 16; ++line) cells += "A," + std::to_string(line) + ",Col_1,99999999999999\n";
    Succeed({"enter", crf}, cells);
    const auto message = [](const std::string& worksheet, const std::string& place) {
        return R"({"ErrLevel":"E","ErrForm":")" + worksheet + R"(","ErrMessage":"Overflow in )" + place +
               ".  Worksheet " + worksheet +
               " was not calculated to its end: some of its figures, and of those that follow from them, are of an "
               "earlier calculation.\"}\n";
    };
    // Each line of A fits; their sum does not, on A itself and as the costs that B allocates.
    EXPECT_EQ(Succeed({"calc", crf}),
              message("A", "A, line 29, column Col_1") + message("B1", "B, column NetExpenses"));
}

// A statistic by which nothing can be allocated, or everything.
TEST_F(CalcCommand, AStatisticWithoutMeaningIsTold) {
    for (const char* statistic : {"1E-308", "1E308"}) {
        Sql("UPDATE A SET Col_5 = 146500 WHERE LineNum = 1");
        Sql("UPDATE B1 SET CC_100 = 0");
        Sql(std::string("UPDATE B1 SET CC_100 = ") + statistic + " WHERE LineNum = 6");
        const std::string told = Succeed({"calc", crf});
        EXPECT_NE(told.find("Overflow in B1, line 29, column CC_100.  Worksheet B1 was not calculated"),
                  std::string::npos)
            << told;
    }
}

TEST_F(CalcCommand, KnowsNoEditChecksYet) {
    const std::string before = Read_Bytes(crf);
    EXPECT_NE(Fail({"calc", crf, "--check"}, "", kExitUsage).find("--check"), std::string::npos);
    EXPECT_EQ(Read_Bytes(crf), before);
}

TEST_F(CalcCommand, AReadOnlyReportStaysAsItIs) {
    fs::permissions(crf, fs::perms::owner_read);
    const std::string before = Read_Bytes(crf);
    EXPECT_NE(Fail({"calc", crf}).find("read only"), std::string::npos);
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(SaveAsCommand, CopiesTheReport) {
    const std::string before = Read_Bytes(crf);
    EXPECT_EQ(Succeed({"save-as", crf, Path("copy \"2\".CRF")}), "");
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Read_Bytes(Path("copy \"2\".CRF")), before);
    EXPECT_EQ(Names().size(), 2u);
}

TEST_F(SaveAsCommand, OverAnotherFileReplacesIt) {
    Write_Bytes(Path("old.CRF"), "no report at all");
    const std::string question =
        "Replace File?: The file '" + Path("old.CRF") + "' exists already.  Do you want to replace it?\n";
    EXPECT_EQ(Fail({"save-as", crf, Path("old.CRF")}), question);
    EXPECT_EQ(Read_Bytes(Path("old.CRF")), "no report at all");
    Replace({"save-as", crf, Path("old.CRF")});
    EXPECT_EQ(Read_Bytes(Path("old.CRF")), Read_Bytes(crf));
}

TEST_F(SaveAsCommand, OntoItselfChangesNothing) {
    const std::string before = Read_Bytes(crf);
    fs::create_hard_link(crf, Path("link.CRF"));
    fs::create_symlink(crf, Path("soft.CRF"));
    for (const std::string& target : {crf, Folder() + "/./r.CRF", Path("link.CRF"), Path("soft.CRF")}) {
        Succeed({"save-as", crf, target});
        EXPECT_EQ(Read_Bytes(crf), before) << target;
    }
    EXPECT_EQ(Names().size(), 3u);
}

TEST_F(SaveAsCommand, WhereNoFileCanBeTheBoxSaysSo) {
    const std::string before = Read_Bytes(crf);
    Write_Bytes(Path("kept.CRF"), "kept");
    fs::permissions(Path("kept.CRF"), fs::perms::owner_read);
    fs::create_directory(Path("folder"));
    for (const std::string& target :
         {Path("missing/r.CRF"), Path("folder"), Path("kept.CRF"), Path("r.CRF/x.CRF"), std::string("/proc/r.CRF")}) {
        const Ran ran = Run_Tallmar({"save-as", crf, target, "--answer", "yes"});
        EXPECT_EQ(ran.status, kExitFailed) << target;
        EXPECT_NE(ran.err.find(kSaveAsFailed), std::string::npos) << target << ": " << ran.err;
        EXPECT_NE(ran.err.substr(ran.err.find(kSaveAsFailed) + kSaveAsFailed.size()).find(target), std::string::npos)
            << "the reason: " << ran.err;
    }
    const std::string name(300, 'x');
    EXPECT_EQ(Fail({"save-as", crf, Path(name)}), "Error: Save As Request Failed: The name of the file " + name +
                                                      " is too long.  Please choose a shorter one.\n");
    EXPECT_EQ(
        Fail({"save-as", crf, Path("QVRTemp.CRF")}),
        "Error: Save As Request Failed: The name QVRTemp.CRF is kept for the compaction of reports.  Please choose "
        "another one.\n");
    EXPECT_EQ(Read_Bytes(Path("kept.CRF")), "kept");
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), (std::set<std::string>{"r.CRF", "kept.CRF", "folder"}));
    EXPECT_TRUE(fs::is_empty(Path("folder")));
}

TEST_F(SaveAsCommand, AnEmptyNameSavesNothing) {
    EXPECT_EQ(Fail({"save-as", crf, ""}, "", kExitUsage), "The copy needs a name.\n");
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CompactCommand, KeepsEveryCellInASmallerFile) {
    Sql("SELECT A.* INTO Big FROM A");
    for (int i = 0; i < 6; ++i) Sql("INSERT INTO Big SELECT * FROM Big");
    Sql("DROP TABLE Big");
    const std::string dump = Succeed({"dump", crf});
    const auto size = fs::file_size(crf);
    EXPECT_EQ(Succeed({"compact", crf}), "");
    EXPECT_LT(fs::file_size(crf), size);
    EXPECT_EQ(Succeed({"dump", crf}), dump);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CompactCommand, AReadOnlyReportStaysAsItIsAndTheReasonIsTold) {
    fs::permissions(crf, fs::perms::owner_read);
    const std::string before = Read_Bytes(crf);
    EXPECT_EQ(Fail({"compact", crf}), "The report was not compacted.  The file '" + crf + "' is read only.\n");
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CompactCommand, AStaleTemporaryFileGoes) {
    fs::copy_file(crf, Path("QVRTemp.CRF"));
    Succeed({"compact", crf});
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
    fs::create_hard_link(crf, Path("QVRTemp.CRF"));
    Succeed({"calc", crf});
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(CompactCommand, OtherFilesOfTheFolderStay) {
    const std::set<std::string> names{"QVRTemp.CRF", "r.CRF", "r.CRF.tmp"};
    Write_Bytes(Path("QVRTemp.CRF"), "of another agency");
    Write_Bytes(Path("r.CRF.tmp"), "precious");
    for (const Args& command : {Args{"info", crf}, Args{"dump", crf}, Args{"calc", crf}, Args{"compact", crf}}) {
        Succeed(command);
        EXPECT_EQ(Names(), names) << command[0];
    }
    EXPECT_EQ(Read_Bytes(Path("QVRTemp.CRF")), "of another agency");
    EXPECT_EQ(Read_Bytes(Path("r.CRF.tmp")), "precious");
}

}  // namespace

}  // namespace tallmar
