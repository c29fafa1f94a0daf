// The application: what goes wrong in the handler of an event is shown in a box, and the program goes on with its forms
// and rows as they are.
#pragma once

#include <QApplication>

namespace tallmar {

class TallmarApplication : public QApplication {
    Q_OBJECT

  public:
    TallmarApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

// The box; a job that was under way is over.
void Tell_Failure(const std::exception& error);

}  // namespace tallmar
