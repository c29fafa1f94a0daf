// What lies beside a report file: journals of ours and of others, and things that are no files.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <functional>

#include "db/database.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPage = 4096, kSector = 512;
constexpr std::string_view kMagic = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";

std::string Number(std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xff);
    return bytes;
}

// The head of a journal: so many pages follow, and the file had `filePages` before.
std::string Journal_Head(std::uint32_t pages, std::uint32_t filePages) {
    std::string head =
        std::string(kMagic) + Number(pages) + Number(0) + Number(filePages) + Number(kSector) + Number(kPage);
    head.resize(kSector);
    return head;
}

// A page as a journal holds it, with the checksum of every two hundredth byte from its end.
std::string Journal_Page(std::uint32_t number, const std::string& content) {
    std::uint32_t sum = 0;
    for (std::size_t i = kPage - 200; i > 0 && i < kPage; i -= 200) sum += static_cast<unsigned char>(content[i]);
    return Number(number) + content + Number(sum);
}

class SideFiles : public DbTest {
  protected:
    void SetUp() override {
        Make_Table(db, "A", {{"x", FieldType::Long}});
        Run("INSERT INTO A (x) VALUES (1)");
        db.Close();
        bytes = Bytes_Of(path);
    }
    // With a journal of this content the report is refused, and both files are as they were.
    void Expect_Refused_With_Journal(const std::string& content, DbErrorCode code) {
        Put_Bytes(journal, content);
        EXPECT_EQ(Code_Of([&] { DBEngine::OpenDatabase(path); }), code);
        EXPECT_EQ(Code_Of([&] { DBEngine::OpenCopy(path); }), code);
        EXPECT_EQ(Bytes_Of(path) == bytes, true);
        EXPECT_EQ(Bytes_Of(journal) == content, true);
    }

    std::string journal = path + "-journal", bytes;
};

