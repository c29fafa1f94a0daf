#include "shell/frm_help_about.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "common/program.h"
#include "report/open_report.h"
#include "screens/view/qt_text.h"
#include "shell/logo.h"

namespace tallmar {

namespace {

constexpr QSize kLogoSize{64, 64};
constexpr int kSpacing = 18;
constexpr const char* kFormVersion = "CMS Version 1728-94 T16";

QString About_Text() {
    return Qt_Text(kProgramTitle) + QStringLiteral("\nVersion ") + QLatin1String(TALLMAR_VERSION) +
           QStringLiteral("\n") + QLatin1String(kFormVersion) + QStringLiteral("\n\n") + Qt_Text(Product_Title());
}

}  // namespace

DialogPtr Make_Help_About(QWidget* parent) {
    DialogPtr dialog = Make_Dialog("frmHelpAbout", QStringLiteral("About ") + Qt_Text(kProgramTitle), parent);
    auto* logo = new QLabel(dialog.get());
    logo->setObjectName(QStringLiteral("picLogo"));
    logo->setPixmap(Logo(kLogoSize, dialog->palette()));
    auto* about = new QLabel(About_Text(), dialog.get());
    about->setObjectName(QStringLiteral("lblAbout"));
    about->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    about->setAccessibleName(dialog->windowTitle());
    auto* box = new QDialogButtonBox(dialog.get());
    QPushButton* ok = Add_Button(*box, "cmdOK", QStringLiteral("&OK"), QDialogButtonBox::AcceptRole);
    QObject::connect(box, &QDialogButtonBox::accepted, dialog.get(), &QDialog::accept);

    auto* top = new QHBoxLayout;
    top->setSpacing(kSpacing);
    top->addWidget(logo, 0, Qt::AlignTop);
    top->addWidget(about, 1);
    auto* layout = new QVBoxLayout(dialog.get());
    layout->setSpacing(kSpacing);
    layout->addLayout(top);
    layout->addWidget(box);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ok->setDefault(true);
    ok->setFocus();
    return dialog;
}

void Show_Help_About(QWidget* parent) {
    Run_Modal(*Make_Help_About(parent));
}

}  // namespace tallmar
