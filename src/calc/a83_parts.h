// The arithmetic of A-8-3, part by part, for one discipline: 'P', 'O' or 'S'.
#pragma once

namespace tallmar {

void Calc_A83p1(char discipline);  // line 2, weeks x 15 hours; line 9, half of the hourly rates
void Calc_A83p2(char discipline);  // salary equivalency
void Calc_A83p3(char discipline);  // travel allowance and expense
void Calc_A83p4(char discipline);  // overtime allowance
void Calc_A83p5(char discipline);  // line 49: what was paid over the limitation

}  // namespace tallmar
