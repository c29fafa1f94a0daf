// The command line's platform: message boxes become lines on standard error, dialogs have no use.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "common/platform.h"

namespace tallmar {

struct ConsoleOptions {
    std::optional<Answer> answer;  // of --answer: what every question gets that offers it
    bool showProgress = false;     // standard error is a terminal
    std::string dataFolder;        // where backups of changed reports go; empty: none are kept
    std::string programFolder;
};

class ConsolePlatform final : public Platform {
  public:
    ConsolePlatform(std::ostream& out, std::ostream& err, ConsoleOptions options);

    // Where the collected messages of a job go: to `out` as JSON lines, or to `err` as text.
    void Print_Messages_As_Json(bool json) { messagesAsJson_ = json; }

    // Stands before the boxes from now on: "line 12: ".
    void Name_Boxes(std::string place) { boxPlace_ = std::move(place); }

    // "TITLE: TEXT" on standard error, in one line; answers the default button unless --answer names another one of the
    // box.
    Answer Message_Box(std::string_view prompt, int buttons, std::string_view title) override;
    void Beep() override {}
    std::optional<std::string> Open_File(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> Save_File(const FileDialog&) override { return std::nullopt; }
    void Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) override;
    void Hourglass(bool) override {}
    void Progress(std::string_view text) override;
    void Do_Events() override {}
    Date Now() override;
    // Nothing is remembered between two commands: every setting has its default.
    std::string Get_Setting(std::string_view, std::string_view, std::string_view, std::string_view otherwise) override {
        return std::string(otherwise);
    }
    void Save_Setting(std::string_view, std::string_view, std::string_view, std::string_view) override {}
    std::string Program_Folder() override { return options_.programFolder; }
    std::string Data_Folder() override { return options_.dataFolder; }
    void Notify(ReportEvent) override {}
    void Busy(bool) override {}
    void Menus_Stale() override {}
    bool Close_All_Forms(std::string_view) override { return false; }
    void Open_Document(std::string_view path) override;
    [[noreturn]] void End_Program() override;

  private:
    std::ostream& out_;
    std::ostream& err_;
    ConsoleOptions options_;
    std::string boxPlace_;
    bool messagesAsJson_ = false;
    std::size_t progressWidth_ = 0;
};

// A text as one line of output: line breaks and tabs become blanks, other control characters, which a terminal would
// obey, become question marks.
std::string One_Line(std::string_view text);
// The per-user data folder of the system, or empty where the user has no home. A relative XDG_DATA_HOME does not count.
std::string User_Data_Folder();
// The folder of the running program.
std::string Executable_Folder();

}  // namespace tallmar
