// JSON as the command line prints it: one line a row, numbers as the report keeps them.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace tallmar {

// In quotes, escaped; bytes that are no UTF-8 become U+FFFD.
std::string Json_Text(std::string_view text);
// Null as null; Currency and Double in decimals, never with an exponent; a date as "YYYY-MM-DDTHH:MM:SS"; a Boolean
// as true or false.
std::string Json_Value(const Value& value);

// {"a":1,"b":"x"}, members in the order of Add.
class JsonObject {
  public:
    JsonObject& Add(std::string_view name, const Value& value) { return Add_Raw(name, Json_Value(value)); }
    // `json` is JSON already.
    JsonObject& Add_Raw(std::string_view name, std::string_view json);
    std::string Text() const { return text_ + "}"; }

  private:
    std::string text_ = "{";
};

}  // namespace tallmar
