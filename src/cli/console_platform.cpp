#include "cli/console_platform.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <utility>

#include "cli/json_text.h"
#include "common/dates.h"

namespace tallmar {

namespace {

constexpr int kButtonMask = 7;

struct ButtonRow {
    int buttons;
    std::array<Answer, 3> answers;  // in the order shown; the first is the default
};
constexpr std::array kButtonRows{
    ButtonRow{kOkOnly, {Answer::Ok}},
    ButtonRow{kOkCancel, {Answer::Ok, Answer::Cancel}},
    ButtonRow{kYesNoCancel, {Answer::Yes, Answer::No, Answer::Cancel}},
    ButtonRow{kYesNo, {Answer::Yes, Answer::No}},
};

const ButtonRow& Row_Of(int buttons) {
    for (const ButtonRow& row : kButtonRows) {
        if (row.buttons == (buttons & kButtonMask)) return row;
    }
    return kButtonRows.front();
}

}  // namespace

ConsolePlatform::ConsolePlatform(std::ostream& out, std::ostream& err, ConsoleOptions options)
    : out_(out), err_(err), options_(std::move(options)) {}

Answer ConsolePlatform::Message_Box(std::string_view prompt, int buttons, std::string_view title) {
    Progress("");
    err_ << boxPlace_ << One_Line(title) << ": " << One_Line(prompt) << '\n' << std::flush;
    const ButtonRow& row = Row_Of(buttons);
    for (const Answer answer : row.answers) {
        if (options_.answer == answer && answer != Answer::None) return answer;
    }
    return (buttons & kDefaultButton2) != 0 ? row.answers[1] : row.answers[0];
}

void ConsolePlatform::Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) {
    Progress("");
    if (!messagesAsJson_) err_ << title << '\n';
    for (const BatchMessage& row : rows) {
        if (messagesAsJson_) {
            out_ << JsonObject()
                        .Add("ErrLevel", row.level)
                        .Add("ErrForm", row.form)
                        .Add("ErrMessage", row.message)
                        .Text()
                 << '\n';
        } else {
            err_ << row.level << "  " << row.form << "  " << One_Line(row.message) << '\n';
        }
    }
}

void ConsolePlatform::Progress(std::string_view text) {
    if (!options_.showProgress) return;
    // The line before it is wiped out: a shorter text leaves nothing of it standing.
    err_ << '\r' << std::string(progressWidth_, ' ') << '\r' << text << std::flush;
    progressWidth_ = text.size();
}

Date ConsolePlatform::Now() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    return Date_Of(CivilDate{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                             std::min(local.tm_sec, 59)});
}

void ConsolePlatform::Open_Document(std::string_view path) {
    std::string text = "There is no window here to open the document ";
    text += path;
    Message_Box(text + " in.", kExclamation, "Error: Document Not Opened");
}

void ConsolePlatform::End_Program() {
    err_ << std::flush;
    std::_Exit(1);
}

std::string One_Line(std::string_view text) {
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const unsigned char next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
        if (byte == '\r' && next == '\n') continue;
        if (byte == '\r' || byte == '\n' || byte == '\t') {
            line += ' ';
        } else if (byte < 0x20 || byte == 0x7F) {
            line += '?';
        } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {  // U+0080 to U+009F
            line += '?';
            ++i;
        } else {
            line += text[i];
        }
    }
    return line;
}

std::string User_Data_Folder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') {
        return std::string(data) + "/Tallmar 1728";
    }
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return std::string(home) + "/.local/share/Tallmar 1728";
    }
    return "";
}

std::string Executable_Folder() {
    std::error_code error;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "." : path.parent_path().string();
}

}  // namespace tallmar
