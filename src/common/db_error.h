// Errors of the database layer: a number and a description. Code that "ignores errors" catches exactly DbError around
// one operation.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace tallmar {

// Every trouble that the layer can meet. The numbers are shown to users and written into logs: never renumber.
enum class DbErrorCode : int {
    Overflow = 6,
    OutOfMemory = 7,
    DivisionByZero = 11,
    TypeMismatch = 13,
    SyntaxError = 3075,  // the statement is outside the dialect; the text names the place
    UnknownTable = 3078,
    UnknownField = 3061,
    AmbiguousField = 3079,
    UnknownFunction = 3085,
    WrongArguments = 3071,
    ValueCount = 3346,    // as many values as fields are needed
    NotGrouped = 3122,    // a field that is neither grouped nor summed
    TooComplex = 3360,    // nested too deep, or too long
    BadTableName = 3125,  // with a separator of folders, a dot or a control character
    TableExists = 3010,
    FieldExists = 3191,
    IndexExists = 3284,
    UnknownIndex = 3015,
    DuplicateKey = 3022,
    NullNotAllowed = 3058,
    TextTooLong = 3163,
    NotUpdatable = 3027,
    NoCurrentRecord = 3021,
    NoEdit = 3020,        // Update or a field's value set without AddNew or Edit
    ItemNotFound = 3265,  // no such field in a recordset
    InvalidOperation = 3219,
    DatabaseClosed = 3420,
    NotADatabase = 3343,  // no report file, or damaged
    NewerLayout = 3344,   // written by a newer version of the program
    CannotOpen = 3024,    // the text gives the reason
    ReadOnly = 3073,
    FolderReadOnly = 3051,  // nothing can be written beside the file
    Locked = 3045,
    DiskFull = 3026,
    DiskError = 3043,
    Engine = 3000,  // anything else that the engine says
};

// A cell of the report; what is not known is empty.
struct DbPlace {
    std::string table, line, field;
};

class DbError : public std::runtime_error {
  public:
    // `argument` fills the placeholder of the code's text.
    explicit DbError(DbErrorCode code, std::string_view argument = {});
    // The reason follows the code's text: "The file 'a' cannot be opened: it is a folder".
    DbError(DbErrorCode code, std::string_view argument, std::string_view reason);
    // The statement's text and where in it, as a byte offset, the trouble is: the description quotes the place.
    DbError(DbErrorCode code, std::string_view argument, std::string_view statement, std::size_t offset);
    // "Overflow in A, line 29, column Col_5"
    DbError(DbErrorCode code, DbPlace where);

    DbErrorCode Code() const { return code_; }
    int Number() const { return static_cast<int>(code_); }
    std::string Description() const { return what(); }
    // True where the file, the disk or the memory is the trouble: the next statement can do no better.
    bool Ends_Work() const;
    const DbPlace& Where() const { return where_; }

  private:
    DbErrorCode code_;
    DbPlace where_;
};

}  // namespace tallmar
