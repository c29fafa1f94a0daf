#include "shell/recent_files.h"

#include "common/platform.h"
#include "common/program.h"

namespace tallmar {

namespace {

constexpr std::string_view kSection = "Recent";

std::string Key(std::size_t place) {
    return "File" + std::to_string(place + 1);
}

void Store(const std::vector<std::string>& files) {
    for (std::size_t i = 0; i < kRecentFiles; ++i) {
        The_Platform().Save_Setting(kProgramTitle, kSection, Key(i), i < files.size() ? files[i] : "");
    }
}

}  // namespace

std::vector<std::string> Recent_Files() {
    std::vector<std::string> files;
    for (std::size_t i = 0; i < kRecentFiles; ++i) {
        std::string path = The_Platform().Get_Setting(kProgramTitle, kSection, Key(i), "");
        if (!path.empty()) files.push_back(std::move(path));
    }
    return files;
}

void Add_Recent_File(const std::string& path) {
    std::vector<std::string> files = Recent_Files();
    if (!files.empty() && files.front() == path) return;
    std::erase(files, path);
    files.insert(files.begin(), path);
    if (files.size() > kRecentFiles) files.resize(kRecentFiles);
    Store(files);
}

void Remove_Recent_File(std::string_view path) {
    std::vector<std::string> files = Recent_Files();
    std::erase(files, path);
    Store(files);
}

}  // namespace tallmar
