// Master, the identity of the report, and HeaderLines, the custom lines of the page head.
#pragma once

namespace tallmar {

// The table with its one row, from the process-wide identity values. Counts and sub-total memos are Null.
void Build_Master();
// Three empty lines; registered at level 999.
void Build_HeaderLines();
// HeaderLine1 to HeaderLine3 from the table; empty where the text is Null or the table is missing.
void Load_HeaderLines();
// FYStart, FYEnd, ProviderName, ProviderNumber and FormNum from Master. False where it is missing or has no row.
bool Load_Master();

}  // namespace tallmar
