#include "shell/focus/x_screen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <vector>

namespace tallmar {

namespace {

constexpr int kStartMilliseconds = 30000;
constexpr auto kLook = std::chrono::milliseconds(5);
constexpr auto kEnd = std::chrono::seconds(5);

// Windows with titles; a click gives the focus.
constexpr const char* kManagerSettings = R"(<?xml version="1.0"?>
<JWM>
    <WindowStyle><Font>DejaVu Sans-9</Font><Height>24</Height></WindowStyle>
    <Desktops width="1" height="1"/>
    <FocusModel>click</FocusModel>
</JWM>
)";

// `written` stays open in the program and is its descriptor of the same number.
pid_t Start(const std::vector<std::string>& command, const std::string& log, int written = -1) {
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child != 0) return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(127);
    if (written >= 0) fcntl(written, F_SETFD, 0);
    const int out = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(out, STDOUT_FILENO);
    dup2(out, STDERR_FILENO);
    execvp(words.front(), words.data());
    _exit(127);
}

void End(pid_t program) {
    if (program <= 0) return;
    kill(program, SIGTERM);
    const auto until = std::chrono::steady_clock::now() + kEnd;
    while (waitpid(program, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > until) {
            kill(program, SIGKILL);
            waitpid(program, nullptr, 0);
            return;
        }
        std::this_thread::sleep_for(kLook);
    }
}

// The number of the display, which the server writes when it is ready.
std::string Read_Line(int from) {
    std::string line;
    pollfd ready{from, POLLIN, 0};
    for (char character = 0; character != '\n'; line += character) {
        if (poll(&ready, 1, kStartMilliseconds) <= 0 || read(from, &character, 1) != 1) return {};
    }
    line.pop_back();
    return line;
}

Display* Connection(void* display) {
    return static_cast<Display*>(display);
}

// A window manager says of itself which window is its own.
bool Has_Manager(Display* display) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* value = nullptr;
    const Atom check = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False);
    XGetWindowProperty(display, DefaultRootWindow(display), check, 0, 1, False, XA_WINDOW, &type, &format, &count,
                       &rest, &value);
    if (value != nullptr) XFree(value);
    return count > 0;
}

}  // namespace

XScreen::XScreen(const std::string& folder) {
    try {
        Start_Server(folder);
        Start_Manager(folder);
    } catch (...) {
        End(manager_);
        End(server_);
        throw;
    }
}

XScreen::~XScreen() {
    XCloseDisplay(Connection(display_));
    End(manager_);
    End(server_);
}

void XScreen::Start_Server(const std::string& folder) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    server_ = Start({"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", "1280x800x24", "-dpi", "96",
                     "-nolisten", "tcp"},
                    folder + "/server.log", ends[1]);
    close(ends[1]);
    const std::string number = Read_Line(ends[0]);
    close(ends[0]);
    if (number.empty()) throw std::runtime_error("Xvfb does not start");
    name_ = ":" + number;
    display_ = XOpenDisplay(name_.c_str());
    if (display_ == nullptr) throw std::runtime_error("no connection to display " + name_);
}

void XScreen::Start_Manager(const std::string& folder) {
    const std::string settings = folder + "/jwmrc";
    std::ofstream(settings) << kManagerSettings;
    manager_ = Start({"jwm", "-display", name_, "-f", settings}, folder + "/manager.log");
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(kStartMilliseconds);
    while (!Has_Manager(Connection(display_))) {
        if (std::chrono::steady_clock::now() > until || waitpid(manager_, nullptr, WNOHANG) != 0) {
            throw std::runtime_error("jwm does not start");
        }
        std::this_thread::sleep_for(kLook);
    }
}

void XScreen::Send_Key(unsigned code, bool isDown) const {
    XTestFakeKeyEvent(Connection(display_), code, isDown ? True : False, CurrentTime);
    XFlush(Connection(display_));
}

void XScreen::Press(const std::string& key, const std::string& held) const {
    const auto code = [&](const std::string& name) -> unsigned {
        const KeyCode found = XKeysymToKeycode(Connection(display_), XStringToKeysym(name.c_str()));
        if (found == 0) throw std::runtime_error("no key " + name);
        return found;
    };
    if (!held.empty()) Send_Key(code(held), true);
    Send_Key(code(key), true);
    Send_Key(code(key), false);
    if (!held.empty()) Send_Key(code(held), false);
}

void XScreen::Type(char character) const {
    // The signs of ASCII are their own numbers.
    const auto sign = static_cast<KeySym>(static_cast<unsigned char>(character));
    const KeyCode code = XKeysymToKeycode(Connection(display_), sign);
    const char* name = XKeysymToString(sign);
    if (code == 0 || name == nullptr) throw std::runtime_error("no key for a character");
    int perKey = 0;
    KeySym* signs = XGetKeyboardMapping(Connection(display_), code, 1, &perKey);
    const bool isPlain = signs[0] == sign;
    XFree(signs);
    Press(name, isPlain ? "" : "Shift_L");
}

unsigned long XScreen::Focused() const {
    Window window = 0;
    int revert = 0;
    XGetInputFocus(Connection(display_), &window, &revert);
    return window;
}

void XScreen::Click(int x, int y) const {
    Display* display = Connection(display_);
    XTestFakeMotionEvent(display, -1, x, y, CurrentTime);
    XTestFakeButtonEvent(display, 1, True, CurrentTime);
    XTestFakeButtonEvent(display, 1, False, CurrentTime);
    XFlush(display);
}

}  // namespace tallmar
