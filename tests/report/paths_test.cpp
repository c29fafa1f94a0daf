#include "report/paths.h"

#include <gtest/gtest.h>

#include "support/fake_platform.h"
#include "support/temp_folder.h"

namespace tallmar {

TEST(PathsTest, BothSeparatorsEndAFolder) {
    EXPECT_EQ(Folder_Of("C:\\Reports\\Agency.CRF"), "C:\\Reports");
    EXPECT_EQ(Folder_Of("/home/pat/Agency.CRF"), "/home/pat");
    EXPECT_EQ(Folder_Of("C:\\Reports/Agency.CRF"), "C:\\Reports");
    EXPECT_EQ(Folder_Of("/Agency.CRF"), "");
}

TEST(PathsTest, PathWithoutASeparatorIsInTheRootOfC) {
    EXPECT_EQ(Folder_Of("Agency.CRF"), "C:\\");
}

TEST(PathsTest, BareNameIsReallyInTheWorkingFolder) {
    EXPECT_EQ(Real_Folder("Agency.CRF", "C:\\"), ".");
    EXPECT_EQ(Real_Folder("C:\\Reports\\Agency.CRF", "C:\\Reports"), "C:/Reports");
}

TEST(PathsTest, TitleIsTheFilesName) {
    EXPECT_EQ(File_Title_Of("C:\\Reports\\Agency.CRF"), "Agency.CRF");
    EXPECT_EQ(File_Title_Of("Agency.CRF"), "Agency.CRF");
}

TEST(PathsTest, FloppyIsNeverRemembered) {
    EXPECT_FALSE(Is_Remembered_Folder("A:\\Reports"));
    EXPECT_FALSE(Is_Remembered_Folder("B:"));
    EXPECT_FALSE(Is_Remembered_Folder("b:\\"));
    EXPECT_TRUE(Is_Remembered_Folder("C:\\Reports"));
    EXPECT_TRUE(Is_Remembered_Folder("c:\\reports"));
}

TEST(PathsTest, FolderWithoutADriveIsRemembered) {
    EXPECT_TRUE(Is_Remembered_Folder("/home/pat"));
    EXPECT_TRUE(Is_Remembered_Folder("Accounts"));
    EXPECT_TRUE(Is_Remembered_Folder(""));
}

TEST(PathsTest, DialogsStartInTheRememberedFolderElseInThePrograms) {
    FakePlatform platform;
    EXPECT_EQ(Dialog_Folder(), "no-program-folder");
    platform.Save_Setting("Tallmar 1728", "Startup", "CRFLoc", "/home/pat");
    EXPECT_EQ(Dialog_Folder(), "/home/pat");
}

TEST(PathsTest, DialogsStartAmongTheDocumentsWhereTheProgramsFolderCannotBeWritten) {
    FakePlatform platform;
    platform.documentsFolder = "/home/pat/Documents";
    EXPECT_EQ(Dialog_Folder(), "/home/pat/Documents");
    const TempFolder folder;
    platform.programFolder = folder.Path();
    EXPECT_EQ(Dialog_Folder(), folder.Path());
}

}  // namespace tallmar
