#include "common/db_error.h"

#include <algorithm>
#include <utility>

#include "common/text.h"

namespace tallmar {

namespace {

enum class Scope : std::uint8_t { Statement, File };

// `plain` is the text where there is nothing to name; "{}" is replaced by what is named.
struct DbErrorText {
    DbErrorCode code;
    std::string_view plain;
    std::string_view naming;
    Scope scope = Scope::Statement;
};

constexpr DbErrorText kDbErrors[] = {
    {DbErrorCode::Overflow, "Overflow", "Overflow in '{}'"},
    {DbErrorCode::OutOfMemory, "Out of memory", "Out of memory: '{}'", Scope::File},
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
    {DbErrorCode::BadTableName, "No name for a table", "'{}' is no name for a table"},
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
    {DbErrorCode::DatabaseClosed, "The database is closed", "The database '{}' is closed", Scope::File},
    {DbErrorCode::NotADatabase, "The file is no report file, or is damaged",
     "The file '{}' is no report file, or is damaged", Scope::File},
    {DbErrorCode::NewerLayout, "The file was written by a newer version of this program",
     "The file '{}' was written by a newer version of this program", Scope::File},
    {DbErrorCode::CannotOpen, "The file cannot be opened", "The file '{}' cannot be opened", Scope::File},
    {DbErrorCode::ReadOnly, "The file is read only", "The file '{}' is read only", Scope::File},
    {DbErrorCode::FolderReadOnly, "No permission to write in the folder of the file",
     "No permission to write in the folder of the file '{}'", Scope::File},
    {DbErrorCode::Locked, "The file is in use", "The file '{}' is in use", Scope::File},
    {DbErrorCode::DiskFull, "The disk is full", "The disk is full: '{}'", Scope::File},
    {DbErrorCode::DiskError, "Disk error", "Disk error in '{}'", Scope::File},
    {DbErrorCode::Engine, "Error of the database engine", "Error of the database engine: {}"},
};

constexpr std::size_t kLongestName = 80;
constexpr std::size_t kLongestStatement = 1000;

std::string Shortened(std::string_view text, std::size_t longest) {
    if (Length(text) <= longest) return std::string(text);
    return Left(text, static_cast<long>(longest)) + "...";
}

const DbErrorText* Find_Text(DbErrorCode code) {
    const auto found = std::ranges::find(kDbErrors, code, &DbErrorText::code);
    return found == std::end(kDbErrors) ? nullptr : found;
}

std::string Text_Of(DbErrorCode code, std::string_view argument) {
    const DbErrorText* text = Find_Text(code);
    if (text == nullptr) return std::string(argument);
    if (argument.empty()) return std::string(text->plain);
    return Replace(text->naming, "{}", Shortened(argument, kLongestName));
}

// "Syntax error near 'FORM' at character 10 of: SELECT * FORM A"
std::string Placed_Text(DbErrorCode code, std::string_view argument, std::string_view statement, std::size_t offset) {
    std::string text = Text_Of(code, argument);
    if (offset < statement.size()) text += " at character " + std::to_string(Length(statement.substr(0, offset)) + 1);
    return text + " of: " + Shortened(statement, kLongestStatement);
}

std::string Text_At(DbErrorCode code, const DbPlace& where) {
    std::string text = Text_Of(code, {});
    if (!where.table.empty()) text += " in " + where.table;
    if (!where.line.empty()) text += ", line " + where.line;
    if (!where.field.empty()) text += (where.table.empty() ? " in column " : ", column ") + where.field;
    return text;
}

}  // namespace

DbError::DbError(DbErrorCode code, std::string_view argument)
    : std::runtime_error(Text_Of(code, argument)), code_(code) {}

DbError::DbError(DbErrorCode code, std::string_view argument, std::string_view reason)
    : std::runtime_error(Text_Of(code, argument) + ": " + std::string(reason)), code_(code) {}

DbError::DbError(DbErrorCode code, std::string_view argument, std::string_view statement, std::size_t offset)
    : std::runtime_error(Placed_Text(code, argument, statement, offset)), code_(code) {}

bool DbError::Ends_Work() const {
    const DbErrorText* text = Find_Text(code_);
    return text != nullptr && text->scope == Scope::File;
}

DbError::DbError(DbErrorCode code, DbPlace where)
    : std::runtime_error(Text_At(code, where)), code_(code), where_(std::move(where)) {}

}  // namespace tallmar
