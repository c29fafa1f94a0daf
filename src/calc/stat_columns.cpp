#include "calc/stat_columns.h"

#include "common/numbers.h"
#include "common/text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

std::string Column_Name(std::string_view prefix, Currency ccNum) {
    return std::string(prefix) + Currency::From_Scaled(ccNum.Scaled() * 100).To_Text();
}

}  // namespace

std::string CC_Column(Currency ccNum) {
    return Column_Name(kCCPrefix, ccNum);
}

std::string Recon_Column(Currency ccNum) {
    return Column_Name(kReconPrefix, ccNum);
}

Currency Column_CC(std::string_view column) {
    const std::size_t start = Is_Recon_Column(column) ? kReconPrefix.size() : kCCPrefix.size();
    if (column.size() <= start) return Currency{};
    return Currency::From_Double(Val(column.substr(start)) / 100).value_or(Currency{});
}

bool Is_CC_Column(std::string_view column) {
    return Begins_With(column, kCCPrefix);
}

bool Is_Recon_Column(std::string_view column) {
    return Begins_With(column, "Recon");
}

bool Is_Accumulated_Cost(const Value& statLabel1, const Value& statLabel2) {
    return In_Str(1, To_Upper(Nz_Str(statLabel1)), "ACCUM") > 0 && In_Str(1, To_Upper(Nz_Str(statLabel2)), "COST") > 0;
}

}  // namespace tallmar
