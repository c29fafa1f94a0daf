// What a run of `tallmar` ends with.
#pragma once

namespace tallmar {

// Scripts rely on these numbers: never renumber.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;       // the reason is on `err`, the report as it was before
inline constexpr int kExitUsage = 2;        // the command line is wrong
inline constexpr int kExitCheckErrors = 3;  // the job ran and the edit checks found a "Non-Fatal Error"

}  // namespace tallmar
