// A folder of one test's own, gone with everything in it when the test ends.
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

class TempFolder {
  public:
    // Under the tests' temporary directory; throws std::filesystem::filesystem_error where it cannot be made.
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // Without a separator at the end.
    const std::string& Path() const { return path_; }
    std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }

  private:
    std::string path_;
};

}  // namespace tallmar
