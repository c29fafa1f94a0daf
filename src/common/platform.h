// The one interface to the outside: message boxes, dialogs, pointer, progress, settings, clock. Nothing else in the
// program shows a box, asks the time or reads a setting. Implementations: the desktop's, the console's, the tests'
// fake.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"

namespace tallmar {

// Buttons and icons of a message box, added together.
enum : int {
    kOkOnly = 0,
    kOkCancel = 1,
    kYesNoCancel = 3,
    kYesNo = 4,
    kStop = 16,
    kQuestion = 32,
    kExclamation = 48,
    kInformation = 64,
    kDefaultButton2 = 256,
};
// What a message box answers. 0 is for a question asked while a log runs: neither answer.
enum class Answer : int { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct FileDialog {
    std::string directory;  // where it starts
    std::string fileName;   // what is in the name field at first
    std::string title;
    std::string defaultExtension;
    std::string filter;
};

// What happened to the open report, for whoever shows it.
enum class ReportEvent : std::uint8_t {
    Opening,    // one is being chosen, or opened
    NotChosen,  // the choice was cancelled: the report that was open still is, or none
    Making,     // one is being made
    Named,      // its path was given to it, or another one
    Opened,     // it is open, or was made
    Closed,     // no report is open
};

class Platform {
  public:
    virtual ~Platform() = default;

    virtual Answer Message_Box(std::string_view prompt, int buttons, std::string_view title) = 0;
    virtual void Beep() = 0;
    // The chosen path; nothing when cancelled.
    virtual std::optional<std::string> Open_File(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> Save_File(const FileDialog& dialog) = 0;
    // The rows of <prefix>ErrLog, at the end of a job. `rows` is the level, form and message of each, in order.
    struct BatchMessage {
        std::string level, form, message;
    };
    virtual void Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) = 0;

    virtual void Hourglass(bool on) = 0;
    // The text of txtCalcMsg; empty hides it.
    virtual void Progress(std::string_view text) = 0;
    virtual void Do_Events() = 0;

    // The present local date and time, whole seconds.
    virtual Date Now() = 0;
    virtual std::string Get_Setting(std::string_view application, std::string_view section, std::string_view key,
                                    std::string_view otherwise) = 0;
    virtual void Save_Setting(std::string_view application, std::string_view section, std::string_view key,
                              std::string_view value) = 0;
    // The folder of the executable, without a separator at its end.
    virtual std::string Program_Folder() = 0;
    // Where the program keeps data of its own for this user, without a separator at its end. Empty: nothing is kept.
    virtual std::string Data_Folder() { return {}; }
    // Where this user keeps documents, without a separator at its end. Empty: there is no such place.
    virtual std::string Documents_Folder() { return {}; }
    virtual void Notify(ReportEvent event) = 0;
    // While a job on the whole report runs the main window takes nothing.
    virtual void Busy(bool on) = 0;
    // What the menus are on or off by may have changed.
    virtual void Menus_Stale() = 0;
    // Closes every worksheet form except the one named `but`, which asks for it: "frmEditS2". True when the user
    // cancelled.
    virtual bool Close_All_Forms(std::string_view but = {}) = 0;
    // Opens a document with the verb "Open". Where that fails a box says so.
    virtual void Open_Document(std::string_view path) = 0;
    // A report stays open between what the user does; others want to know of it.
    virtual bool Keeps_Reports_Open() const { return false; }
    // Ends the program on the spot after an unrecoverable trouble.
    [[noreturn]] virtual void End_Program() = 0;
};

// The platform in use. Requires Install_Platform.
Platform& The_Platform();
// Returns the one before.
Platform* Install_Platform(Platform* platform);

}  // namespace tallmar
