// C Part II and Part IV follow the list of codes on S-3 Part III.
#pragma once

namespace tallmar {

// Matches the instances of Part II and the lines of Part IV to the codes of S-3 Part III line 29: a new code gets its
// instance, an instance without a code goes, with what was typed in it. Nothing happens in a report without Part IV.
void Sync_Cp2();

}  // namespace tallmar
