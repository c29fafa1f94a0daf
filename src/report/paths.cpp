#include "report/paths.h"

#include <unistd.h>

#include "common/platform.h"
#include "common/program.h"
#include "common/text.h"

namespace tallmar {

namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::string_view kNoFolder = "C:\\";

}  // namespace

std::string Folder_Of(std::string_view path) {
    const std::size_t last = path.find_last_of(kSeparators);
    return std::string(last == path.npos ? kNoFolder : path.substr(0, last));
}

std::string File_Title_Of(std::string_view path) {
    const std::size_t last = path.find_last_of(kSeparators);
    return std::string(last == path.npos ? path : path.substr(last + 1));
}

std::string Native_Path(std::string_view path) {
    return Replace(path, "\\", "/");
}

std::string Real_Folder(std::string_view path, std::string_view folder) {
    if (folder == kNoFolder && path.find_last_of(kSeparators) == path.npos) return ".";
    return Native_Path(folder);
}

bool Is_Remembered_Folder(std::string_view folder) {
    if (folder.size() < 2 || folder[1] != ':') return true;
    return To_Upper(folder.substr(0, 1)) > "B";
}

std::string Dialog_Folder() {
    const std::string remembered = The_Platform().Get_Setting(kProgramTitle, "Startup", "CRFLoc", "None");
    if (remembered != "None") return remembered;
    const std::string program = The_Platform().Program_Folder();
    const std::string documents = The_Platform().Documents_Folder();
    const bool isWritable = ::access(Native_Path(program).c_str(), W_OK) == 0;
    return isWritable || documents.empty() ? program : documents;
}

}  // namespace tallmar
