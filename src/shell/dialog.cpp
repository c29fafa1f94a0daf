#include "shell/dialog.h"

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

namespace tallmar {

void Set_Up_Dialog(QDialog& dialog, const char* name, const QString& caption) {
    dialog.setObjectName(QLatin1String(name));
    dialog.setWindowTitle(caption);
    dialog.setAccessibleName(caption);
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    dialog.setMinimumWidth(Caption_Width(dialog));
}

int Caption_Width(const QWidget& dialog) {
    QFont font = dialog.font();
    font.setBold(true);
    // Window managers draw titles in fonts of their own, between an icon and a few buttons.
    const int buttons = 5 * dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &dialog);
    return QFontMetrics(font).horizontalAdvance(dialog.windowTitle()) + buttons;
}

DialogPtr Make_Dialog(const char* name, const QString& caption, QWidget* parent) {
    auto dialog = std::make_unique<QDialog>(parent);
    Set_Up_Dialog(*dialog, name, caption);
    return dialog;
}

namespace {

// A caption as it is read out.
QString Spoken(QString caption) {
    return caption.remove(QLatin1Char('&')).remove(QLatin1Char(':'));
}

}  // namespace

QLineEdit* Add_Entry(QFormLayout& layout, const char* name, const QString& label) {
    auto* entry = new QLineEdit(layout.parentWidget());
    entry->setObjectName(QLatin1String(name));
    entry->setAccessibleName(Spoken(label));
    layout.addRow(label, entry);
    return entry;
}

QPushButton* Add_Button(QDialogButtonBox& box, const char* name, const QString& caption, int role) {
    QPushButton* button = box.addButton(caption, static_cast<QDialogButtonBox::ButtonRole>(role));
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(Spoken(caption));
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
