#include "shell/dialog.h"

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QPushButton>

namespace tallmar {

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Plain(const QString& text) {
    return text.toStdString();
}

DialogPtr Make_Dialog(const char* name, const QString& caption, QWidget* parent) {
    auto dialog = std::make_unique<QDialog>(parent);
    dialog->setObjectName(QLatin1String(name));
    dialog->setWindowTitle(caption);
    dialog->setAccessibleName(caption);
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    return dialog;
}

QPushButton* Add_Button(QDialogButtonBox& box, const char* name, const QString& caption, int role) {
    QPushButton* button = box.addButton(caption, static_cast<QDialogButtonBox::ButtonRole>(role));
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    return button;
}

bool Run_Modal(QDialog& dialog) {
    QEventLoop loop;
    QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
    dialog.setModal(true);
    dialog.setEnabled(true);  // a job may have disabled the main window with all that belongs to it
    dialog.show();
    loop.exec();
    return dialog.result() == QDialog::Accepted;
}

}  // namespace tallmar
