// How long a statement waits for another program to be done with the file.
#pragma once

namespace tallmar {

inline constexpr int kBusyMilliseconds = 2000;

int Busy_Milliseconds();
// Of the files that are opened from now on. For tests that see a wait come to its end; nothing else depends on it.
void Set_Busy_Milliseconds(int milliseconds);

}  // namespace tallmar
