#include "support/fake_platform.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "support/temp_folder.h"

namespace tallmar {

TEST(FakePlatformTest, ExpectedBoxesAreAnsweredInOrder) {
    FakePlatform platform;
    platform.Expect_Box("Close", "Save it?", Answer::No, kYesNo + kQuestion);
    platform.Expect_Box_Starting("Error: File", "Cannot open");
    EXPECT_EQ(The_Platform().Message_Box("Save it?", kYesNo + kQuestion, "Close"), Answer::No);
    EXPECT_EQ(The_Platform().Message_Box("Cannot open x.CRF", kStop, "Error: File"), Answer::Ok);
    ASSERT_EQ(platform.boxes.size(), 2U);
    EXPECT_EQ(platform.boxes[1].text, "Cannot open x.CRF");
}

TEST(FakePlatformTest, AnUnexpectedBoxFailsTheTest) {
    FakePlatform platform;
    EXPECT_NONFATAL_FAILURE(platform.Message_Box("Gone", kStop, "Error"), "unexpected box: \"Error\": \"Gone\"");
}

TEST(FakePlatformTest, AnotherTextThanExpectedFailsTheTest) {
    FakePlatform platform;
    platform.Expect_Box("Error", "Gone");
    EXPECT_NONFATAL_FAILURE(platform.Message_Box("Gone.", kStop, "Error"), "another box");
    platform.Expect_Box("Error", "Gone");
    EXPECT_NONFATAL_FAILURE(platform.Message_Box("Gone", kStop, "error"), "another box");
    platform.Expect_Box("Error", "Gone", Answer::Ok, kExclamation);
    EXPECT_NONFATAL_FAILURE(platform.Message_Box("Gone", kStop, "Error"), "with buttons 16, expected 48");
}

TEST(FakePlatformTest, AnAnswerThatIsNotOfferedFailsTheTest) {
    FakePlatform platform;
    platform.Expect_Box("Close", "Save it?");
    EXPECT_NONFATAL_FAILURE(platform.Message_Box("Save it?", kYesNoCancel, "Close"), "does not offer the answer 1");
}

TEST(FakePlatformTest, WhatWasExpectedAndNeverCameFailsTheTest) {
    auto platform = std::make_unique<FakePlatform>();
    platform->Expect_Box("Error", "Gone");
    EXPECT_NONFATAL_FAILURE(platform.reset(), "expected box never came: \"Error\": \"Gone\"");
    platform = std::make_unique<FakePlatform>();
    platform->Reply_Save("a.CRF");
    EXPECT_NONFATAL_FAILURE(platform.reset(), "not used");
}

TEST(FakePlatformTest, FileDialogsTakeTheRepliesInOrder) {
    FakePlatform platform;
    FileDialog dialog;
    dialog.title = "Save As";
    platform.Reply_Open("a.CRF");
    platform.Reply_Open(std::nullopt);
    EXPECT_EQ(platform.Open_File(dialog), "a.CRF");
    EXPECT_EQ(platform.Open_File(dialog), std::nullopt);
    EXPECT_EQ(platform.openDialogs.size(), 2U);
    EXPECT_NONFATAL_FAILURE(platform.Save_File(dialog), "without a reply: \"Save As\"");
}

TEST(FakePlatformTest, TheClockStandsUntilItIsMoved) {
    FakePlatform platform;
    const Date before = platform.Now();
    EXPECT_EQ(platform.Now(), before);
    platform.onEvents = [&] { platform.Advance(30); };
    platform.Do_Events();
    platform.Do_Events();
    EXPECT_EQ(General_Date(platform.Now()), "11/15/2016 10:31:00 AM");
    platform.Set_Now(Date_Of(2000, 1, 1));
    EXPECT_EQ(platform.Now(), Date_Of(2000, 1, 1));
}

TEST(FakePlatformTest, SettingsAreKeptByTheirThreeNames) {
    FakePlatform platform;
    platform.Save_Setting("Tallmar", "ECR", "Path", "C:\\");
    EXPECT_EQ(platform.Get_Setting("Tallmar", "ECR", "Path", ""), "C:\\");
    EXPECT_EQ(platform.Get_Setting("Tallmar 1728", "ECR", "Path", "none"), "none");
}

TEST(FakePlatformTest, ThePlatformBeforeComesBack) {
    FakePlatform outer;
    {
        FakePlatform inner;
        EXPECT_EQ(&The_Platform(), &inner);
    }
    EXPECT_EQ(&The_Platform(), &outer);
    EXPECT_THROW(The_Platform().End_Program(), ProgramEnded);
}

TEST(TempFolderTest, EachIsItsOwnAndGoesWithTheTest) {
    std::string path;
    {
        const TempFolder folder;
        const TempFolder other;
        EXPECT_NE(folder.Path(), other.Path());
        path = folder.Path();
        std::filesystem::create_directory(folder.File("inner"));
        EXPECT_TRUE(std::filesystem::exists(path + "/inner"));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace tallmar
