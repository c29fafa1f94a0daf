// The MSA and CBSA codes of S-3 Part III, held while the report is open.
#pragma once

#include <string>

#include "common/value.h"

namespace tallmar {

// A code as it names a worksheet: digits padded with zeros to four or five, so that "16" and "0016" are one; a code
// with letters in upper case. "" of a blank.
std::string MSA_Code(const Value& typed);
std::string CBSA_Code(const Value& typed);

// gblMSACodes ("0000") and gblCBSACodes ("00000") from S-3 Part III line 29 on, in line order; empty where there are
// none or the worksheet is missing.
void Load_MSA();

}  // namespace tallmar
