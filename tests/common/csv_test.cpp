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

TEST(CsvTest, ZeroBytesAndEndlessLinesAreTold) {
    EXPECT_EQ(Read_All(std::string("a\0b\nc\n", 6))[0].trouble, "The line holds a zero byte.");
    const auto records = Read_All(std::string(CsvReader::kMaxRecord + 10, 'x') + "\nnext\n");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].trouble, "The line is longer than a million characters.");
    EXPECT_EQ(records[1].fields, (Fields{"next"}));
}

}  // namespace tallmar
