#include "common/atomic_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "support/temp_folder.h"

namespace tallmar {
namespace {

namespace fs = std::filesystem;

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Put(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::size_t Entries(const TempFolder& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.Path()), {}));
}

template <class Action>
int Error_Number_Of(Action action) {
    try {
        action();
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

TEST(AtomicFile, WritesANewFileAndNothingBesideIt) {
    TempFolder folder;
    Write_File_Atomically(folder.File("new.txt"), "hello");
    EXPECT_EQ(Content(folder.File("new.txt")), "hello");
    EXPECT_EQ(Entries(folder), 1u);
}

TEST(AtomicFile, ReplacesAFileAndKeepsItsRights) {
    TempFolder folder;
    const std::string path = folder.File("old.txt");
    Put(path, "a long old content");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    Write_File_Atomically(path, "new");
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Entries(folder), 1u);
}

TEST(AtomicFile, BytesThatAreNoTextArriveAsTheyAre) {
    TempFolder folder;
    std::string bytes;
    for (int i = 0; i < 300'000; ++i) bytes += static_cast<char>(i * 7 % 256);
    Write_File_Atomically(folder.File("bytes"), bytes);
    EXPECT_EQ(Content(folder.File("bytes")), bytes);
}

TEST(AtomicFile, ContentThatFailsHalfWayLeavesTheOldFile) {
    TempFolder folder;
    const std::string path = folder.File("kept.txt");
    Put(path, "old");
    EXPECT_THROW(Write_File_Atomically(path,
                                       [](const FilePiece& put) {
                                           put("half");
                                           throw std::runtime_error("no more");
                                       }),
                 std::runtime_error);
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(Entries(folder), 1u);
}

TEST(AtomicFile, AReadOnlyFileIsNotReplaced) {
    TempFolder folder;
    const std::string path = folder.File("locked.txt");
    Put(path, "old");
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_EQ(Error_Number_Of([&] { Write_File_Atomically(path, "new"); }), EACCES);
    EXPECT_EQ(Content(path), "old");
}

TEST(AtomicFile, AMissingFolderIsNamed) {
    TempFolder folder;
    const std::string path = folder.File("none/x.txt");
    EXPECT_EQ(Error_Number_Of([&] { Write_File_Atomically(path, "x"); }), ENOENT);
    try {
        Write_File_Atomically(path, "x");
        FAIL();
    } catch (const std::system_error& error) {
        EXPECT_EQ(std::string(error.what()), path + ": No such file or directory");
    }
}

TEST(AtomicFile, AFolderIsNoFile) {
    TempFolder folder;
    EXPECT_EQ(Error_Number_Of([&] { Write_File_Atomically(folder.Path(), "x"); }), EISDIR);
}

TEST(AtomicFile, ALinkStaysALink) {
    TempFolder folder;
    Put(folder.File("real.txt"), "old");
    fs::create_symlink(folder.File("real.txt"), folder.File("link.txt"));
    Write_File_Atomically(folder.File("link.txt"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.File("link.txt")));
    EXPECT_EQ(Content(folder.File("real.txt")), "new");
}

TEST(AtomicFile, CopiesOverAnotherFileAndOntoItself) {
    TempFolder folder;
    Put(folder.File("from"), "content");
    Put(folder.File("to"), "something longer than that");
    Copy_File_Atomically(folder.File("from"), folder.File("to"));
    EXPECT_EQ(Content(folder.File("to")), "content");
    Copy_File_Atomically(folder.File("from"), folder.File("from"));
    EXPECT_EQ(Content(folder.File("from")), "content");
    EXPECT_EQ(Error_Number_Of([&] { Copy_File_Atomically(folder.File("none"), folder.File("to")); }), ENOENT);
    EXPECT_EQ(Content(folder.File("to")), "content");
}

TEST(AtomicFile, AStaleTemporaryIsRemovedUnlessItIsInUse) {
    TempFolder folder;
    const std::string path = folder.File("report"), temporary = path + ".tallmar";
    Put(temporary, "left by a kill");
    const int user = ::open(temporary.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(user, LOCK_EX), 0);
    Remove_Stale_Temporary(path);
    EXPECT_TRUE(fs::exists(temporary));
    EXPECT_EQ(Error_Number_Of([&] {
                  Put(path, "old");
                  Write_File_Atomically(path, "new");
              }),
              EBUSY);
    EXPECT_EQ(Content(path), "old");
    ::close(user);
    Remove_Stale_Temporary(path);
    EXPECT_FALSE(fs::exists(temporary));
}

TEST(AtomicFile, AStaleTemporaryDoesNotHinderAReplacement) {
    TempFolder folder;
    const std::string path = folder.File("report");
    Put(path, "old");
    Put(path + ".tallmar", "left by a kill");
    Write_File_Atomically(path, "new");
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(Entries(folder), 1u);
}

TEST(AtomicFile, NeighboursOfOtherKindsStay) {
    TempFolder folder;
    const std::string path = folder.File("report");
    Put(path, "old");
    Put(path + ".tmp", "precious");
    ASSERT_EQ(::mkfifo((path + ".tallmar").c_str(), 0600), 0);
    EXPECT_EQ(Error_Number_Of([&] { Write_File_Atomically(path, "new"); }), EBUSY);
    Remove_Stale_Temporary(path);
    EXPECT_TRUE(fs::is_fifo(path + ".tallmar"));
    EXPECT_EQ(Content(path + ".tmp"), "precious");
    EXPECT_EQ(Content(path), "old");
}

TEST(AtomicFile, ANewFileIsNeverPutOverAnother) {
    TempFolder folder;
    const std::string path = folder.File("report");
    EXPECT_TRUE(Create_File_Atomically(path, "first", 0640));
    EXPECT_EQ(fs::status(path).permissions() & fs::perms::others_all, fs::perms::none);
    EXPECT_FALSE(Create_File_Atomically(path, "second"));
    EXPECT_EQ(Content(path), "first");
    fs::create_symlink("nowhere", folder.File("link"));
    EXPECT_EQ(Error_Number_Of([&] { Create_File_Atomically(folder.File("link"), "x"); }), ENOENT);
    EXPECT_EQ(Entries(folder), 2u);
}

TEST(AtomicFile, AReplacementIsAskedForAtTheLastMoment) {
    TempFolder folder;
    const std::string path = folder.File("report");
    Put(path, "old");
    EXPECT_FALSE(Replace_File_Atomically(path, "new", [&] {
        EXPECT_TRUE(fs::exists(path + ".tallmar")) << "nobody else can be replacing it";
        return false;
    }));
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(Entries(folder), 1u);
    EXPECT_TRUE(Replace_File_Atomically(path, "new", [] { return true; }));
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(Entries(folder), 1u);
}

struct Ownership {
    uid_t owner;
    gid_t group;
};

// To whom a test may give a file: the administrator to anyone, others to the groups that they belong to.
Ownership Other_Ownership() {
    constexpr uid_t kOther = 65534;
    if (::geteuid() == 0) return {kOther, kOther};
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, ::getgroups(0, nullptr))));
    groups.resize(static_cast<std::size_t>(std::max(0, ::getgroups(static_cast<int>(groups.size()), groups.data()))));
    const auto other = std::ranges::find_if(groups, [](gid_t group) { return group != ::getegid(); });
    return {::geteuid(), other == groups.end() ? ::getegid() : *other};
}

