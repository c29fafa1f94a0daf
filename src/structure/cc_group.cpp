#include "structure/cc_group.h"

#include "calc/w_s2.h"

namespace tallmar {

int CCGroupFor(Currency ccNum) {
    const auto hundredfold = static_cast<int>(ccNum.Scaled() / (Currency::kScale / 100));
    if (ccNum.Int() != 5_cur || Read_AGOption() != 1 || ccNum == 5.01_cur) return hundredfold;
    return hundredfold + (ccNum >= 5.02_cur && ccNum <= 5.03_cur ? 19 : 20);
}

}  // namespace tallmar
