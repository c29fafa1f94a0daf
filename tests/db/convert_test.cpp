#include "db/convert.h"

#include <gtest/gtest.h>

#include "common/db_error.h"

namespace tallmar {
namespace {

Value Kept(const Value& value, FieldType type, int size = 0) {
    return Convert_For_Field(value, FieldDef{"CCName", type, size});
}

std::string Message(const Value& value, FieldType type, int size = 0) {
    try {
        Kept(value, type, size);
    } catch (const DbError& error) {
        return error.Description();
    }
    return "no error";
}

TEST(Convert, WholeNumbersAreRoundedAndChecked) {
    EXPECT_EQ(Kept(2.5, FieldType::Long), Value(2));
    EXPECT_EQ(Kept(255, FieldType::Byte), Value(255));
    EXPECT_EQ(Message(256, FieldType::Byte), "Overflow");
    EXPECT_EQ(Message(-1, FieldType::Byte), "Overflow");
    EXPECT_EQ(Kept(-32768, FieldType::Integer), Value(-32768));
    EXPECT_EQ(Message(32768, FieldType::Integer), "Overflow");
    EXPECT_EQ(Message(2147483648.0, FieldType::Long), "Overflow");
    EXPECT_EQ(Kept("12", FieldType::Integer), Value(12));
}

TEST(Convert, AmountsRoundHalvesToEven) {
    EXPECT_EQ(Kept(1.00005, FieldType::Currency), Value(1.0000_cur));
    EXPECT_EQ(Kept(1.00015, FieldType::Currency), Value(1.0002_cur));
    EXPECT_EQ(Kept("23.2", FieldType::Currency), Value(23.2_cur));
    EXPECT_EQ(Message(1e15, FieldType::Currency), "Overflow");
    EXPECT_EQ(Message("n/a", FieldType::Currency), "Type mismatch: 'CCName'");
}

TEST(Convert, SinglesHave24Bits) {
    EXPECT_EQ(Kept(0.1, FieldType::Single), Value(static_cast<double>(0.1F)));
    EXPECT_EQ(Message(1e39, FieldType::Single), "Overflow");
}

TEST(Convert, TextsAreMeasuredInCharacters) {
    EXPECT_EQ(Kept("\xC3\x84\xC3\x96", FieldType::Text, 2), Value("\xC3\x84\xC3\x96"));
    EXPECT_EQ(Message("abc", FieldType::Text, 2), "The text is too long for the field 'CCName'");
    EXPECT_EQ(Message("abc", FieldType::Char, 2), "The text is too long for the field 'CCName'");
    EXPECT_EQ(Kept(std::string(1000, 'x'), FieldType::Memo), Value(std::string(1000, 'x')));
    EXPECT_EQ(Kept(5.01_cur, FieldType::Text, 10), Value("5.01"));
}

TEST(Convert, FlagsAndDates) {
    EXPECT_EQ(Kept(5, FieldType::Boolean), Value(true));
    EXPECT_EQ(Kept("false", FieldType::Boolean), Value(false));
    EXPECT_EQ(Kept("-1", FieldType::Boolean), Value(true));
    EXPECT_EQ(Kept("10/1/2000", FieldType::Date), Value(Date{36800}));
    EXPECT_EQ(Kept(36800, FieldType::Date), Value(Date{36800}));
    EXPECT_EQ(Message("soon", FieldType::Date), "Type mismatch: 'CCName'");
}

TEST(Convert, NullStaysNull) {
    for (const FieldType type : {FieldType::Boolean, FieldType::Long, FieldType::Currency, FieldType::Text}) {
        EXPECT_TRUE(Kept(Null, type, 1).Is_Null());
    }
}

}  // namespace
}  // namespace tallmar