TEST(AtomicFile, OwnerAndGroupPassToTheNewFile) {
    const auto [owner, group] = Other_Ownership();
    TempFolder folder;
    const std::string path = folder.File("report");
    Put(path, "old");
    ASSERT_EQ(::chown(path.c_str(), owner, group), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    Write_File_Atomically(path, "new");
    struct stat info {};
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_uid, owner);
    EXPECT_EQ(info.st_gid, group);
    EXPECT_EQ(info.st_mode & 07777u, 0640u);
}

// A full disk, as a limit on what a process may write shows it. In a child: the limit is the process's.
TEST(AtomicFile, ADiskThatIsFullLeavesTheOldFile) {
    TempFolder folder;
    const std::string path = folder.File("report");
    Put(path, "old");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit most{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &most);
        const std::string large(100'000, 'x');
        ::_exit(Error_Number_Of([&] { Write_File_Atomically(path, large); }) == EFBIG ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(Entries(folder), 1u);
}

// Killed at any moment, a writer leaves the one content or the other, whole, and what else it leaves can be removed.
TEST(AtomicFile, AKilledWriterLeavesAWholeFile) {
    TempFolder folder;
    const std::string path = folder.File("report");
    const std::string first(200'000, 'a'), second(300'000, 'b');
    Write_File_Atomically(path, first);
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            while (true) {
                Write_File_Atomically(path, second);
                Write_File_Atomically(path, first);
            }
        }
        ::usleep(static_cast<useconds_t>(2000 + round * 700));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string content = Content(path);
        EXPECT_TRUE(content == first || content == second) << content.size();
        Remove_Stale_Temporary(path);
        EXPECT_EQ(Entries(folder), 1u);
    }
}

}  // namespace
}  // namespace tallmar
