// The pointer waits during the life of one of these.
#pragma once

#include "common/platform.h"

namespace tallmar {

class WaitPointer {
  public:
    WaitPointer() { The_Platform().Hourglass(true); }
    ~WaitPointer() { The_Platform().Hourglass(false); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace tallmar
