#include "db/busy_timeout.h"

namespace tallmar {

namespace {
int busyMilliseconds = kBusyMilliseconds;
}

int Busy_Milliseconds() {
    return busyMilliseconds;
}

void Set_Busy_Milliseconds(int milliseconds) {
    busyMilliseconds = milliseconds;
}

}  // namespace tallmar
