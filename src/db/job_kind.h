// What a job is for.
#pragma once

#include <cstdint>

namespace tallmar {

// A job for reading sees one state of the file from its first step to its last, whoever else writes.
enum class JobKind : std::uint8_t { Changing, Reading };

}  // namespace tallmar
