// The MSA and CBSA codes of S-3 Part III as they name worksheets.
#pragma once

#include <string>

#include "common/value.h"

namespace tallmar {

// A code as it names a worksheet: digits padded with zeros to four or five, so that "16" and "0016" are one; a code
// with letters in upper case. "" of a blank.
std::string MSA_Code(const Value& typed);
std::string CBSA_Code(const Value& typed);

}  // namespace tallmar
