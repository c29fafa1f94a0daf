// While it lives, whoever meets a report in use gives up soon: what is tested is that he does, not how long he waits.
#pragma once

#include "db/busy_timeout.h"

namespace tallmar {

class ShortWait {
  public:
    explicit ShortWait(int milliseconds = 50) : before_(Busy_Milliseconds()) { Set_Busy_Milliseconds(milliseconds); }
    ~ShortWait() { Set_Busy_Milliseconds(before_); }
    ShortWait(const ShortWait&) = delete;
    ShortWait& operator=(const ShortWait&) = delete;

  private:
    int before_;
};

}  // namespace tallmar
