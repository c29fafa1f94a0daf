// The file's side of Report Close: repair and compaction.
#pragma once

#include <sys/stat.h>

#include <string>

namespace tallmar {

// Closes `db`, repairs and compacts the file at CRFPath. The answer says what prevented it; empty where nothing
// did. Whatever fails leaves the file as it is, without a message; no moment leaves CRFPath missing or half written.
std::string Close_File();

// Whether `user` may remove a name of `file` from `folder`: where the folder has its sticky bit, only the owner of one
// of the two may, and the administrator.
bool May_Remove_Name(uid_t user, const struct stat& file, const struct stat& folder);

enum class Leftover : unsigned char { Link, LinkOrCopy };
// Deletes QVRTemp.CRF in CRFDir where a killed close left it: as a link to the report, or as a copy of it as well. Any
// other file of that name stays.
void Drop_Temporary_File(Leftover what);

}  // namespace tallmar
