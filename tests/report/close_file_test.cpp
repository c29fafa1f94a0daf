#include "report/close_file.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/report_test.h"

namespace tallmar {

namespace fs = std::filesystem;

namespace {

constexpr uid_t kUser = 65533, kOther = 65534;
constexpr auto kSameGroup = static_cast<gid_t>(-1);

class CloseFileTest : public ReportTest {
  protected:
    std::string report = folder.File("Agency.CRF");
};

}  // namespace

// Where each one removes only his own files, a name given to another's file would stay for ever.
TEST_F(CloseFileTest, ANameIsRemovedByTheOwnerOfFileOrFolder) {
    struct Case {
        uid_t user, file, folder;
        bool sticky, removes;
    };
    for (const Case& c : {Case{kUser, kOther, kOther, true, false}, Case{kUser, kOther, kOther, false, true},
                          Case{kUser, kUser, kOther, true, true}, Case{kUser, kOther, kUser, true, true},
                          Case{0, kOther, kOther, true, true}}) {
        struct stat file {
        }, around{};
        file.st_uid = c.file;
        around.st_uid = c.folder;
        around.st_mode = S_IFDIR | 0777u | (c.sticky ? unsigned{S_ISVTX} : 0u);
        EXPECT_EQ(May_Remove_Name(c.user, file, around), c.removes) << c.user << ' ' << c.file << ' ' << c.folder;
    }
}

// Of all owners that the user of the tests can give the folder and the report: the administrator works as another.
TEST_F(CloseFileTest, ASecondNameIsMadeWhereItCanBeRemoved) {
    struct Owners {
        uid_t user, file, folder;
    };
    const uid_t self = ::geteuid();
    std::vector<Owners> owners{{self, self, self}};
    if (self == 0) owners = {{kUser, kOther, kOther}, {kUser, kOther, kUser}, {kUser, kUser, kOther}};
    New_Report();
    Report_Release();
    fs::permissions(folder.Path(), fs::perms::all | fs::perms::sticky_bit);
    for (const auto& [user, file, around] : owners) {
        fs::permissions(report, fs::perms::all);
        ASSERT_EQ(::chown(report.c_str(), file, kSameGroup), 0);
        ASSERT_EQ(::chown(folder.Path().c_str(), around, kSameGroup), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            if (::setuid(user) != 0) _exit(4);
            bool wasThere = false;
            platform.onEvents = [&] { wasThere = wasThere || fs::exists(folder.File("QVRTemp.CRF")); };
            std::string trouble;
            const bool closed = Report_Open(report) && Report_Close(trouble);
            _exit(!closed ? 2 : !trouble.empty() ? 3 : wasThere ? 1 : 0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), user == file || user == around ? 1 : 0) << file << ' ' << around;
        EXPECT_EQ(Files(), std::vector<std::string>{"Agency.CRF"});
    }
}

}  // namespace tallmar
