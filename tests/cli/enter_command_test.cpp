#include <algorithm>
#include <chrono>

#include "cli_test.h"
#include "common/csv.h"

namespace tallmar {

namespace {

const std::string kSampleCells = std::string(TALLMAR_SOURCE_DIR) + "/samples/fy2016/cells.csv";

class EnterCommand : public CliTest {
  protected:
    void SetUp() override { New(); }
    std::string Cell(const std::string& table, const std::string& line, const std::string& column) {
        return Sql("SELECT " + column + " AS V FROM " + table + " WHERE LineNum = " + line);
    }
    static std::string V(const std::string& json) { return "{\"V\":" + json + "}\n"; }
    std::string Enter(const std::string& cells) { return Succeed({"enter", crf}, cells); }
    std::string Refuse(const std::string& cells) { return Fail({"enter", crf}, cells); }
};

TEST_F(EnterCommand, CellsComeFromAFileOrFromStandardInput) {
    Write_Bytes(Path("cells.csv"), "A,6,Col_1,100\n");
    EXPECT_EQ(Succeed({"enter", crf, Path("cells.csv")}), "");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("100"));
    EXPECT_EQ(Succeed({"enter", crf}, "A,6,Col_1,200"), "");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("200"));
    EXPECT_EQ(Succeed({"enter", crf, "-"}, "A,6,1,300"), "");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("300"));
    EXPECT_EQ(Names(), (std::set<std::string>{"cells.csv", "r.CRF"}));
}

TEST_F(EnterCommand, TheSamplesAreTakenWhole) {
    Succeed({"enter", crf, kSampleCells});
}

TEST_F(EnterCommand, HeadCommentsBlankLinesMarkAndLineEndsArePassedOver) {
    Enter("\xEF\xBB\xBF# first a word\r\n\r\nitem,linenum,column,value\r\n# A,6,1,1\r\nA, 6 ,\"Col_1\",\"1,200\"\r\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("1200"));
    Enter("Item,LineNum,Column,Value\rA,6,Col_1,7\r");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("7"));
    EXPECT_EQ(Enter(""), "");
    EXPECT_EQ(Enter("# nothing\n"), "");
    // Elsewhere the head is a cell like another one.
    EXPECT_EQ(Refuse("A,6,Col_1,8\nItem,LineNum,Column,Value\n"),
              "line 2: Unknown Worksheet: The report has no worksheet 'Item'.\n");
}

