#include "common/db/error.h"

#include "common/text.h"

namespace tallmar {

namespace {

// `plain` speaks where there is nothing to name; "{}" stands for what is named.
struct DbErrorText {
    DbErrorCode code;
    std::string_view plain;
    std::string_view naming;
};

constexpr DbErrorText kDbErrors[] = {
    {DbErrorCode::Overflow, "Overflow", "Overflow in '{}'"},
    {DbErrorCode::DivisionByZero, "Division by zero", "Division by zero in '{}'"},
    {DbErrorCode::TypeMismatch, "Type mismatch", "Type mismatch: '{}'"},
    {DbErrorCode::SyntaxError, "Syntax error at the end", "Syntax error near '{}'"},
    {DbErrorCode::UnknownTable, "Unknown table", "Unknown table '{}'"},
    {DbErrorCode::UnknownField, "Unknown field", "Unknown field '{}'"},
    {DbErrorCode::AmbiguousField, "Ambiguous field", "The field '{}' stands in more than one table"},
    {DbErrorCode::UnknownFunction, "Unknown function", "Unknown function '{}'"},
    {DbErrorCode::WrongArguments, "Wrong arguments", "Wrong arguments of '{}'"},
    {DbErrorCode::ValueCount, "The number of values and the number of fields differ",
     "The number of values and the number of fields of '{}' differ"},
    {DbErrorCode::NotGrouped, "A field is neither grouped nor summed", "'{}' is neither grouped nor summed"},
    {DbErrorCode::TooComplex, "The statement is too complex", "The statement is too complex near '{}'"},
    {DbErrorCode::TableExists, "The table exists already", "The table '{}' exists already"},
    {DbErrorCode::FieldExists, "The field exists already", "The field '{}' exists already"},
    {DbErrorCode::IndexExists, "The index exists already", "The index '{}' exists already"},
    {DbErrorCode::UnknownIndex, "Unknown index", "Unknown index '{}'"},
    {DbErrorCode::DuplicateKey, "Duplicate value in a unique index", "Duplicate value in the unique index of '{}'"},
    {DbErrorCode::NullNotAllowed, "A field cannot be Null", "The field '{}' cannot be Null"},
    {DbErrorCode::TextTooLong, "A text is too long for its field", "The text is too long for the field '{}'"},
    {DbErrorCode::NotUpdatable, "Cannot be updated", "Cannot be updated: '{}'"},
    {DbErrorCode::NoCurrentRecord, "No current record", "No current record in '{}'"},
    {DbErrorCode::NoEdit, "Update without AddNew or Edit", "Update without AddNew or Edit of '{}'"},
    {DbErrorCode::ItemNotFound, "Item not found", "Item '{}' not found"},
    {DbErrorCode::InvalidOperation, "Invalid operation", "Invalid operation: '{}'"},
    {DbErrorCode::DatabaseClosed, "The database is closed", "The database '{}' is closed"},
    {DbErrorCode::NotADatabase, "The file is no report file, or is damaged",
     "The file '{}' is no report file, or is damaged"},
    {DbErrorCode::NewerLayout, "The file was written by a newer version of this program",
     "The file '{}' was written by a newer version of this program"},
    {DbErrorCode::CannotOpen, "The file cannot be opened", "The file '{}' cannot be opened"},
    {DbErrorCode::ReadOnly, "The file is read only", "The file '{}' is read only"},
    {DbErrorCode::Locked, "The file is in use", "The file '{}' is in use"},
    {DbErrorCode::DiskFull, "The disk is full", "The disk is full: '{}'"},
    {DbErrorCode::DiskError, "Disk error", "Disk error in '{}'"},
    {DbErrorCode::Engine, "Error of the database engine", "Error of the database engine: {}"},
};

constexpr std::size_t kLongestName = 80;
constexpr std::size_t kLongestStatement = 1000;

std::string Shortened(std::string_view text, std::size_t longest) {
    if (Length(text) <= longest) return std::string(text);
    return Left(text, static_cast<long>(longest)) + "...";
}

std::string Text_Of(DbErrorCode code, std::string_view argument) {
    for (const DbErrorText& row : kDbErrors) {
        if (row.code != code) continue;
        if (argument.empty()) return std::string(row.plain);
        return Replace(row.naming, "{}", Shortened(argument, kLongestName));
    }
    return std::string(argument);
}

// "Syntax error near 'FORM' at character 10 of: SELECT * FORM A"
std::string Placed_Text(DbErrorCode code, std::string_view argument, std::string_view statement, std::size_t offset) {
    std::string text = Text_Of(code, argument);
    if (offset < statement.size()) text += " at character " + std::to_string(Length(statement.substr(0, offset)) + 1);
    return text + " of: " + Shortened(statement, kLongestStatement);
}

}  // namespace

DbError::DbError(DbErrorCode code, std::string_view argument)
    : std::runtime_error(Text_Of(code, argument)), code_(code) {}

DbError::DbError(DbErrorCode code, std::string_view argument, std::string_view statement, std::size_t offset)
    : std::runtime_error(Placed_Text(code, argument, statement, offset)), code_(code) {}

}  // namespace tallmar
