#include "report/answers.h"

#include "common/worksheets.h"

namespace tallmar {

void Load_Answers() {
    for (const WorksheetFamily& family : Families()) {
        if (family.load != nullptr) family.load();
    }
}

}  // namespace tallmar
