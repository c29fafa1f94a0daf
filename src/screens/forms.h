// Every form of the program, for the table of forms.
#pragma once

#include "screens/form_description.h"

namespace tallmar {

extern const FormDescription kEditA, kEditA1, kEditA2, kEditA3, kEditA4, kEditA5, kEditA6pA, kEditA6pB, kEditA6pC,
    kEditA7, kEditA83p1, kEditA83p4, kEditA83p5, kEditB1, kEditCp2, kEditCp3, kEditCp4, kEditCp5, kEditDp1, kEditDp2,
    kEditD1, kEditF, kEditF1, kEditF2, kEditS2, kEditS21, kEditS3p1, kEditS3p2, kEditS3p3, kEditS3p4;

extern const FormDescription kViewA, kViewA1, kViewA2, kViewA3, kViewA4, kViewA5, kViewA6pA, kViewA6pB, kViewA6pC,
    kViewA7, kViewA83p1, kViewA83p2, kViewA83p3, kViewA83p4, kViewA83p5, kViewB, kViewB1, kViewCp1, kViewCp2, kViewCp3,
    kViewCp4, kViewCp5, kViewDp1, kViewDp2, kViewD1, kViewF, kViewF1, kViewF2, kViewS2, kViewS21, kViewS3p1, kViewS3p2,
    kViewS3p3, kViewS3p4, kViewSp2;

// Of tables that are no worksheets.
extern const FormDescription kViewCCs, kHeaderLines;

}  // namespace tallmar