struct Thing {
    const char* name;
    std::function<void(const std::string& path)> make;
};
const Thing kThings[] = {
    {"a FIFO", [](const std::string& at) { ASSERT_EQ(::mkfifo(at.c_str(), 0600), 0); }},
    {"a folder", [](const std::string& at) { fs::create_directory(at); }},
    {"a link to a device", [](const std::string& at) { fs::create_symlink("/dev/zero", at); }},
    {"a link to nothing", [](const std::string& at) { fs::create_symlink("nowhere", at); }},
    {"a link to a file", [](const std::string& at) { fs::create_symlink("/etc/hostname", at); }},
    {"a socket",
     [](const std::string& at) {
         const int handle = ::socket(AF_UNIX, SOCK_STREAM, 0);
         sockaddr_un address{};
         address.sun_family = AF_UNIX;
         ASSERT_LT(at.size(), sizeof(address.sun_path));
         std::memcpy(address.sun_path, at.c_str(), at.size());
         ASSERT_EQ(::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
         ::close(handle);
     }},
};

TEST_F(SideFiles, WhatIsNoFileIsARefusalAndNeverAWait) {
    for (const Thing& thing : kThings) {
        for (const std::string suffix : {"-journal", ".tmp", "-wal", "-shm"}) {
            const std::string side = path + suffix;
            thing.make(side);
            EXPECT_EQ(
                Error_Of([&] { DBEngine::OpenDatabase(path); }),
                "The file '" + path + "' cannot be opened: 'Test.CRF" + suffix + "' beside it is not a regular file")
                << thing.name;
            EXPECT_EQ(Code_Of([&] { DBEngine::OpenCopy(path); }), DbErrorCode::CannotOpen) << thing.name;
            EXPECT_TRUE(fs::exists(fs::symlink_status(side))) << thing.name;
            EXPECT_EQ(Bytes_Of(path) == bytes, true) << thing.name;
            fs::remove(side);
        }
    }
    EXPECT_TRUE(DBEngine::OpenDatabase(path).Is_Open());
}

// SQLite would read it as the newer half of the file, and store it there.
TEST_F(SideFiles, AWriteAheadLogIsRefused) {
    for (const std::string suffix : {"-wal", "-shm"}) {
        Put_Bytes(path + suffix, "");
        EXPECT_EQ(
            Error_Of([&] { DBEngine::OpenDatabase(path); }),
            "The file '" + path + "' cannot be opened: 'Test.CRF" + suffix + "' beside it does not belong to a report");
        EXPECT_TRUE(fs::exists(path + suffix));
        fs::remove(path + suffix);
    }
}

TEST_F(SideFiles, AFileOfTheUsersUnderTheJournalsNameStays) {
    Expect_Refused_With_Journal("notes on the report\n", DbErrorCode::CannotOpen);
    Expect_Refused_With_Journal("short", DbErrorCode::CannotOpen);
    EXPECT_EQ(Error_Of([&] { DBEngine::OpenDatabase(path); }),
              "The file '" + path + "' cannot be opened: 'Test.CRF-journal' beside it is not a journal of this report");
}

// SQLite deletes the file that such a journal names once it has rolled back.
TEST_F(SideFiles, AJournalThatNamesAnotherFileDeletesNothing) {
    const std::string victim = folder.File("precious.txt");
    Put_Bytes(victim, "precious");
    std::uint32_t sum = 0;
    for (const char c : victim) sum += static_cast<unsigned char>(c);
    const auto length = static_cast<std::uint32_t>(victim.size());
    const std::string tail = Number(1 + 0x40000000 / static_cast<std::uint32_t>(kPage)) + victim + Number(length) +
                             Number(sum) + std::string(kMagic);
    Expect_Refused_With_Journal(Journal_Head(0, 1) + tail, DbErrorCode::CannotOpen);
    EXPECT_EQ(Bytes_Of(victim), "precious");
    EXPECT_EQ(
        Error_Of([&] { DBEngine::OpenDatabase(path); }),
        "The file '" + path + "' cannot be opened: 'Test.CRF-journal' beside it asks for another file to be deleted");
}

TEST_F(SideFiles, AJournalThatWouldDestroyTheReportIsNotRolledBack) {
    const auto pages = static_cast<std::uint32_t>(bytes.size() / kPage);
    const std::string noise(kPage, 'x');
    std::string otherProgram = bytes.substr(0, kPage);
    otherProgram.replace(68, 4, "ABCD");
    Expect_Refused_With_Journal(Journal_Head(1, pages) + Journal_Page(1, noise), DbErrorCode::NotADatabase);
    Expect_Refused_With_Journal(Journal_Head(1, pages) + Journal_Page(2, noise), DbErrorCode::NotADatabase);
    Expect_Refused_With_Journal(Journal_Head(1, pages) + Journal_Page(1, otherProgram), DbErrorCode::NotADatabase);
    // The file is cut to one page.
    Expect_Refused_With_Journal(Journal_Head(0, 1), DbErrorCode::NotADatabase);
}

// Of an older or newer state of the same report it is what SQLite expects.
TEST_F(SideFiles, ASoundJournalIsRolledBack) {
    const auto pages = static_cast<std::uint32_t>(bytes.size() / kPage);
    const std::string first = bytes.substr(0, kPage);
    db = DBEngine::OpenDatabase(path);
    Run("UPDATE A SET x = 2");
    db.Close();
    std::string undo = Journal_Head(pages, pages);
    for (std::uint32_t i = 0; i < pages; ++i) undo += Journal_Page(i + 1, bytes.substr(i * kPage, kPage));
    Put_Bytes(journal, undo);
    db = DBEngine::OpenDatabase(path);
    EXPECT_EQ(Rows(db, "A"), "1;");
    EXPECT_FALSE(fs::exists(journal));
}

// The journal is beside the file itself.
TEST_F(SideFiles, AReportWhoseWriterWasKilledHealsUnderALink) {
    Be_Killed_In_A_Job(path);
    fs::create_directory(folder.File("links"));
    const std::string link = folder.File("links/Link.CRF");
    fs::create_symlink("../Test.CRF", link);
    db = DBEngine::OpenDatabase(link);
    EXPECT_EQ(db.Path(), link);
    EXPECT_EQ(Rows(db, "A"), "1;");
    EXPECT_FALSE(fs::exists(journal));
}

TEST_F(SideFiles, ARefusalUnderAHardLinkPointsToTheOtherName) {
    Be_Killed_In_A_Job(path);
    const std::string other = folder.File("Other.CRF");
    fs::create_hard_link(path, other);
    EXPECT_EQ(Error_Of([&] { DBEngine::OpenDatabase(other); }),
              "The file '" + other +
                  "' is no report file, or is damaged: the file has another name (a hard link), and what takes back a "
                  "change that was cut off may lie beside that name");
    EXPECT_EQ(Rows(db = DBEngine::OpenDatabase(path), "A"), "1;");
    EXPECT_EQ(Rows(db = DBEngine::OpenDatabase(other), "A"), "1;");
}

}  // namespace
}  // namespace tallmar
