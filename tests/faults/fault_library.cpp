// Loaded into a program before the system's own library: counts its calls to the system and has the one fail that the
// board names. Nothing is counted before main: what the loader does is not the program's.
//
// Standard error is left alone, for a program under fault shall say so there.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "fault_board.h"

namespace {

using namespace tallmar::faults;

Board* board = nullptr;

enum class Verdict { Pass, Fail, Half };

Verdict Judge(Call call) {
    if (board == nullptr) return Verdict::Pass;
    const std::int64_t number = ++board->calls[static_cast<int>(call)];
    if (board->call != call || number < board->at || (board->how == How::Once && number > board->at)) {
        return Verdict::Pass;
    }
    ++board->failed;
    if (board->how == How::Half && number == board->at) return Verdict::Half;
    errno = board->error;
    return Verdict::Fail;
}

bool Fails(Call call) {
    return Judge(call) == Verdict::Fail;
}

// The system's own function of a name.
template <class Function>
Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define REAL(function)                                                    \
    ([] {                                                                 \
        static auto* const real = Real(decltype(&function){}, #function); \
        return real;                                                      \
    }())

void Open_Board() {
    const char* path = std::getenv(kBoardVariable);
    if (path == nullptr) return;
    const int file = REAL(open)(path, O_RDWR | O_CLOEXEC);
    if (file < 0) std::abort();
    void* map = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (map == MAP_FAILED) std::abort();
    close(file);
    board = static_cast<Board*>(map);
}

using Main = int (*)(int, char**, char**);
Main programMain = nullptr;

int Counted_Main(int argc, char** argv, char** environment) {
    Open_Board();
    return programMain(argc, argv, environment);
}

mode_t Mode_Of(int flags, std::va_list& rest) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(rest, int)) : 0;
}

template <class Move>
ssize_t Move_Bytes(Call call, size_t size, Move move) {
    switch (Judge(call)) {
        case Verdict::Fail:
            return -1;
        case Verdict::Half:
            return move(size / 2);
        case Verdict::Pass:
            break;
    }
    return move(size);
}

}  // namespace

