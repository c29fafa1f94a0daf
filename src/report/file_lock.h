// A lock on a file that is there for nothing else.
#pragma once

#include <string>

namespace tallmar {

// Released, and its file unlinked, at the end of the value.
class FileLock {
  public:
    static constexpr int kNone = -1;

    FileLock() = default;
    // Takes over the locked `file`, whose name is `name`. kNone: there is a name, and no lock could be had for it.
    FileLock(int file, std::string name);
    ~FileLock() { Release(); }
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;

    bool Is_Held() const { return file_ != kNone; }
    const std::string& Name() const { return name_; }

  private:
    void Release();

    int file_ = kNone;
    std::string name_;
};

}  // namespace tallmar
