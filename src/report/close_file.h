// The file's side of Report Close: repair and compaction.
#pragma once

#include <string>

namespace tallmar {

// Closes `db`, repairs and compacts the file at CRFPath. The answer says what stood in the way; empty where nothing
// did. Whatever fails leaves the file as it is, without a message; no moment leaves CRFPath missing or half written.
std::string Close_File();

enum class Leftover : unsigned char { Link, LinkOrCopy };
// Deletes QVRTemp.CRF in CRFDir where a killed close left it: as a link to the report, or as a copy of it as well. Any
// other file of that name stays.
void Drop_Temporary_File(Leftover what);

}  // namespace tallmar
