// Values on their way into a field: range, length and type checked in one place, for statements and recordsets alike.
#pragma once

#include "common/value.h"
#include "db/shapes.h"

namespace tallmar {

// `value` as the field keeps it: Byte, Integer, Long as std::int32_t, Single rounded to 24 bits, Currency rounded to
// four places, halves to even; Text and Char within their size. Null stays Null. A number goes into a text as its
// shortest text; a text into a number or date when it is one.
// Throws DbError: Overflow, TypeMismatch, TextTooLong (which names the field).
Value Convert_For_Field(const Value& value, const FieldDef& field);

}  // namespace tallmar
