// The kinds of recordsets.
#pragma once

#include <cstdint>

namespace tallmar {

enum class RecordsetType : std::uint8_t { Table = 1, Dynaset = 2, Snapshot = 4 };

}  // namespace tallmar
