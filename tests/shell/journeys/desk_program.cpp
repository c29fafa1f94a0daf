// A desk in a program of its own, for tests that kill it: opens FILE, keys line after line of worksheet A, tells each
// line when the cursor has left it, begins a last entry and waits.
//
//     desk_program FILE
#include <QApplication>
#include <iostream>

#include "shell/journeys/desk.h"

int main(int argc, char** argv) {
    using namespace tallmar;
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2) return 2;
    Desk desk;
    desk.Open(argv[1]);
    desk.Edit("A");
    desk.At(6, 1);
    for (int value = 101; value <= 115; ++value) {
        const std::string cursor = desk.Cursor();
        Desk::Type(std::to_string(value));
        Desk::Press(Qt::Key_Return);
        std::cout << cursor.substr(0, cursor.find(' ')) << std::endl;
    }
    Desk::Type("999");
    std::cout << "ready" << std::endl;
    return QApplication::exec();
}
