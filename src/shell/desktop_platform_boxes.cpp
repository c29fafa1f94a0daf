#include "shell/desktop_platform_boxes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>
#include <array>

#include "common/text.h"
#include "report/paths.h"
#include "screens/view/qt_text.h"
#include "shell/dialog.h"

namespace tallmar {

namespace {

constexpr int kButtonMask = 7;

struct ButtonsRow {
    int buttons;
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton first, second;  // in the order in which a default is numbered
};
constexpr std::array kButtonsRows{
    ButtonsRow{kOkOnly, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    ButtonsRow{kOkCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel},
    ButtonsRow{kYesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
               QMessageBox::No},
    ButtonsRow{kYesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No},
};

struct IconRow {
    int bits;
    QMessageBox::Icon icon;
};
// In this order: the exclamation icon holds the bits of the two before it.
constexpr std::array kIconRows{
    IconRow{kInformation, QMessageBox::Information},
    IconRow{kExclamation, QMessageBox::Warning},
    IconRow{kQuestion, QMessageBox::Question},
    IconRow{kStop, QMessageBox::Critical},
};

struct AnswerRow {
    int button;
    Answer answer;
};
constexpr std::array kAnswerRows{
    AnswerRow{QMessageBox::Ok, Answer::Ok},
    AnswerRow{QMessageBox::Cancel, Answer::Cancel},
    AnswerRow{QMessageBox::Yes, Answer::Yes},
    AnswerRow{QMessageBox::No, Answer::No},
};

const ButtonsRow& Buttons_Row(int buttons) {
    for (const ButtonsRow& row : kButtonsRows) {
        if (row.buttons == (buttons & kButtonMask)) return row;
    }
    return kButtonsRows.front();
}

QMessageBox::Icon Icon_Of(int buttons) {
    for (const IconRow& row : kIconRows) {
        if ((buttons & row.bits) == row.bits) return row.icon;
    }
    return QMessageBox::NoIcon;
}

// Lines end with a line feed here.
QString Box_Text(std::string_view prompt) {
    return Qt_Text(Replace(Replace(prompt, "\r\n", "\n"), "\r", "\n"));
}

// The folder of a dialog that names none that exists.
QString Start_Folder(const std::string& folder) {
    const QString native = Qt_Text(Native_Path(folder));
    return QFileInfo(native).isDir() ? native : QDir::homePath();
}

}  // namespace

Answer Show_Message_Box(QWidget* parent, std::string_view prompt, int buttons, std::string_view title) {
    const ButtonsRow& row = Buttons_Row(buttons);
    QMessageBox box(Icon_Of(buttons), Qt_Text(title), Box_Text(prompt), row.shown, parent);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A message box takes no width but that of what it holds.
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    auto* strut = new QSpacerItem(Caption_Width(box), 0, QSizePolicy::Minimum);
    grid->addItem(strut, grid->rowCount(), 0, 1, grid->columnCount());
    box.setDefaultButton((buttons & kDefaultButton2) != 0 ? row.second : row.first);
    const int pressed = box.exec();
    for (const AnswerRow& answer : kAnswerRows) {
        if (answer.button == pressed) return answer.answer;
    }
    return Answer::None;
}

std::string Desktop_Filter(std::string_view filter) {
    const std::size_t bar = filter.find('|');
    if (bar == filter.npos) return std::string(filter);
    const std::string_view pattern = filter.substr(bar + 1);
    const std::string_view name = Trim(filter.substr(0, filter.find('(')));
    return std::string(name) + " (" + std::string(pattern) + " " + To_Lower(pattern) + ")";
}

std::optional<std::string> Show_File_Dialog(QWidget* parent, FileDialogKind kind, const FileDialog& dialog) {
    QFileDialog chooser(parent, Qt_Text(dialog.title), Start_Folder(dialog.directory),
                        Qt_Text(Desktop_Filter(dialog.filter)));
    chooser.setObjectName("cdlMain");
    const bool saves = kind == FileDialogKind::Save;
    chooser.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    chooser.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    chooser.setDefaultSuffix(Qt_Text(Replace(dialog.defaultExtension, ".", "")));
    // A name with a pattern in it only says which files are looked for.
    if (dialog.fileName.find('*') == std::string::npos) {
        chooser.selectFile(Qt_Text(File_Title_Of(dialog.fileName)));
    }
    if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) return std::nullopt;
    return Plain_Text(chooser.selectedFiles().constFirst());
}

}  // namespace tallmar
