#include "report/window.h"

#include "support/report_test.h"

namespace tallmar {

class WindowTest : public ReportTest {
  protected:
    ~WindowTest() override { ProductTitle = titleBefore; }
    std::string titleBefore = ProductTitle;
};

TEST_F(WindowTest, TitleComesFromTheFirstLineOfItsFile) {
    platform.programFolder = folder.Path();
    Load_ProductTitle();
    EXPECT_EQ(ProductTitle, "The Brennwick Systems, Inc.");
    Write(folder.File("PrtTitle.txt"), "Another House\r\nsecond line\r\n");
    Load_ProductTitle();
    EXPECT_EQ(Window_Caption(), "Another House Tallmar 1728 (version 1.0)");
}

TEST_F(WindowTest, EmptyTitleFileKeepsTheTitle) {
    platform.programFolder = folder.Path();
    Write(folder.File("PrtTitle.txt"), "\r\nsecond line\r\n");
    Load_ProductTitle();
    EXPECT_EQ(ProductTitle, "The Brennwick Systems, Inc.");
    Write(folder.File("PrtTitle.txt"), "");
    Load_ProductTitle();
    EXPECT_EQ(ProductTitle, "The Brennwick Systems, Inc.");
    Write(folder.File("PrtTitle.txt"), "\xEF\xBB\xBF");
    Load_ProductTitle();
    EXPECT_EQ(ProductTitle, "The Brennwick Systems, Inc.") << "a byte order mark is no title";
}

TEST_F(WindowTest, TitleFileThatIsNoUtf8IsReadInCodePage1252) {
    platform.programFolder = folder.Path();
    Write(folder.File("PrtTitle.txt"), "Caf\xE9 Systems\r\n");
    Load_ProductTitle();
    EXPECT_EQ(ProductTitle, "Caf\u00E9 Systems");
    Write(folder.File("PrtTitle.txt"), "\xEF\xBB\xBFR\u00E9sum\u00E9 Inc.\n");
    Load_ProductTitle();
    EXPECT_EQ(ProductTitle, "R\u00E9sum\u00E9 Inc.");
}

}  // namespace tallmar
