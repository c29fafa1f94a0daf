// The help text of the main window: it scrolls into view when a report is opened. The timer `tmrMain` works by its tag.
#pragma once

#include <QLabel>
#include <QTimer>

namespace tallmar {

// What one tick of the timer works on.
struct HelpScroll {
    QString tag;   // "", "Running" or "Stopped"
    QString text;  // of lblHelp
    bool ticking = true;
};
// Empty: "Running", with 14 line breaks before the text. "Running": one line break less; none left: the timer
// stops. "Stopped": nothing.
void Scroll_Help(HelpScroll& scroll);

class HelpScroller : public QObject {
    Q_OBJECT

  public:
    explicit HelpScroller(QWidget* parent);

    QLabel& Label() const { return *lblHelp_; }
    // From its first line break on.
    void Start();
    void Stop();

  private:
    void Tick();

    QLabel* lblHelp_;
    QTimer tmrMain_{this};
    QString tag_ = "Stopped";
};

}  // namespace tallmar
