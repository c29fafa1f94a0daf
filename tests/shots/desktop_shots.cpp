// The program in pictures: leads the real main window along the stations and leaves a picture of each, and an index.
//   desktop_shots SAMPLES PICTURES    SAMPLES holds fy2016.CRF, fy1999.CRF and messages.CRF, which the tour may change
// Clock, settings, home and the size of the window are its own, so that two tours make the same pictures.
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include "catalogue.h"
#include "common/dates.h"
#include "screens/view/qt_text.h"
#include "shell/desktop_platform.h"
#include "shell/frm_main.h"
#include "shell/main_commands.h"
#include "shell/startup.h"
#include "shell/tallmar_application.h"
#include "shots/stations.h"

namespace tallmar {

namespace {

// A station has four steps: go, inside, picture, leave. `go` may stand in a box for as long as the next ones take, so
// each step puts its follower on the clock before it begins.
class Tour {
  public:
    Tour(Desk& desk, QDir pictures) : desk_(desk), pictures_(std::move(pictures)) {}

    void Begin() { Later(&Tour::Go); }

  private:
    static constexpr int kPatience = 500;  // pauses
    // Milliseconds until everything is painted.
    static int Pause() { return QGuiApplication::platformName() == "offscreen" ? 20 : 150; }

    void Later(void (Tour::*step)(), int waits = 0) {
        QTimer::singleShot(Pause(), &life_, [this, step, waits] {
            // A job that lets events run is not done while the hourglass shows.
            const QCursor* const pointer = QApplication::overrideCursor();
            const bool works = pointer != nullptr && pointer->shape() == Qt::WaitCursor;
            if (!works && !desk_.Busy()) return (this->*step)();
            if (waits == kPatience) {
                const QWidget* const top = desk_.On_Top();
                Tour_Failed("Stuck at " + Qt_Text(Stations()[at_].file) +
                            (top == nullptr ? "" : ": " + top->windowTitle()));
            }
            Later(step, waits + 1);
        });
    }
    void Go() {
        if (at_ == Stations().size()) return Finish();
        Later(&Tour::Inside);
        Stations()[at_].go(desk_, Stations()[at_]);
    }
    void Inside() {
        if (Stations()[at_].inside == nullptr) return Picture();
        Later(&Tour::Picture);
        Stations()[at_].inside(desk_);
    }
    void Picture() {
        const QString file = Qt_Text(Stations()[at_].file) + ".png";
        if (!desk_.Take_Picture(pictures_.filePath(file))) Tour_Failed("No picture at " + file);
        Later(&Tour::Leave);
    }
    void Leave() {
        const Station& station = Stations()[at_];
        ++at_;
        Later(&Tour::Go);
        if (station.leave != nullptr) station.leave(desk_);
    }
    void Finish() {
        QFile index(pictures_.filePath("README.md"));
        if (!index.open(QIODevice::WriteOnly)) Tour_Failed("The index cannot be written");
        index.write("# The program in pictures\n\nMade by `scripts/screenshots.sh` on the sample agency.\n\n");
        for (const Station& station : Stations()) {
            index.write(qPrintable(QString("- [%1](%1.png) - %2\n").arg(Qt_Text(station.file), Qt_Text(station.text))));
        }
        QApplication::quit();
    }

    Desk& desk_;
    QDir pictures_;
    std::size_t at_ = 0;
    QObject life_;
};

}  // namespace

}  // namespace tallmar

int main(int argc, char** argv) {
    using namespace tallmar;
    TallmarApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    TallmarApplication application(argc, argv);
    if (argc != 3) Tour_Failed("Usage: desktop_shots SAMPLES PICTURES");
    TallmarApplication::setStyle("Fusion");
    TallmarApplication::setCursorFlashTime(0);
    const QDir samples(argv[1]);
    const QDir pictures(argv[2]);
    if (!pictures.mkpath(".")) Tour_Failed("There is no folder " + pictures.path());

    const QTemporaryDir own;
    DesktopPlatform platform({Plain_Text(own.filePath("settings")), Plain_Text(own.filePath("data")),
                              Plain_Text(own.path()),
                              [] {
                                  return Date_Of({2016, 11, 15, 10, 30, 0});
                              },
                              [](const std::string&) { return false; }});
    Install_Catalogue(All_Families());
    FrmMain main(platform.Guard());
    Connect_Commands(main);
    platform.Attach(&main);
    StartOptions options;
    options.splash = false;
    if (!Start_Up(main, options, true)) Tour_Failed("The program does not start");
    main.showMaximized();
    Desk desk(main, samples.absolutePath());
    Tour tour(desk, pictures);
    tour.Begin();
    return TallmarApplication::exec();
}
