#include "report/replace.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "common/file_id.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "report/open_report.h"
#include "report/paths.h"

namespace tallmar {

namespace {

// What the engine and the program put behind a report's name for files beside it.
constexpr std::array<std::string_view, 5> kSideSuffixes{"-journal", "-wal", "-shm", ".lock", ".tallmar"};

std::string Trouble_With_Name(const std::string& path) {
    const std::string name = File_Title_Of(path);
    if (Same_Text(name, kTemporaryName)) {
        return Sql("The name ", name, " is kept for the compaction of reports.  Please choose another one.");
    }
    if (std::ranges::any_of(kSideSuffixes, [&](std::string_view suffix) { return name.ends_with(suffix); })) {
        return Sql("The name ", name, " is that of a file beside a report.  Please choose another one.");
    }
    if (!DBEngine::Has_Room_For_Journal(Native_Path(path))) {
        return Sql("The name of the file ", name, " is too long.  Please choose a shorter one.");
    }
    return {};
}

}  // namespace

bool Check_Report_Name(const std::string& path, std::string_view title) {
    const std::string trouble = Trouble_With_Name(path);
    if (trouble.empty()) return true;
    The_Platform().Beep();
    The_Platform().Message_Box(trouble, kStop, title);
    return false;
}

bool May_Replace_File(const std::string& path) {
    std::error_code ignored;
    const auto there = Id_Of(Native_Path(path));
    if (!there || std::filesystem::is_directory(Native_Path(path), ignored) ||
        (!openReport.CRFPath.empty() && there == Id_Of(Native_Path(openReport.CRFPath))))
        return true;
    const std::string prompt = Sql("The file '", path, "' exists already.  Do you want to replace it?");
    return The_Platform().Message_Box(prompt, kYesNo | kQuestion | kDefaultButton2, "Replace File?") == Answer::Yes;
}

}  // namespace tallmar
