// A desktop of another person, in a program of its own, that has a report open.
#pragma once

#include <sys/types.h>

#include <string>

namespace tallmar {

class OtherWindow {
  public:
    // Opens the report and returns when it is open; a failure fails the test. Requires that no report is open here: the
    // other program would share its lock.
    explicit OtherWindow(const std::string& file);
    // Closes the report and ends.
    ~OtherWindow() { Close(); }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    void Close();
    // Ends on the spot, without a word.
    void Kill();
    pid_t Process() const { return process_; }

  private:
    static int Work(const std::string& file, int told, int tells);
    int End();

    pid_t process_ = 0;
    int tell_ = -1;
};

}  // namespace tallmar
