#include "common/program.h"

#include "support/report_test.h"

namespace tallmar {

class ProgramTest : public ReportTest {
  protected:
    ProgramTest() { platform.programFolder = folder.Path(); }
    void Write_Title(std::string_view text) { Write(folder.File("PrtTitle.txt"), text); }
};

TEST_F(ProgramTest, TitleComesFromTheFirstLineOfItsFile) {
    EXPECT_EQ(Product_Title(), "The Brennwick Systems, Inc.");
    Write_Title("Another House\r\nsecond line\r\n");
    EXPECT_EQ(Product_Title(), "Another House");
}

TEST_F(ProgramTest, EmptyTitleFileKeepsTheTitle) {
    Write_Title("\r\nsecond line\r\n");
    EXPECT_EQ(Product_Title(), "The Brennwick Systems, Inc.");
    Write_Title("");
    EXPECT_EQ(Product_Title(), "The Brennwick Systems, Inc.");
    Write_Title("\xEF\xBB\xBF");
    EXPECT_EQ(Product_Title(), "The Brennwick Systems, Inc.") << "a byte order mark is no title";
}

TEST_F(ProgramTest, TitleFileThatIsNoUtf8IsReadInCodePage1252) {
    Write_Title("Caf\xE9 Systems\r\n");
    EXPECT_EQ(Product_Title(), "Caf\u00E9 Systems");
    Write_Title("\xEF\xBB\xBFR\u00E9sum\u00E9 Inc.\n");
    EXPECT_EQ(Product_Title(), "R\u00E9sum\u00E9 Inc.");
}

TEST_F(ProgramTest, VersionIsMajorAndMinor) {
    EXPECT_EQ(Short_Version(), "1.0");
}

}  // namespace tallmar
