// A file that cannot be opened or written: the refusal names its reason.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "db/database.h"
#include "db/db_fixture.h"

namespace tallmar {
namespace {

namespace fs = std::filesystem;

class OpenRefusals : public DbTest {
  protected:
    void SetUp() override {
        Make_Table(db, "A", {{"x", FieldType::Long}});
        db.Close();
        // Whoever must go through it may.
        fs::permissions(folder.Path(), fs::perms::others_exec | fs::perms::others_read, fs::perm_options::add);
    }
    static std::string Reason(const std::string& file) {
        return Error_Of([&] { DBEngine::OpenDatabase(file); });
    }
    static std::string Cannot_Open(const std::string& file, const std::string& reason) {
        return "The file '" + (file.size() <= 80 ? file : file.substr(0, 80) + "...") + "' cannot be opened: " + reason;
    }
    // What `action` ends in for a user who has no rights of his own.
    template <class Action>
    std::string Error_Of_Nobody(Action action) {
        int pipe[2];
        if (::pipe(pipe) != 0) return "no pipe";
        const pid_t child = ::fork();
        if (child == 0) {
            constexpr uid_t kNobody = 65534;
            if (::getuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) ::_exit(1);
            const std::string error = Error_Of(action);
            ::_exit(::write(pipe[1], error.data(), error.size()) == static_cast<ssize_t>(error.size()) ? 0 : 1);
        }
        ::close(pipe[1]);
        std::string error(1000, '\0');
        const ssize_t count = ::read(pipe[0], error.data(), error.size());
        ::close(pipe[0]);
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
        error.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        return error;
    }
};

TEST_F(OpenRefusals, AMissingFile) {
    EXPECT_EQ(Reason("none.CRF"), Cannot_Open("none.CRF", "there is no such file"));
    EXPECT_EQ(Reason(""), "The file cannot be opened: there is no such file");
    EXPECT_FALSE(fs::exists("none.CRF"));
}

TEST_F(OpenRefusals, AFolder) {
    EXPECT_EQ(Reason(folder.Path()), Cannot_Open(folder.Path(), "it is a folder"));
}

TEST_F(OpenRefusals, AFileInThePlaceOfAFolder) {
    const std::string within = path + "/Report.CRF";
    EXPECT_EQ(Reason(within), Cannot_Open(within, "a part of its path is not a folder"));
}

TEST_F(OpenRefusals, ADeviceAndAFifoAreNotWaitedFor) {
    EXPECT_EQ(Reason("/dev/null"), Cannot_Open("/dev/null", "it is not a regular file"));
    const std::string fifo = folder.File("fifo.CRF");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(Reason(fifo), Cannot_Open(fifo, "it is not a regular file"));
}

TEST_F(OpenRefusals, ANameThatIsTooLong) {
    const std::string longName(300, 'n');
    EXPECT_EQ(Reason(longName), Cannot_Open(longName, "its name is too long"));
}

TEST_F(OpenRefusals, LinksInACircle) {
    const std::string circle = folder.File("circle.CRF");
    fs::create_symlink(circle, circle);
    EXPECT_EQ(Reason(circle), Cannot_Open(circle, "its links lead in a circle"));
}

TEST_F(OpenRefusals, NoPermissionToRead) {
    fs::permissions(path, fs::perms::none);
    EXPECT_EQ(Error_Of_Nobody([&] { DBEngine::OpenDatabase(path); }),
              Cannot_Open(path, "there is no permission to read it"));
}

TEST_F(OpenRefusals, AFolderWithoutWritePermissionIsNotAFileThatIsReadOnly) {
    fs::permissions(path, fs::perms::all);
    fs::permissions(folder.Path(), fs::perms::owner_write, fs::perm_options::remove);
    const std::string noFolder = "No permission to write in the folder of the file '" + path + "'";
    EXPECT_EQ(Error_Of_Nobody([&] { DBEngine::OpenDatabase(path).Execute("INSERT INTO A (x) VALUES (1)"); }), noFolder);
    EXPECT_EQ(Error_Of_Nobody([&] { DBEngine::CopyDatabase(path, folder.File("Copy.CRF")); }),
              "No permission to write in the folder of the file '" + folder.File("Copy.CRF") + "'");
    EXPECT_EQ(Error_Of_Nobody([&] { DBEngine::CreateDatabase(folder.File("New.CRF"), ""); }),
              "No permission to write in the folder of the file '" + folder.File("New.CRF") + "'");
    fs::permissions(folder.Path(), fs::perms::owner_write, fs::perm_options::add);
}

TEST_F(OpenRefusals, ANewFileInAFolderThatIsMissing) {
    const std::string within = folder.File("none/New.CRF");
    EXPECT_EQ(Error_Of([&] { DBEngine::CreateDatabase(within, ""); }), Cannot_Open(within, "there is no such folder"));
    EXPECT_EQ(Error_Of([&] { DBEngine::CreateDatabase(folder.Path(), ""); }),
              Cannot_Open(folder.Path(), "it is a folder"));
}

}  // namespace
}  // namespace tallmar
