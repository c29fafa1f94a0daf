// The file's side of Report Close: repair and compaction through a temporary name.
#pragma once

namespace tallmar {

// Closes `db`, repairs and compacts the file at CRFPath. Whatever fails leaves the file as it stands, without a
// message; no moment leaves CRFPath missing or half written.
void Close_File();
// Deletes what a killed close left in CRFDir. Requires that the file at CRFPath opened well.
void Drop_Temporary_File();

}  // namespace tallmar
