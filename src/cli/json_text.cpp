#include "cli/json_text.h"

#include <nlohmann/json.hpp>
#include <variant>

#include "common/dates.h"
#include "common/numbers.h"

namespace tallmar {

namespace {

struct Writer {
    std::string operator()(NullValue) const { return "null"; }
    std::string operator()(bool v) const { return v ? "true" : "false"; }
    std::string operator()(std::int32_t v) const { return std::to_string(v); }
    std::string operator()(Currency v) const { return v.To_Text(); }
    std::string operator()(double v) const { return Number_Text(v); }
    std::string operator()(Date v) const { return Json_Text(Iso_Date_Time(v)); }
    std::string operator()(const std::string& v) const { return Json_Text(v); }
};

}  // namespace

std::string Json_Text(std::string_view text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string Json_Value(const Value& value) {
    return std::visit(Writer{}, value.Get());
}

JsonObject& JsonObject::Add_Raw(std::string_view name, std::string_view json) {
    if (text_.size() > 1) text_ += ',';
    text_ += Json_Text(name);
    text_ += ':';
    text_ += json;
    return *this;
}

}  // namespace tallmar
