// The order of texts in report files.
#pragma once

struct sqlite3;

namespace tallmar {

// TEXT1252: without regard to case within code page 1252. Named in files, never rename.
inline constexpr char kTextCollation[] = "TEXT1252";
bool Register_Collation(sqlite3* handle);

}  // namespace tallmar
