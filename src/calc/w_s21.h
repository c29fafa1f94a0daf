// Worksheet S-2-1: the reimbursement questionnaire of reports that begin on or after 10/1/2015. Column 1 holds the
// answers, Null where there is none.
#pragma once

#include <array>

#include "common/lines.h"

namespace tallmar {

extern const std::array<FixedRow, 17> kLinesS21;

void Build_S21();
// Clears the answers to questions that a No before them makes void.
void Calc_S21();

}  // namespace tallmar
