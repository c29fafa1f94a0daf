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
#include "screens/forms.h"
#include "structure/vaccine_line.h"

namespace tallmar {

namespace {

// A procedure of the one worksheet of its family.
template <void (*procedure)()>
void Only(const Item&) {
    procedure();
}

// In the order in which a key is looked up.
constexpr std::array kFamilies{
    WorksheetFamily{"A", 4, Only<Build_A>, Only<Calc_A>, &kEditA, &kViewA, Has_Vaccine_Line, Add_Vaccine_Line},
    WorksheetFamily{"A1", 0, Build_Compensation, Calc_Compensation, &kEditA1, &kViewA1},
    WorksheetFamily{"A2", 0, Build_Compensation, Calc_Compensation, &kEditA2, &kViewA2},
    WorksheetFamily{"A3", 0, Build_Compensation, Calc_Compensation, &kEditA3, &kViewA3},
    WorksheetFamily{"A4", 0, Only<Build_A4>, Only<Calc_A4>, &kEditA4, &kViewA4},
    WorksheetFamily{"A5", 3, Only<Build_A5>, Only<Calc_A5>, &kEditA5, &kViewA5},
    WorksheetFamily{"A6pA", 0, Only<Build_A6pA>, nullptr, &kEditA6pA, &kViewA6pA},
    WorksheetFamily{"A6pB", 0, Only<Build_A6pB>, Only<Calc_A6pB>, &kEditA6pB, &kViewA6pB},
    WorksheetFamily{"A6pC", 0, Only<Build_A6pC>, nullptr, &kEditA6pC, &kViewA6pC},
    WorksheetFamily{"A7", 0, Only<Build_A7>, Only<Calc_A7>, &kEditA7, &kViewA7},
    WorksheetFamily{"A83p1*", 0, Build_A83, Calc_A83, &kEditA83p1, &kViewA83p1},
    WorksheetFamily{"A83p2*", 1, Build_A83, Calc_A83, nullptr, &kViewA83p2},
    WorksheetFamily{"A83p3*", 1, Build_A83, Calc_A83, nullptr, &kViewA83p3},
    WorksheetFamily{"A83p4*", 1, Build_A83, Calc_A83, &kEditA83p4, &kViewA83p4},
    WorksheetFamily{"A83p5*", 2, Build_A83, Calc_A83, &kEditA83p5, &kViewA83p5},
    WorksheetFamily{"B", 0, Only<Build_B>, nullptr, nullptr, &kViewB},
    WorksheetFamily{"B1", 5, Only<Build_B1>, Only<Calc_B1>, &kEditB1, &kViewB1, Has_Vaccine_Line, Add_Vaccine_Line},
    WorksheetFamily{"B1X", 999, Only<Build_B1X>, nullptr, nullptr, nullptr},
    WorksheetFamily{"StatLinks", 999, Only<Build_StatLinks>, nullptr, nullptr, nullptr},
    WorksheetFamily{"Cp1", 6, Only<Build_Cp1>, Only<Calc_Cp1>, nullptr, &kViewCp1},
    WorksheetFamily{"Cp2*", 7, Build_Cp2, Calc_Cp2, &kEditCp2, &kViewCp2, Cp2_Fits_Period, Fit_Cp2},
    WorksheetFamily{"Cp3", 6, Only<Build_Cp3>, Only<Calc_Cp3>, &kEditCp3, &kViewCp3, Has_Vaccine_Line,
                    Add_Vaccine_Line},
    WorksheetFamily{"Cp4", 8, Only<Build_Cp4>, Only<Calc_Cp4>, &kEditCp4, &kViewCp4},
    WorksheetFamily{"Cp5", 7, Only<Build_Cp5>, Only<Calc_Cp5>, &kEditCp5, &kViewCp5},
    WorksheetFamily{"Dp1", 9, Only<Build_Dp1>, Only<Calc_Dp1>, &kEditDp1, &kViewDp1},
    WorksheetFamily{"Dp2", 10, Only<Build_Dp2>, Only<Calc_Dp2>, &kEditDp2, &kViewDp2},
    WorksheetFamily{"D1", 0, Only<Build_D1>, Only<Calc_D1>, &kEditD1, &kViewD1},
    WorksheetFamily{"F", 0, Only<Build_F>, Only<Calc_F>, &kEditF, &kViewF},
    WorksheetFamily{"F1", 5, Only<Build_F1>, Only<Calc_F1>, &kEditF1, &kViewF1},
    WorksheetFamily{"F2", 6, Only<Build_F2>, Only<Calc_F2>, &kEditF2, &kViewF2},
    WorksheetFamily{"Sp2", 11, Only<Build_Sp2>, Only<Calc_Sp2>, nullptr, &kViewSp2},
    WorksheetFamily{"S2", 0, Only<Build_S2>, Only<Calc_S2>, &kEditS2, &kViewS2, nullptr, nullptr, Load_AGOption},
    WorksheetFamily{"S21", 0, Only<Build_S21>, Only<Calc_S21>, &kEditS21, &kViewS21},
    WorksheetFamily{"S3p1", 0, Only<Build_S3p1>, Only<Calc_S3p1>, &kEditS3p1, &kViewS3p1},
    WorksheetFamily{"S3p2", 0, Only<Build_S3p2>, Only<Calc_S3p2>, &kEditS3p2, &kViewS3p2},
    WorksheetFamily{"S3p3", 0, Only<Build_S3p3>, Only<Calc_S3p3>, &kEditS3p3, &kViewS3p3},
    WorksheetFamily{"S3p4", 0, Only<Build_S3p4>, Only<Calc_S3p4>, &kEditS3p4, &kViewS3p4},
};

}  // namespace

std::span<const WorksheetFamily> All_Families() {
    return kFamilies;
}

}  // namespace tallmar
