// The tests' platform: strict and recording. A box that no test expects fails the test, and so does an expected box
// that never comes. Time moves only by Set_Now and Advance; settings live in memory.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "common/dates.h"
#include "common/platform.h"

namespace tallmar {

// Thrown by End_Program, since a test cannot end there.
struct ProgramEnded {};

class FakePlatform : public Platform {
  public:
    // Installs itself, and puts the platform before it back at the end. The clock stands at 11/15/2016 10:30:00.
    FakePlatform();
    ~FakePlatform() override;
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    // ---- What the test says beforehand. Boxes come in this order; `answer` must be one that the box offers.
    static constexpr int kAnyButtons = -1;
    void Expect_Box(std::string_view title, std::string_view text, Answer answer = Answer::Ok,
                    int buttons = kAnyButtons);
    void Expect_Box_Starting(std::string_view title, std::string_view textStart, Answer answer = Answer::Ok,
                             int buttons = kAnyButtons);
    // The next file dialogs' replies; nothing means cancelled. A dialog without a reply fails the test.
    void Reply_Open(std::optional<std::string> path) { openReplies_.push_back(std::move(path)); }
    void Reply_Save(std::optional<std::string> path) { saveReplies_.push_back(std::move(path)); }
    void Set_Now(Date now) { now_ = now; }
    // Whole seconds.
    void Advance(int seconds);

    std::string programFolder = "no-program-folder";
    std::string dataFolder;            // empty: nothing is kept
    std::string documentsFolder;       // empty: there is none
    bool closeFormsCancelled = false;  // what Close_All_Forms answers
    bool keepsReportsOpen = false;     // a desktop
    std::function<void()> onEvents;    // runs at each Do_Events; whoever waits for the clock needs an Advance here

    // ---- What happened.
    struct Box {
        std::string title, text;
        int buttons = 0;
        Answer answer = Answer::None;
    };
    struct Batch {
        std::string title;
        std::vector<BatchMessage> rows;
    };
    struct Setting {
        std::string application, section, key;
        friend auto operator<=>(const Setting&, const Setting&) = default;
    };
    std::vector<Box> boxes;
    std::vector<FileDialog> openDialogs, saveDialogs;
    std::vector<Batch> batches;
    std::vector<std::string> progress;  // every text, the empty ones too
    std::map<Setting, std::string> settings;
    std::vector<ReportEvent> reportEvents;
    std::string formLeftOpen;  // at the last Close_All_Forms
    std::vector<std::string> documents;
    bool hourglass = false, busy = false;
    int beeps = 0, events = 0, menusStale = 0, formClosings = 0;

    // ---- Platform
    Answer Message_Box(std::string_view prompt, int buttons, std::string_view title) override;
    void Beep() override { ++beeps; }
    std::optional<std::string> Open_File(const FileDialog& dialog) override;
    std::optional<std::string> Save_File(const FileDialog& dialog) override;
    void Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) override;
    void Hourglass(bool on) override { hourglass = on; }
    void Progress(std::string_view text) override { progress.emplace_back(text); }
    void Do_Events() override;
    Date Now() override { return now_; }
    std::string Get_Setting(std::string_view application, std::string_view section, std::string_view key,
                            std::string_view otherwise) override;
    void Save_Setting(std::string_view application, std::string_view section, std::string_view key,
                      std::string_view value) override;
    std::string Program_Folder() override { return programFolder; }
    std::string Data_Folder() override { return dataFolder; }
    std::string Documents_Folder() override { return documentsFolder; }
    void Notify(ReportEvent event) override { reportEvents.push_back(event); }
    void Busy(bool on) override { busy = on; }
    void Menus_Stale() override { ++menusStale; }
    bool Close_All_Forms(std::string_view but = {}) override;
    void Open_Document(std::string_view path) override { documents.emplace_back(path); }
    bool Keeps_Reports_Open() const override { return keepsReportsOpen; }
    [[noreturn]] void End_Program() override { throw ProgramEnded{}; }

  private:
    struct ExpectedBox {
        Box box;
        bool wholeText = true;
    };
    std::deque<ExpectedBox> expected_;
    std::deque<std::optional<std::string>> openReplies_, saveReplies_;
    Date now_ = Date_Of({2016, 11, 15, 10, 30, 0});
    Platform* before_;
};

}  // namespace tallmar
