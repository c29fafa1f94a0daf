#include "report/code_lists.h"

#include <gtest/gtest.h>

namespace tallmar {

TEST(CodeListsTest, CodesNameTheirWorksheetPadded) {
    EXPECT_EQ(MSA_Code(Value("16")), "0016");
    EXPECT_EQ(MSA_Code(Value(" 1600 ")), "1600");
    EXPECT_EQ(MSA_Code(Value("ab12")), "AB12");
    EXPECT_EQ(MSA_Code(Value("1E05")), "1E05") << "no number";
    EXPECT_EQ(MSA_Code(Value(Null)), "");
    EXPECT_EQ(CBSA_Code(Value("580")), "00580");
}

}  // namespace tallmar
