#include "common/db_error.h"

#include <gtest/gtest.h>

namespace tallmar {
namespace {

TEST(DbErrors, SayWhatIsNamedAndWhere) {
    EXPECT_EQ(DbError(DbErrorCode::Overflow).Description(), "Overflow");
    EXPECT_EQ(DbError(DbErrorCode::TextTooLong, "CCName").Description(), "The text is too long for the field 'CCName'");
    const DbError placed(DbErrorCode::UnknownField, "Colour", "SELECT Colour FROM A", 7);
    EXPECT_EQ(placed.Description(), "Unknown field 'Colour' at character 8 of: SELECT Colour FROM A");
    EXPECT_EQ(placed.Number(), 3061);
}

TEST(DbErrors, AReasonFollows) {
    const DbError error(DbErrorCode::CannotOpen, "a.CRF", "it is a folder");
    EXPECT_EQ(error.Description(), "The file 'a.CRF' cannot be opened: it is a folder");
    EXPECT_EQ(error.Code(), DbErrorCode::CannotOpen);
}

TEST(DbErrors, TheFilesTroublesEndTheWorkAndAStatementsDoNot) {
    for (const DbErrorCode code : {DbErrorCode::OutOfMemory, DbErrorCode::DatabaseClosed, DbErrorCode::NotADatabase,
                                   DbErrorCode::CannotOpen, DbErrorCode::ReadOnly, DbErrorCode::FolderReadOnly,
                                   DbErrorCode::Locked, DbErrorCode::DiskFull, DbErrorCode::DiskError}) {
        EXPECT_TRUE(DbError(code).Ends_Work()) << DbError(code).Description();
    }
    for (const DbErrorCode code : {DbErrorCode::Overflow, DbErrorCode::UnknownField, DbErrorCode::DuplicateKey,
                                   DbErrorCode::Engine, DbErrorCode::BadTableName}) {
        EXPECT_FALSE(DbError(code).Ends_Work()) << DbError(code).Description();
    }
}

TEST(DbErrors, LongStatementsAndNamesAreCut) {
    const DbError error(DbErrorCode::SyntaxError, std::string(100, 'n'), std::string(2000, 's'), 0);
    EXPECT_EQ(error.Description(), "Syntax error near '" + std::string(80, 'n') +
                                       "...' at character 1 of: " + std::string(1000, 's') + "...");
}

TEST(DbErrors, APercentOrABraceInANameStaysAsItIs) {
    EXPECT_EQ(DbError(DbErrorCode::UnknownTable, "a{}b%s").Description(), "Unknown table 'a{}b%s'");
}

}  // namespace
}  // namespace tallmar
