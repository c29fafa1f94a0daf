#include "shell/frm_splash.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "common/program.h"
#include "report/open_report.h"
#include "screens/view/qt_text.h"
#include "shell/dialog.h"
#include "shell/logo.h"

namespace tallmar {

namespace {

constexpr QSize kLogoSize{96, 96};
constexpr int kMargin = 36, kSmallestWidth = 420;
constexpr double kNameScale = 2.2;

QLabel* Line(const char* name, const QString& text, QWidget& splash) {
    auto* label = new QLabel(text, &splash);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(Qt::AlignCenter);
    splash.layout()->addWidget(label);
    return label;
}

}  // namespace

std::unique_ptr<QWidget> Make_Splash() {
    auto splash = std::make_unique<QWidget>(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint);
    splash->setObjectName(QStringLiteral("frmSplash"));
    splash->setWindowTitle(Qt_Text(kProgramTitle));
    splash->setAccessibleName(Qt_Text(kProgramTitle));
    splash->setAttribute(Qt::WA_QuitOnClose, false);
    auto* layout = new QVBoxLayout(splash.get());
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin / 3);
    splash->setMinimumWidth(kSmallestWidth);

    Line("picLogo", {}, *splash)->setPixmap(Logo(kLogoSize, splash->palette()));
    QLabel* name = Line("lblProductName", Qt_Text(kProgramTitle), *splash);
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * kNameScale);
    name->setFont(font);
    Line("lblVersion", QStringLiteral("Version ") + Qt_Text(Short_Version()), *splash);
    Line("lblMaker", Qt_Text(Product_Title()), *splash);
    return splash;
}

void Show_Splash(std::chrono::milliseconds time) {
    const std::unique_ptr<QWidget> splash = Make_Splash();
    splash->adjustSize();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    splash->move(screen.center() - splash->rect().center());
    splash->show();
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace tallmar