extern "C" {

int __libc_start_main(Main main, int argc, char** argv, void (*init)(), void (*fini)(), void (*atLoaderEnd)(),
                      void* stackEnd) {
    using Start = int(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    auto* const start = reinterpret_cast<Start*>(dlsym(RTLD_NEXT, "__libc_start_main"));
    programMain = main;
    return start(Counted_Main, argc, argv, init, fini, atLoaderEnd, stackEnd);
}

ssize_t write(int file, const void* data, size_t size) {
    if (file == STDERR_FILENO) return REAL(write)(file, data, size);
    return Move_Bytes(Call::Write, size, [&](size_t part) { return REAL(write)(file, data, part); });
}
ssize_t writev(int file, const iovec* parts, int count) {
    if (file == STDERR_FILENO) return REAL(writev)(file, parts, count);
    return Fails(Call::Write) ? -1 : REAL(writev)(file, parts, count);
}
ssize_t pwrite(int file, const void* data, size_t size, off_t at) {
    return Move_Bytes(Call::Write, size, [&](size_t part) { return REAL(pwrite)(file, data, part, at); });
}
ssize_t pwrite64(int file, const void* data, size_t size, off64_t at) {
    return Move_Bytes(Call::Write, size, [&](size_t part) { return REAL(pwrite64)(file, data, part, at); });
}

ssize_t read(int file, void* data, size_t size) {
    return Move_Bytes(Call::Read, size, [&](size_t part) { return REAL(read)(file, data, part); });
}
ssize_t pread(int file, void* data, size_t size, off_t at) {
    return Move_Bytes(Call::Read, size, [&](size_t part) { return REAL(pread)(file, data, part, at); });
}
ssize_t pread64(int file, void* data, size_t size, off64_t at) {
    return Move_Bytes(Call::Read, size, [&](size_t part) { return REAL(pread64)(file, data, part, at); });
}

int fsync(int file) {
    return Fails(Call::Sync) ? -1 : REAL(fsync)(file);
}
int fdatasync(int file) {
    return Fails(Call::Sync) ? -1 : REAL(fdatasync)(file);
}

int open(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = Mode_Of(flags, rest);
    va_end(rest);
    return Fails(Call::Open) ? -1 : REAL(open)(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = Mode_Of(flags, rest);
    va_end(rest);
    return Fails(Call::Open) ? -1 : REAL(open64)(path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = Mode_Of(flags, rest);
    va_end(rest);
    return Fails(Call::Open) ? -1 : REAL(openat)(folder, path, flags, mode);
}
FILE* fopen64(const char* path, const char* mode) {
    return Fails(Call::Open) ? nullptr : REAL(fopen64)(path, mode);
}

int rename(const char* from, const char* to) noexcept {
    return Fails(Call::Rename) ? -1 : REAL(rename)(from, to);
}
int link(const char* from, const char* to) noexcept {
    return Fails(Call::Link) ? -1 : REAL(link)(from, to);
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return Fails(Call::Link) ? -1 : REAL(linkat)(fromFolder, from, toFolder, to, flags);
}
int unlink(const char* path) noexcept {
    return Fails(Call::Unlink) ? -1 : REAL(unlink)(path);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
    return Fails(Call::Unlink) ? -1 : REAL(unlinkat)(folder, path, flags);
}
int remove(const char* path) noexcept {
    return Fails(Call::Unlink) ? -1 : REAL(remove)(path);
}

int fcntl(int file, int command, ...) {
    std::va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    const bool locks = command == F_SETLK || command == F_SETLKW;
    return locks && Fails(Call::Lock) ? -1 : REAL(fcntl)(file, command, argument);
}
int fcntl64(int file, int command, ...) {
    std::va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    const bool locks = command == F_SETLK || command == F_SETLKW;
    return locks && Fails(Call::Lock) ? -1 : REAL(fcntl64)(file, command, argument);
}
int flock(int file, int operation) noexcept {
    return Fails(Call::Lock) ? -1 : REAL(flock)(file, operation);
}

int stat(const char* path, struct stat* info) noexcept {
    return Fails(Call::Stat) ? -1 : REAL(stat)(path, info);
}
int stat64(const char* path, struct stat64* info) noexcept {
    return Fails(Call::Stat) ? -1 : REAL(stat64)(path, info);
}
int lstat(const char* path, struct stat* info) noexcept {
    return Fails(Call::Stat) ? -1 : REAL(lstat)(path, info);
}
int lstat64(const char* path, struct stat64* info) noexcept {
    return Fails(Call::Stat) ? -1 : REAL(lstat64)(path, info);
}
int fstat(int file, struct stat* info) noexcept {
    return Fails(Call::Stat) ? -1 : REAL(fstat)(file, info);
}
int fstat64(int file, struct stat64* info) noexcept {
    return Fails(Call::Stat) ? -1 : REAL(fstat64)(file, info);
}

int ftruncate(int file, off_t size) noexcept {
    return Fails(Call::Truncate) ? -1 : REAL(ftruncate)(file, size);
}
int ftruncate64(int file, off64_t size) noexcept {
    return Fails(Call::Truncate) ? -1 : REAL(ftruncate64)(file, size);
}

int chmod(const char* path, mode_t mode) noexcept {
    return Fails(Call::Mode) ? -1 : REAL(chmod)(path, mode);
}
int fchmod(int file, mode_t mode) noexcept {
    return Fails(Call::Mode) ? -1 : REAL(fchmod)(file, mode);
}
int fchown(int file, uid_t user, gid_t group) noexcept {
    return Fails(Call::Mode) ? -1 : REAL(fchown)(file, user, group);
}

#ifndef TALLMAR_SANITIZED
// The sanitizers have an allocator of their own, which none may stand before.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);

void* malloc(size_t size) noexcept {
    return Fails(Call::Memory) ? nullptr : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) noexcept {
    return Fails(Call::Memory) ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, size_t size) noexcept {
    return Fails(Call::Memory) ? nullptr : __libc_realloc(block, size);
}
#endif

}  // extern "C"
