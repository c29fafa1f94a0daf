#include "report/code_lists.h"

#include "common/format.h"
#include "common/text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

std::string Code(const Value& typed, std::string_view format) {
    const std::string text(Trim(Nz_Str(typed)));
    const bool isNumber = text.find_first_not_of("0123456789") == std::string::npos;
    // "1E05" is a code and no number.
    return isNumber && !text.empty() ? Format(Value(text), format) : To_Upper(text);
}

}  // namespace

std::string MSA_Code(const Value& typed) {
    return Code(typed, "0000");
}
std::string CBSA_Code(const Value& typed) {
    return Code(typed, "00000");
}

}  // namespace tallmar
