#include "cli_test.h"

namespace tallmar {

namespace {

class NewCommand : public CliTest {
  protected:
    static Args With(const std::string& file, const std::string& provider, const std::string& start,
                     const std::string& end, const std::string& name) {
        Args args{"new", file, "--provider", provider, "--start", start, "--name", name};
        if (!end.empty()) args.insert(args.end(), {"--end", end});
        return args;
    }
};

TEST_F(NewCommand, MakesAReportAndNothingBesideIt) {
    EXPECT_EQ(Succeed(New_Command(crf)), "");
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
    EXPECT_EQ(Sql("SELECT FormNum, ProviderNumber, ProviderName, FYStart, FYEnd FROM Master"),
              "{\"FormNum\":\"1728\",\"ProviderNumber\":\"14-7100\",\"ProviderName\":\"Prairie Hearth Home Health\","
              "\"FYStart\":\"2015-10-01T00:00:00\",\"FYEnd\":\"2016-09-30T00:00:00\"}\n");
}

TEST_F(NewCommand, TheEndMayBeLeftOut) {
    Succeed(With(crf, "147100", "10/1/15", "", "Prairie Hearth"));
    EXPECT_EQ(Sql("SELECT ProviderNumber, FYEnd FROM Master"),
              "{\"ProviderNumber\":\"14-7100\",\"FYEnd\":\"2016-09-30T00:00:00\"}\n");
}

TEST_F(NewCommand, NamesMayHoldQuotesAndBrackets) {
    const std::string name = "[\"O'Hara\", Sons & \\ Co.]";
    Succeed(With(crf, "14-7100", "10/1/2015", "9/30/2016", name));
    EXPECT_EQ(Sql("SELECT ProviderName FROM Master"), "{\"ProviderName\":\"[\\\"O'Hara\\\", Sons & \\\\ Co.]\"}\n");
    EXPECT_EQ(Sql("SELECT Col_1 FROM S2 WHERE LineNum = 2"), "{\"Col_1\":\"[\\\"O'Hara\\\", Sons & \\\\ Co.]\"}\n");
}

TEST_F(NewCommand, AFacilityNameHoldsNoControlCharacters) {
    for (const char* name : {"Prairie \x1b[31mHearth", "Prairie\nHearth", "Prairie\tHearth", "Prairie\x7fHearth",
                             "Prairie\xC2\x9BHearth"}) {
        EXPECT_EQ(Fail({"new", crf, "--provider", "14-7100", "--start", "10/1/2015", "--name", name}),
                  "Error: Invalid Facility Name: Facility Name holds a line break or another character that cannot be "
                  "printed.  Please (re-)enter.\n");
    }
    EXPECT_TRUE(Names().empty());
    Succeed({"new", crf, "--provider", "14-7100", "--start", "10/1/2015", "--name", "Soins \xC3\xA0 Domicile"});
}

TEST_F(NewCommand, EachEntryIsCheckedAndNothingMade) {
    struct Case {
        std::string provider, start, end, name, box;
    };
    const std::string yearBox = "Error: Invalid Fiscal Year ";
    const Case cases[] = {
        {"14-710", "10/1/2015", "9/30/2016", "Prairie Hearth",
         "Tallmar 1728: You have entered an invalid Provider Number! Provider number must be 6 numeric digits.\n"},
        {"HO1234", "10/1/2015", "9/30/2016", "Prairie Hearth",
         "Tallmar 1728: You have entered an invalid Provider Number! Provider number must be 6 numeric digits.\n"},
        {"14-7100", "13/1/2015x", "9/30/2016", "Prairie Hearth",
         yearBox + "Start Date: Fiscal Year Start date is not a valid date.  Please (re-)enter one.\n"},
        {"14-7100", "10/1/2015", "soon", "Prairie Hearth",
         yearBox + "End Date: Fiscal Year End date is not a valid date.  Please (re-)enter one.\n"},
        {"14-7100", "10/1/2015", "10/1/2015", "Prairie Hearth",
         "Error: Invalid Dates: Invalid sequence of dates -- FY End preceeds FY Start.\n"},
        {"14-7100", "10/1/2015", "9/30/2016", "Prairie",
         "Error: Invalid Facility Name: Facility Name must be at least 8 characters.  Please (re-)enter.\n"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(Fail(With(crf, row.provider, row.start, row.end, row.name)), row.box);
        EXPECT_TRUE(Names().empty());
    }
}

TEST_F(NewCommand, AnOlderReportIsReplacedOnlyByAWholeOne) {
    New();
    const std::string before = Read_Bytes(crf);
    Fail(With(crf, "14-7100", "soon", "", "Prairie Hearth"));
    EXPECT_EQ(Read_Bytes(crf), before);
    const std::string question = "Replace File?: The file '" + crf + "' exists already.  Do you want to replace it?\n";
    Args another = With(crf, "36-7200", "1/1/2016", "12/31/2016", "Another Agency");
    EXPECT_EQ(Fail(another), question) << "the default is No";
    EXPECT_EQ(Read_Bytes(crf), before);
    another.insert(another.end(), {"--answer", "yes"});
    const TempFolder data;
    const Ran ran = Run_Tallmar(another, "", Keeping_Backups_In(data.Path()));
    EXPECT_EQ(ran.status, kExitDone);
    EXPECT_EQ(ran.err, question);
    std::vector<std::string> backups;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(data.Path())) {
        if (entry.path().extension() == ".CRF") backups.push_back(entry.path().string());
    }
    ASSERT_EQ(backups.size(), 1u);
    EXPECT_TRUE(Read_Bytes(backups[0]) == before);
    EXPECT_EQ(Sql("SELECT ProviderNumber FROM Master"), "{\"ProviderNumber\":\"36-7200\"}\n");
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(NewCommand, NamesThatNoReportMayHaveAreRefused) {
    EXPECT_EQ(
        Fail(New_Command(Path("QVRTemp.CRF"))),
        "System Error: The name QVRTemp.CRF is kept for the compaction of reports.  Please choose another one.\n");
    const std::string name = std::string(251, 'x') + ".CRF";
    EXPECT_EQ(Fail(New_Command(Path(name))),
              "System Error: The name of the file " + name + " is too long.  Please choose a shorter one.\n");
    EXPECT_TRUE(Names().empty());
}

TEST_F(NewCommand, PathsThatTakeNoFileAreNamed) {
    for (const std::string& path : {Path("missing/r.CRF"), Folder(), std::string("/proc/r.CRF")}) {
        const std::string box = Fail(New_Command(path));
        EXPECT_EQ(box.substr(0, 14), "System Error: ") << box;
        EXPECT_NE(box.find(path), std::string::npos) << box;
    }
    Fail(New_Command(""), "", kExitUsage);
    EXPECT_TRUE(Names().empty());
}

}  // namespace

}  // namespace tallmar
