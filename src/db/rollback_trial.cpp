#include "db/rollback_trial.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "db/side_files.h"

namespace tallmar::db_detail {

namespace {

namespace fs = std::filesystem;

constexpr int kPiece = 1 << 16;

class PrivateFolder {
  public:
    PrivateFolder() {
        if (::mkdtemp(path_.data()) == nullptr) path_.clear();
    }
    ~PrivateFolder() {
        std::error_code ignored;
        if (!path_.empty()) fs::remove_all(path_, ignored);
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    bool Is_There() const { return !path_.empty(); }
    std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }

  private:
    std::string path_ = P_tmpdir "/tallmar-XXXXXX";
};

bool Copy_To(const std::string& path, sqlite3_file& file) {
    sqlite3_int64 size = 0;
    if (file.pMethods->xFileSize(&file, &size) != SQLITE_OK) return false;
    std::ofstream copy(path, std::ios::binary);
    std::vector<char> piece(kPiece);
    for (sqlite3_int64 at = 0; at < size; at += kPiece) {
        const int count = static_cast<int>(std::min<sqlite3_int64>(kPiece, size - at));
        if (file.pMethods->xRead(&file, piece.data(), count, at) != SQLITE_OK) return false;
        copy.write(piece.data(), count);
    }
    return copy.flush().good();
}

}  // namespace

void Try_Rollback(const HeldStill& file, const FileCheck& check, const std::function<void(const std::string&)>& open) {
    const PrivateFolder folder;
    const std::string copy = folder.File("report.CRF");
    std::error_code error;
    // Where there is no room for the trial SQLite's own care must do.
    if (!folder.Is_There() || !Copy_To(copy, file.File())) return;
    if (!fs::copy_file(Journal_Path(check.path), Journal_Path(copy), error) || error) return;
    open(copy);
}

}  // namespace tallmar::db_detail