TEST_F(EnterCommand, ColumnsAreNamedWithoutRegardToCaseOrNumbered) {
    Enter("A,6,COL_1,1\nA,6,2,2\nA,6,ccname,\"Admin, \"\"General\"\" & 'Other'\"\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("1"));
    EXPECT_EQ(Cell("A", "6", "Col_2"), V("2"));
    EXPECT_EQ(Cell("A", "6", "CCName"), V(R"("Admin, \"General\" & 'Other'")"));
}

TEST_F(EnterCommand, WorksheetsAreNamedWithoutRegardToCase) {
    Enter("a,6,col_1,100\ns2,1,Col_1,Mill Road\nA,7,Col_1,200\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("100"));
    EXPECT_EQ(Cell("A", "7", "Col_1"), V("200"));
    EXPECT_EQ(Cell("S2", "1", "Col_1"), V("\"Mill Road\""));
}

TEST_F(EnterCommand, ARefusedCellIsToldAndTheOthersAreStored) {
    EXPECT_EQ(Refuse("A,6,Col_1,100\nA,6,Col_2,abc\nA,7,Col_1,200\n"),
              "line 2: Invalid Non-Numeric Entry: You're attempting to enter invalid data ['abc'].  The cell you're "
              "attempting to input or modify only accepts numeric data.  Your entry or modification is being "
              "discarded.  Select OK to continue.\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("100"));
    EXPECT_EQ(Cell("A", "6", "Col_2"), V("0"));
    EXPECT_EQ(Cell("A", "7", "Col_1"), V("200"));
}

TEST_F(EnterCommand, RefusalsComeInTheOrderOfTheFile) {
    EXPECT_EQ(Refuse("Z,1,1,1\nA,x,1,1\nA,6\nA,6,Col_99,1\nA,29,Col_1,1\nA,6,\"1\"x,1\nS3p3h,1,1,1\nB,1,1,1\n"),
              "line 1: Unknown Worksheet: The report has no worksheet 'Z'.\n"
              "line 2: Invalid Line: 'x' is no line number.\n"
              "line 3: A cell is Item,LineNum,Column,Value.\n"
              "line 4: Unknown Column: Worksheet A, line 6, column 'Col_99' does not exist.\n"
              "line 5: Locked Cell: Worksheet A, line 29 takes no entry: it is computed.\n"
              "line 6: A quoted field goes on behind its closing quote.\n"
              "line 7: Unknown Worksheet: The report has no worksheet 'S3p3h'.\n"
              "line 8: No Edit Form: Worksheet B has no edit form.\n");
}

TEST_F(EnterCommand, AWorksheetThatThisReportHasNotIsRefused) {
    // Worksheets of other editions, of a hospice that is not there and of a code that was not entered.
    for (const std::string item : {"A1", "A83p1", "K1h0", "Oh0", "Cp2c16580", "Cp2m1234", "\"A;\"", "[A]", "'A'",
                                   "Master", "CostCenters", "sqlite_master"}) {
        const Ran ran = Run_Tallmar({"enter", crf}, item + ",1,Col_1,1\n");
        EXPECT_EQ(ran.status, kExitFailed) << item;
        EXPECT_EQ(ran.err.substr(0, 8), "line 1: ") << item;
    }
}

TEST_F(EnterCommand, ATableWithoutARowInTheRegistryIsNoWorksheet) {
    Sql("SELECT LineNum, CCName, Col_1 INTO A1 FROM A");
    Sql("DELETE FROM Worksheets WHERE Item=\"A7\"");
    EXPECT_EQ(Refuse("A1,6,Col_1,5\nA7,1,Col_2,5\n"),
              "line 1: Unknown Worksheet: The report has no worksheet 'A1'.\n"
              "line 2: Unknown Worksheet: The report has no worksheet 'A7'.\n");
}

TEST_F(EnterCommand, AWarningIsTheFormsAndTheRoundedEntryIsKept) {
    const Ran ran = Run_Tallmar({"enter", crf}, "A,6,Col_1,12.5\n");
    EXPECT_EQ(ran.status, kExitDone);
    EXPECT_EQ(ran.err,
              "line 1: Too Specific Numeric Entry: You're attempting to enter invalid data ['12.5'].  The cell you're "
              "attempting to input or modify only accepts 0 digits to the right of the decimal point.  Your entry or "
              "modification is being rounded.\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("13"));
}

TEST_F(EnterCommand, EachBoxHasTheLineOfItsCell) {
    const std::string exclude = "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center: ";
    const Ran ran = Run_Tallmar({"enter", crf}, "A,6,Col_1,1\nB1,6,CC_500,1\nS2,27.01,Col_1,2.5\nA,6,Col_2,3.5\n");
    EXPECT_EQ(ran.status, kExitDone);
    // In the order in which they are entered: S-2 first.
    const std::size_t s2 = ran.err.find("line 3: Entry Error: You're attempting to enter invalid data ['2.5'].");
    const std::size_t a = ran.err.find("line 4: Too Specific Numeric Entry: You're attempting to enter");
    const std::size_t b1 = ran.err.find("line 2: " + exclude);
    EXPECT_EQ(s2, 0U) << ran.err;
    EXPECT_LT(a, b1) << ran.err;
    EXPECT_NE(b1, std::string::npos) << ran.err;
}

TEST_F(EnterCommand, WhatStandsOnB1IsNoModification) {
    Enter("B1,6,CC_500,0\nB1,7,CC_500,0\n");
    EXPECT_EQ(Sql("SELECT Count(*) AS V FROM B1X"), V("0"));
}

TEST_F(EnterCommand, ADroppedReclassificationIsToldAndFailsTheCommand) {
    EXPECT_EQ(Refuse("A4,1,Explanation,Move\nA4,1,Col_1,A\nA4,1,Col_4,100\nA,6,Col_1,5\n"),
              "Worksheet A-4: row 1 has no cost center and was dropped.\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("5")) << "what is not dropped is stored";
}

TEST_F(EnterCommand, ACodeWithFiguresGoesByTheAnswer) {
    Enter("S3p3,29,1,1600\nCp2m1600,1,Col_5,120\n");
    const std::string question =
        "line 1: Remove Code: The visits and limits of code 1600 on C Part II will be removed.  Do you wish to "
        "continue?\n";
    EXPECT_EQ(Refuse("S3p3,29,1,0040\n"), question + question) << "asked, and refused";
    EXPECT_EQ(Cell("Cp2m1600", "1", "Col_5"), V("120"));
    const Ran ran = Run_Tallmar({"enter", crf, "--answer", "yes"}, "S3p3,29,1,0040\n");
    EXPECT_EQ(ran.status, kExitDone);
    EXPECT_EQ(ran.err, question);
    EXPECT_EQ(Cell("S3p3", "29", "Col_1"), V("\"0040\""));
}

TEST_F(EnterCommand, ALineOutOfItsTurnIsRefusedWithTheNextOne) {
    EXPECT_EQ(Refuse("A5,13.05,Col_2,5\nA6pC,2,Col_2,Parent\n"),
              "line 1: Unknown Line: The next new line is 13.\nline 2: Unknown Line: The next new line is 1.\n");
}

TEST_F(EnterCommand, AClosedCellTellsWhatToAnswerFirst) {
    EXPECT_EQ(Refuse("S2,29.01,Col_1,Office\n"),
              "line 1: Locked Cell: Worksheet S2, line 29.01, column 1 Name takes no entry: answer line 29 with Y "
              "first.\n");
    Enter("S2,29,Col_1,Y\nS2,29.01,Col_1,Office\n");
    Enter("S2,29,Col_1,N\n");
    EXPECT_NE(Refuse("S2,29.01,Col_1,Other\n").find("answer line 29 with Y first"), std::string::npos);
    Enter("S2,29.01,Col_1,\n");
    EXPECT_EQ(Cell("S2", "29.01", "Col_1"), V("null"));
}

TEST_F(EnterCommand, ALineThatTheFormCanAddIsMade) {
    Enter("S3p3,29,2,16580\n");
    EXPECT_EQ(Sql("SELECT Count(*) AS V FROM Worksheets WHERE Item Like \"Cp2*\""), V("1"));
    EXPECT_NE(Refuse("A,99,Col_1,1\n"), "");
}

TEST_F(EnterCommand, HostileValuesAreTextsOrRefused) {
    const std::string hostile = "\"\"\"); DROP TABLE A; --\"";
    Enter("A,6,CCName," + hostile + "\nS2,1,Col_1," + hostile + "\n");
    EXPECT_EQ(Cell("A", "6", "CCName"), V(R"("\"); DROP TABLE A; --")"));
    EXPECT_EQ(Cell("S2", "1", "Col_1"), V(R"("\"); DROP TABLE A; --")"));

    const std::string cases[] = {"A,6,CCName," + std::string(37, 'x'),
                                 "A,6,CCName," + std::string(900'000, 'x'),
                                 "A,6,Col_1," + std::string(5000, '9'),
                                 "A,6,Col_1,1e400",
                                 "A,6,Col_1,nan",
                                 "A,6,Col_1,0x10",
                                 "A,6,Col_1,922337203685478",
                                 "A,6,Col_1,=1+1",
                                 "A,6,Col_1,\"1\n2\"",
                                 "A,6,\"Col_1 = 1, Col_2\",1",
                                 "A,\"6 OR 1=1\",Col_1,1",
                                 "A,1e30,Col_1,1",
                                 "A,,Col_1,1",
                                 ",6,Col_1,1",
                                 "A,6,,1",
                                 "A,6,Col_1,1,1",
                                 "A",
                                 ",",
                                 std::string("A,6,Col_1,1\0", 12),
                                 std::string("A\0,6,Col_1,1", 12),
                                 "A,6,Col_1,\"1",
                                 "A,6,Col_1," + std::string(2'000'000, ' ')};
    const std::string before = Succeed({"dump", crf, "A"});
    for (const std::string& cell : cases) {
        const std::string told = Refuse(cell + "\n");
        EXPECT_EQ(told.substr(0, 8), "line 1: ") << cell.substr(0, 60);
        EXPECT_EQ(std::ranges::count(told, '\n'), 1) << cell.substr(0, 60);
    }
    EXPECT_EQ(Succeed({"dump", crf, "A"}), before);
}

TEST_F(EnterCommand, AnOpenQuoteIsToldAtItsLine) {
    EXPECT_EQ(Refuse("A,6,Col_1,5\nA,7,Col_1,\"6\nA,8,Col_1,7\n"), "line 2: A quote is opened and never closed.\n");
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("5"));
}

TEST_F(EnterCommand, LinesInsideAnOverlongTextAreNoCells) {
    std::string cells = "S2,1,Col_1,\"";
    while (cells.size() <= CsvReader::kMaxRecord) cells += "x\n";
    EXPECT_EQ(Refuse(cells + "A,6,Col_5,999\n\"\nA,7,Col_5,999\n"),
              "line 1: The line is longer than a million characters.  The rest of the list was not read.\n");
    EXPECT_EQ(Cell("A", "6", "Col_5"), V("0"));
    EXPECT_EQ(Cell("A", "7", "Col_5"), V("0"));
}

TEST_F(EnterCommand, AReadErrorStoresNothing) {
    const std::string before = Read_Bytes(crf);
    BrokenText text("A,6,Col_1,5\nA,7,Col_1,6\n");
    std::istream in(&text);
    std::ostringstream out, err;
    EXPECT_EQ(Run_Command_Line({"enter", crf}, in, out, err), kExitFailed);
    EXPECT_EQ(err.str(), "Standard input cannot be read.\n");
    EXPECT_EQ(Read_Bytes(crf), before);
}

TEST_F(EnterCommand, RefusalsEndWithACount) {
    std::string cells;
    for (int i = 0; i < 1'500; ++i) cells += "A,6,Nope,1\n";
    cells += "x\nA,6,Col_1,5\n";
    const std::string told = Refuse(cells);
    EXPECT_TRUE(told.starts_with("line 1: Unknown Column: ")) << told.substr(0, 200);
    EXPECT_NE(told.find("\nline 1000: "), std::string::npos);
    EXPECT_TRUE(told.ends_with("\n501 more were refused.\n")) << told.substr(told.size() - 200);
    EXPECT_EQ(std::ranges::count(told, '\n'), 1'001);
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("5"));
}

TEST_F(EnterCommand, QuotedFieldsMayHoldLineBreaks) {
    EXPECT_EQ(Refuse("S2,1,Col_1,\"418 Old\r\nMill Road\"\nA,6,Col_1,x1\n").substr(0, 8), "line 3: ");
    EXPECT_EQ(Cell("S2", "1", "Col_1"), V("\"418 Old\\r\\nMill Road\""));
}

TEST_F(EnterCommand, OtherBytesAreCodePage1252) {
    Enter("A,6,CCName,\"Caf\xe9 \x80\"\nA,7,CCName,Café €\n");
    EXPECT_EQ(Cell("A", "6", "CCName"), V("\"Café €\""));
    EXPECT_EQ(Cell("A", "7", "CCName"), V("\"Café €\""));
}

TEST_F(EnterCommand, CellsThatCannotBeReadLeaveTheReport) {
    const std::string before = Read_Bytes(crf);
    EXPECT_EQ(Fail({"enter", crf, Path("no.csv")}), Path("no.csv") + " cannot be read.\n");
    EXPECT_EQ(Fail({"enter", crf, Folder()}), Folder() + " cannot be read.\n");
    Refuse("A,6,Col_1,x\nnonsense\n");
    EXPECT_EQ(Read_Bytes(crf), before);
    EXPECT_EQ(Names(), std::set<std::string>{"r.CRF"});
}

TEST_F(EnterCommand, TenThousandCellsTakeLessThanTwoSeconds) {
    std::string cells;
    for (int i = 0; i < 10'000; ++i) {
        cells +=
            "A," + std::to_string(6 + i % 10) + ",Col_" + std::to_string(1 + i % 5) + "," + std::to_string(i) + "\n";
    }
    const auto start = std::chrono::steady_clock::now();
    Enter(cells);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    // The later of two entries of one cell stands: the last for line 6, column 1 is number 9990.
    EXPECT_EQ(Cell("A", "6", "Col_1"), V("9990"));
    EXPECT_EQ(Cell("A", "15", "Col_5"), V("9999"));
}

TEST_F(EnterCommand, AReadOnlyReportStaysAsItIs) {
    std::filesystem::permissions(crf, std::filesystem::perms::owner_read);
    const std::string before = Read_Bytes(crf);
    EXPECT_NE(Refuse("A,6,Col_1,5\n").find("read only"), std::string::npos);
    EXPECT_EQ(Read_Bytes(crf), before);
}

}  // namespace

}  // namespace tallmar
