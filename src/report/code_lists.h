// The MSA and CBSA codes of S-3 Part III, held while the report is open.
#pragma once

namespace tallmar {

// gblMSACodes ("0000") and gblCBSACodes ("00000") from S-3 Part III line 29 on, in line order; empty where there are
// none or the worksheet is missing.
void Load_MSA();

}  // namespace tallmar
