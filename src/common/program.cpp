#include "common/program.h"

#include <fstream>

#include "common/platform.h"
#include "common/text.h"

namespace tallmar {

namespace {

constexpr std::string_view kProductTitle = "The Brennwick Systems, Inc.";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::string Short_Version() {
    std::string version = TALLMAR_VERSION;
    version.resize(version.rfind('.'));
    return version;
}

std::string Product_Title() {
    std::ifstream file(The_Platform().Program_Folder() + "/PrtTitle.txt");
    std::string line;
    std::getline(file, line);
    while (!line.empty() && line.back() == '\r') line.pop_back();
    // Written by an older editor it is in code page 1252.
    if (!Is_Valid_Utf8(line)) line = From_Cp1252(line);
    if (Begins_With(line, kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    return line.empty() ? std::string(kProductTitle) : line;
}

}  // namespace tallmar
