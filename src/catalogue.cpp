#include "catalogue.h"

#include <array>

#include "calc/w_a.h"
#include "calc/w_a1.h"
#include "calc/w_a4.h"
#include "calc/w_a5.h"
#include "calc/w_a6.h"
#include "calc/w_a7.h"
#include "calc/w_a83.h"
#include "calc/w_b.h"
#include "calc/w_b1.h"
#include "calc/w_c.h"
#include "calc/w_d1.h"
#include "calc/w_dp1.h"
#include "calc/w_dp2.h"
#include "calc/w_f.h"
#include "calc/w_s2.h"
#include "calc/w_s21.h"
#include "calc/w_s3.h"
#include "calc/w_sp2.h"
#include "report/registry.h"
#include "structure/vaccine_line.h"

namespace tallmar {

namespace {

// A procedure of the one worksheet of its family.
template <void (*procedure)()>
void Only(const Item&) {
    procedure();
}

constexpr bool kNew = true;     // a new report has it
constexpr bool kLater = false;  // it comes with what is entered
constexpr bool kByB1 = false;   // B-1 builds it

// In the order in which a new report is built.
constexpr std::array kFamilies{
    WorksheetFamily{"A", 4, Years::Always, kNew, Only<Build_A>, Only<Calc_A>, kLinesA, Has_Vaccine_Line,
                    Add_Vaccine_Line},
    WorksheetFamily{"Sp2", 11, Years::Always, kNew, Only<Build_Sp2>, Only<Calc_Sp2>, kLinesSp2},
    WorksheetFamily{"S2", 0, Years::Always, kNew, Only<Build_S2>, Only<Calc_S2>, kLinesS2, nullptr, nullptr,
                    Load_AGOption},
    WorksheetFamily{"S21", 0, Years::FromS21, kNew, Only<Build_S21>, Only<Calc_S21>, kLinesS21},
    WorksheetFamily{"S3p1", 0, Years::Always, kNew, Only<Build_S3p1>, Only<Calc_S3p1>, kLinesS3p1},
    WorksheetFamily{"S3p2", 0, Years::Always, kNew, Only<Build_S3p2>, Only<Calc_S3p2>, kLinesS3p2},
    WorksheetFamily{"S3p3", 0, Years::Always, kNew, Only<Build_S3p3>, Only<Calc_S3p3>, kLinesS3p3},
    WorksheetFamily{"S3p4", 0, Years::Always, kNew, Only<Build_S3p4>, Only<Calc_S3p4>, kLinesS3p4},
    WorksheetFamily{"A1", 0, Years::CostLimits, kNew, Build_Compensation, Calc_Compensation, kLinesA1},
    WorksheetFamily{"A2", 0, Years::CostLimits, kNew, Build_Compensation, Calc_Compensation, kLinesA1},
    WorksheetFamily{"A3", 0, Years::CostLimits, kNew, Build_Compensation, Calc_Compensation, kLinesA1},
    WorksheetFamily{"A4", 0, Years::Always, kNew, Only<Build_A4>, Only<Calc_A4>, kLinesA4},
    WorksheetFamily{"A5", 3, Years::Always, kNew, Only<Build_A5>, Only<Calc_A5>, kLinesA5},
    WorksheetFamily{"A6pA", 0, Years::Always, kNew, Only<Build_A6pA>},
    WorksheetFamily{"A6pB", 0, Years::Always, kNew, Only<Build_A6pB>, Only<Calc_A6pB>, kLinesA6pB},
    WorksheetFamily{"A6pC", 0, Years::Always, kNew, Only<Build_A6pC>},
    WorksheetFamily{"A7", 0, Years::Always, kNew, Only<Build_A7>, Only<Calc_A7>, kLinesA7},
    WorksheetFamily{"A83p1*", 0, Years::CostLimits, kNew, Build_A83, Calc_A83, kLinesA83p1},
    WorksheetFamily{"A83p2*", 1, Years::CostLimits, kNew, Build_A83, Calc_A83, kLinesA83p2},
    WorksheetFamily{"A83p3*", 1, Years::CostLimits, kNew, Build_A83, Calc_A83, kLinesA83p3},
    WorksheetFamily{"A83p4*", 1, Years::CostLimits, kNew, Build_A83, Calc_A83, kLinesA83p4},
    WorksheetFamily{"A83p5*", 2, Years::CostLimits, kNew, Build_A83, Calc_A83, kLinesA83p5},
    WorksheetFamily{"B", 0, Years::Always, kNew, Only<Build_B>, nullptr, kLinesB},
    WorksheetFamily{"B1X", kInternalLevel, Years::Always, kByB1, Only<Build_B1X>},
    WorksheetFamily{"StatLinks", kInternalLevel, Years::Always, kByB1, Only<Build_StatLinks>},
    WorksheetFamily{"B1", 5, Years::Always, kNew, Only<Build_B1>, Only<Calc_B1>, kLinesB1, Has_Vaccine_Line,
                    Add_Vaccine_Line},
    WorksheetFamily{"Cp1", 6, Years::Always, kNew, Only<Build_Cp1>, Only<Calc_Cp1>, kLinesCp1},
    WorksheetFamily{"Cp2*", 7, Years::Always, kLater, Build_Cp2, Calc_Cp2, kLinesCp2, Cp2_Fits_Period, Fit_Cp2},
    WorksheetFamily{"Cp3", 6, Years::Always, kNew, Only<Build_Cp3>, Only<Calc_Cp3>, kLinesCp3, Has_Vaccine_Line,
                    Add_Vaccine_Line},
    WorksheetFamily{"Cp4", 8, Years::Always, kNew, Only<Build_Cp4>, Only<Calc_Cp4>, kLinesCp4},
    WorksheetFamily{"Cp5", 7, Years::Always, kNew, Only<Build_Cp5>, Only<Calc_Cp5>, kLinesCp5},
    WorksheetFamily{"Dp1", 9, Years::Always, kNew, Only<Build_Dp1>, Only<Calc_Dp1>, kLinesDp1},
    WorksheetFamily{"Dp2", 10, Years::Always, kNew, Only<Build_Dp2>, Only<Calc_Dp2>, kLinesDp2},
    WorksheetFamily{"D1", 0, Years::Always, kNew, Only<Build_D1>, Only<Calc_D1>, kLinesD1},
    WorksheetFamily{"F", 0, Years::Always, kNew, Only<Build_F>, Only<Calc_F>, kLinesF},
    WorksheetFamily{"F1", 5, Years::Always, kNew, Only<Build_F1>, Only<Calc_F1>, kLinesF1},
    WorksheetFamily{"F2", 6, Years::Always, kNew, Only<Build_F2>, Only<Calc_F2>, kLinesF2},
};

}  // namespace

std::span<const WorksheetFamily> All_Families() {
    return kFamilies;
}

}  // namespace tallmar
