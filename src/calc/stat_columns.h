// Names of the columns that general service cost centers have on the allocation worksheets: line 5.01 has the column
// CC_501 and, where its statistic is accumulated cost, Recon_501 directly before it.
#pragma once

#include <string>
#include <string_view>

#include "common/currency.h"
#include "common/value.h"

namespace tallmar {

inline constexpr std::string_view kCCPrefix = "CC_";
inline constexpr std::string_view kReconPrefix = "Recon_";

// "CC_501" of "CC_" and 5.01.
std::string Line_Column(std::string_view prefix, Currency ccNum);
// "CC_501" of 5.01.
std::string CC_Column(Currency ccNum);
// "Recon_501" of 5.01.
std::string Recon_Column(Currency ccNum);
// 5.01 of either name. A Recon name is known by its beginning; all else is read from the fourth character, and a text
// that is no number counts as 0.
Currency Column_CC(std::string_view column);
bool Is_CC_Column(std::string_view column);
bool Is_Recon_Column(std::string_view column);

// The two labels of a statistic that say accumulated cost. Null reads as empty.
bool Is_Accumulated_Cost(const Value& statLabel1, const Value& statLabel2);

// 0 for Null in every CC_ and Recon_ column of a statistics table, then Null above the column's own line.
void ShapeStats(std::string_view table);

}  // namespace tallmar
