#include "support/other_window.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <utility>

#include "catalogue.h"
#include "common/worksheets.h"
#include "report/store.h"
#include "support/fake_platform.h"

namespace tallmar {

OtherWindow::OtherWindow(const std::string& file) {
    std::array<int, 2> told{}, tells{};
    if (::pipe(told.data()) != 0 || ::pipe(tells.data()) != 0) throw std::runtime_error("no pipes");
    process_ = ::fork();
    if (process_ == 0) {
        ::close(told[1]);
        ::close(tells[0]);
        ::_exit(Work(file, told[0], tells[1]));
    }
    ::close(told[0]);
    ::close(tells[1]);
    tell_ = told[1];
    char ready = 0;
    if (::read(tells[0], &ready, 1) != 1) ADD_FAILURE() << "the other window did not open the report";
    ::close(tells[0]);
}

int OtherWindow::Work(const std::string& file, int told, int tells) {
    FakePlatform platform;
    platform.keepsReportsOpen = true;
    Install_Catalogue(All_Families());
    if (!Report_Open(file)) return 1;
    char byte = 'r';
    if (::write(tells, &byte, 1) != 1) return 2;
    while (::read(told, &byte, 1) > 0) {
    }
    return Report_Close() ? 0 : 3;
}

int OtherWindow::End() {
    ::close(std::exchange(tell_, -1));
    int status = 0;
    ::waitpid(std::exchange(process_, 0), &status, 0);
    return status;
}

void OtherWindow::Close() {
    if (process_ <= 0) return;
    EXPECT_EQ(End(), 0) << "the other window did not close well";
}

void OtherWindow::Kill() {
    ::kill(process_, SIGKILL);
    End();
}

}  // namespace tallmar
