#include "program.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tallmar::faults {

namespace {

constexpr int kLongestRun = 60'000;  // milliseconds

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

void Kill_If_Late(pid_t child) {
    const int handle = static_cast<int>(::syscall(SYS_pidfd_open, child, 0));
    if (handle < 0) return;
    pollfd wait{.fd = handle, .events = POLLIN, .revents = 0};
    if (::poll(&wait, 1, kLongestRun) == 0) ::kill(child, SIGKILL);
    ::close(handle);
}

}  // namespace

Ended Run_Program(const std::vector<std::string>& args, const std::string& input, const std::string& scratch,
                  const std::vector<std::string>& environment) {
    const std::string in = scratch + "/in", out = scratch + "/out", err = scratch + "/err";
    std::ofstream(in, std::ios::binary) << input;
    std::vector<std::string> line{std::string(TALLMAR_BIN_DIR) + "/tallmar"};
    line.insert(line.end(), args.begin(), args.end());

    constexpr int kWrite = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_addopen(&streams, STDIN_FILENO, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&streams, STDOUT_FILENO, out.c_str(), kWrite, 0600);
    posix_spawn_file_actions_addopen(&streams, STDERR_FILENO, err.c_str(), kWrite, 0600);
    pid_t child = 0;
    const int failed =
        ::posix_spawn(&child, line[0].c_str(), &streams, nullptr, Pointers(line).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&streams);
    if (failed != 0) throw std::runtime_error(line[0] + " does not start");
    Kill_If_Late(child);
    int status = 0;
    ::waitpid(child, &status, 0);

    Ended ended;
    if (WIFEXITED(status)) ended.status = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) ended.signal = WTERMSIG(status);
    ended.out = Content(out);
    ended.err = Content(err);
    return ended;
}

}  // namespace tallmar::faults
