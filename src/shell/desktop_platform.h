// The platform of the desktop: boxes, file dialogs, pointer, progress, settings and clock over Qt. What happens to the
// report goes on to the main window.
#pragma once

#include <QPointer>
#include <functional>
#include <string>

#include "common/platform.h"
#include "shell/job_guard.h"

class QWidget;

namespace tallmar {

class FrmMain;

// Where the program keeps its things. Tests give places of their own.
struct DesktopPlaces {
    std::string settingsFolder;  // <application>.ini
    std::string dataFolder;      // empty: nothing is kept
    std::string programFolder;
    std::function<Date()> now;
    std::function<bool(const std::string& path)> open;  // by the program for such a document; false: there is none
    std::string documentsFolder = {};                   // empty: there is none
};
// Those of the user who runs the program. Requires the QApplication.
DesktopPlaces User_Places();

class DesktopPlatform final : public Platform {
  public:
    // Installs itself, and puts the platform before it back at the end.
    explicit DesktopPlatform(DesktopPlaces places);
    ~DesktopPlatform() override;
    DesktopPlatform(const DesktopPlatform&) = delete;
    DesktopPlatform& operator=(const DesktopPlatform&) = delete;

    // The window that shows what happens. Until there is one nothing does.
    void Attach(FrmMain* main);
    const JobGuard& Guard() const { return guard_; }

    Answer Message_Box(std::string_view prompt, int buttons, std::string_view title) override;
    void Beep() override;
    std::optional<std::string> Open_File(const FileDialog& dialog) override;
    std::optional<std::string> Save_File(const FileDialog& dialog) override;
    void Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) override;
    // A job runs while it is on: the program takes no input.
    void Hourglass(bool on) override;
    void Progress(std::string_view text) override;
    void Do_Events() override;
    Date Now() override { return places_.now(); }
    std::string Get_Setting(std::string_view application, std::string_view section, std::string_view key,
                            std::string_view otherwise) override;
    void Save_Setting(std::string_view application, std::string_view section, std::string_view key,
                      std::string_view value) override;
    std::string Program_Folder() override { return places_.programFolder; }
    std::string Data_Folder() override { return places_.dataFolder; }
    std::string Documents_Folder() override { return places_.documentsFolder; }
    void Notify(ReportEvent event) override;
    void Busy(bool on) override;
    void Menus_Stale() override;
    bool Close_All_Forms(std::string_view but = {}) override;
    void Open_Document(std::string_view path) override;
    bool Keeps_Reports_Open() const override { return true; }
    [[noreturn]] void End_Program() override;

  private:
    // Runs `show` with the ordinary pointer and with input, over the window in front.
    template <class Show>
    auto In_Front(Show show);

    DesktopPlaces places_;
    QPointer<FrmMain> main_;
    JobGuard guard_;
    Platform* before_;
};

}  // namespace tallmar
