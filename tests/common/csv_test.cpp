#include "common/csv.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tallmar {

namespace {

std::vector<CsvRecord> Read_All(const std::string& text) {
    std::istringstream in(text);
    CsvReader reader(in);
    std::vector<CsvRecord> records;
    while (auto record = reader.Next()) records.push_back(*record);
    return records;
}

using Fields = std::vector<std::string>;

}  // namespace

TEST(CsvTest, QuotedFieldsHoldCommasQuotesAndLineBreaks) {
    const auto records = Read_All("A4,1,\"a, \"\"b\"\"\",\"x\r\ny\"\nB,2,,z\n");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].fields, (Fields{"A4", "1", "a, \"b\"", "x\r\ny"}));
    EXPECT_EQ(records[1].fields, (Fields{"B", "2", "", "z"}));
    EXPECT_EQ(records[1].line, 3) << "a line break inside quotes counts";
}

TEST(CsvTest, CommentsBlankLinesAndByteOrderMarkArePassedOver) {
    const auto records = Read_All("\xEF\xBB\xBF# head\r\n\r\nA,1\r\n# tail");
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].fields, (Fields{"A", "1"}));
    EXPECT_EQ(records[0].line, 3);
}

TEST(CsvTest, EachKindOfLineEndEndsALine) {
    EXPECT_EQ(Read_All("a\rb\nc\r\nd").size(), 4u);
}

TEST(CsvTest, AnOpenQuoteIsToldWithTheLineItBeganOn) {
    const auto records = Read_All("a,b\nc,\"d\ne,f\n");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[1].line, 2);
    EXPECT_EQ(records[1].trouble, "A quote is opened and never closed.");
}

TEST(CsvTest, TextBehindAClosingQuoteIsTold) {
    const auto records = Read_All("\"a\"b,c\nd\n");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].trouble, "A quoted field goes on behind its closing quote.");
    EXPECT_EQ(records[1].trouble, "");
}

TEST(CsvTest, OtherBytesAreCodePage1252) {
    EXPECT_EQ(Read_All("caf\xE9\n")[0].fields[0], "caf\xC3\xA9");
}

TEST(CsvTest, ZeroBytesAreTold) {
    const auto records = Read_All(std::string("a\0b\nc\n", 6));
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].trouble, "The line holds a zero byte.  Save the list as UTF-8 text.");
    EXPECT_EQ(records[1].fields, (Fields{"c"}));
}

// What follows may be the inside of a quoted text, and must not be read as cells.
TEST(CsvTest, AnOverlongRecordIsTheLast) {
    std::string quoted = "S2,1,\"";
    while (quoted.size() <= CsvReader::kMaxRecord + 10) quoted += "x\n";
    const std::string endless = std::string(CsvReader::kMaxRecord + 10, 'x') + ",\"\n";
    for (const std::string& head : {quoted, endless}) {
        const auto records = Read_All("first\n" + head + "A,6,Col_5,999\n\"\n");
        ASSERT_EQ(records.size(), 2u);
        EXPECT_EQ(records[1].line, 2);
        EXPECT_EQ(records[1].trouble,
                  "The line is longer than a million characters.  The rest of the list was not read.");
    }
}

TEST(CsvTest, ARecordOfTheLongestLengthIsRead) {
    const auto records = Read_All(std::string(CsvReader::kMaxRecord - 1, 'x') + "\nnext\n");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].trouble, "");
}

TEST(CsvTest, Utf16IsToldOnce) {
    for (const std::string& text : {std::string("\xFF\xFE\x41\0\n\0\x42\0", 8), std::string("\xFE\xFF\0\x41\0\n", 6)}) {
        const auto records = Read_All(text);
        ASSERT_EQ(records.size(), 1u);
        EXPECT_EQ(records[0].trouble, "The text is UTF-16.  Save it as UTF-8 and try again.");
    }
    EXPECT_EQ(Read_All("\xFF,1\n")[0].fields, (Fields{"\xC3\xBF", "1"})) << "a letter of code page 1252";
}

}  // namespace tallmar
