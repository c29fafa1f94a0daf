#include "common/sql_text.h"

#include <cmath>
#include <cstdio>

#include "common/dates.h"
#include "common/db_error.h"
#include "common/numbers.h"
#include "common/text.h"

namespace tallmar {

namespace {

std::string Finite_Text(double number) {
    if (!std::isfinite(number)) throw DbError(DbErrorCode::Overflow);
    return Number_Text(number);
}

}  // namespace

void Append_Sql(std::string& sql, double part) {
    sql += Finite_Text(part);
}

void Append_Sql(std::string& sql, const Value& part) {
    struct {
        std::string operator()(NullValue) const { return "Null"; }
        std::string operator()(bool v) const { return v ? "True" : "False"; }
        std::string operator()(std::int32_t v) const { return std::to_string(v); }
        std::string operator()(Currency v) const { return v.To_Text(); }
        std::string operator()(double v) const { return Finite_Text(v); }
        std::string operator()(Date v) const { return Date_Literal(v); }
        std::string operator()(const std::string& v) const { return Quoted(v); }
    } visitor;
    sql += std::visit(visitor, part.Get());
}

std::string Quoted(std::string_view text) {
    return "\"" + Replace(text, "\"", "\"\"") + "\"";
}

std::string Date_Literal(Date date) {
    const CivilDate civil = To_Civil(date);
    char text[64];
    std::snprintf(text, sizeof text, "#%d/%d/%04d %02d:%02d:%02d#", civil.month, civil.day, civil.year, civil.hour,
                  civil.minute, civil.second);
    return text;
}

}  // namespace tallmar
