// A screen in memory with a window manager on it, and the keyboard and mouse of a person before it. What is pressed
// goes through the window system to the window that has the focus there, as it does on a real desktop.
#pragma once

#include <sys/types.h>

#include <string>

namespace tallmar {

class XScreen {
  public:
    // Starts both on a free display and waits until they are ready. `folder` takes their files. Throws
    // std::runtime_error where one does not come up.
    explicit XScreen(const std::string& folder);
    // Ends both. They end, too, with a program that is killed.
    ~XScreen();
    XScreen(const XScreen&) = delete;
    XScreen& operator=(const XScreen&) = delete;

    // ":7"
    const std::string& Name() const { return name_; }

    // A key by its name in the window system: "Return", "F2", "a". `held` are the modifiers down meanwhile, by their
    // keys: "Shift_L".
    void Press(const std::string& key, const std::string& held = {}) const;
    // One character of ASCII, with Shift where it needs it.
    void Type(char character) const;
    // A click of the left button at a place of the screen.
    void Click(int x, int y) const;

    // The window that gets the keys, by its number in the window system; 0 or 1 while there is none.
    unsigned long Focused() const;

  private:
    void Start_Server(const std::string& folder);
    void Start_Manager(const std::string& folder);
    void Send_Key(unsigned code, bool isDown) const;

    std::string name_;
    pid_t server_ = -1;
    pid_t manager_ = -1;
    void* display_ = nullptr;  // the connection to it
};

}  // namespace tallmar
