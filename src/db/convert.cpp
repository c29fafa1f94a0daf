#include "db/convert.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "common/db_error.h"
#include "common/text.h"

namespace tallmar {

namespace {

// A text is True or False by its word, else by its number.
bool To_Boolean(const Value& value) {
    if (const auto* flag = std::get_if<bool>(&value.Get())) return *flag;
    if (const auto* text = std::get_if<std::string>(&value.Get())) {
        if (Same_Text(*text, "True")) return true;
        if (Same_Text(*text, "False")) return false;
    }
    return value.To_Double() != 0;
}

Value Whole_Number(const Value& value, FieldType type) {
    const std::int32_t number = value.To_Long();
    const sql::FieldTypeRow& row = sql::Row_Of(type);
    if (number < row.least || number > row.most) throw DbError(DbErrorCode::Overflow);
    return number;
}

double To_Single(double number) {
    const auto single = static_cast<float>(number);
    if (!std::isfinite(single)) throw DbError(DbErrorCode::Overflow);
    return single;
}

std::string Sized_Text(const Value& value, const FieldDef& field) {
    std::string text = value.To_Text();
    if (Has_Size(field.type) && text.size() > static_cast<std::size_t>(field.size) &&
        Length(text) > static_cast<std::size_t>(field.size)) {
        throw DbError(DbErrorCode::TextTooLong, field.name);
    }
    return text;
}

Value Converted(const Value& value, const FieldDef& field) {
    switch (field.type) {
        case FieldType::Boolean:
            return To_Boolean(value);
        case FieldType::Byte:
        case FieldType::Integer:
        case FieldType::Long:
            return Whole_Number(value, field.type);
        case FieldType::Currency:
            return value.To_Currency();
        case FieldType::Single:
            return To_Single(value.To_Double());
        case FieldType::Double:
            return value.To_Double();
        case FieldType::Date:
            return value.To_Date();
        case FieldType::Text:
        case FieldType::Memo:
        case FieldType::Char:
            return Sized_Text(value, field);
    }
    return Null;
}

}  // namespace

Value Convert_For_Field(const Value& value, const FieldDef& field) {
    if (value.Is_Null()) return Null;
    try {
        return Converted(value, field);
    } catch (const std::overflow_error&) {
        throw DbError(DbErrorCode::Overflow);
    } catch (const std::invalid_argument&) {
        throw DbError(DbErrorCode::TypeMismatch, field.name);
    }
}

}  // namespace tallmar
