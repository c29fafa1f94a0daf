// Statement texts, built by joining.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace tallmar {

inline void Append_Sql(std::string& sql, std::string_view part) {
    sql += part;
}
inline void Append_Sql(std::string& sql, const char* part) {
    sql += part;
}
inline void Append_Sql(std::string& sql, const std::string& part) {
    sql += part;
}
inline void Append_Sql(std::string& sql, int part) {
    sql += std::to_string(part);
}
inline void Append_Sql(std::string& sql, Currency part) {
    sql += part.To_Text();
}
// Throws Overflow for a number that is not finite: no statement has a word for it.
void Append_Sql(std::string& sql, double part);
// A value read from the report: Null as the word Null, a number with every digit, a text in double quotes with the
// quotes in it doubled, a date between # signs.
void Append_Sql(std::string& sql, const Value& part);

// Sql("UPDATE A5 SET Col_2=", amount, " WHERE LineNum = ", line, ";"). Texts go in unchanged: what a person typed
// goes through Quoted.
template <class... Parts>
std::string Sql(const Parts&... parts) {
    std::string sql;
    (Append_Sql(sql, parts), ...);
    return sql;
}

// In double quotes, the quotes in it doubled.
std::string Quoted(std::string_view text);
// "#10/1/2015 08:05:00#"
std::string Date_Literal(Date date);

}  // namespace tallmar
