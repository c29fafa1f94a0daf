#include "shell/desktop_platform.h"

#include <QApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>
#include <cstdlib>

#include "common/dates.h"
#include "common/program.h"
#include "report/paths.h"
#include "screens/view/qt_text.h"
#include "shell/desktop_platform_boxes.h"
#include "shell/frm_batch_msgs.h"
#include "shell/frm_create_new_crf.h"
#include "shell/frm_main.h"

namespace tallmar {

namespace {

Date Present() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate day = now.date();
    const QTime time = now.time();
    return Date_Of(CivilDate{day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second()});
}

// The command line keeps its data in the same folder. A relative path in the environment does not count.
std::string User_Folder(QStandardPaths::StandardLocation location, const char* belowHome) {
    QString folder = QStandardPaths::writableLocation(location);
    if (QDir::isRelativePath(folder)) folder = QDir::homePath() + belowHome;
    return Plain_Text(folder + '/' + Qt_Text(kProgramTitle));
}

// The home folder where there is none for documents.
std::string User_Documents() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return Plain_Text(QFileInfo(folder).isDir() ? folder : QDir::homePath());
}

QString Settings_File(const std::string& folder, std::string_view application) {
    return Qt_Text(folder) + '/' + Qt_Text(application) + ".ini";
}

QString Settings_Key(std::string_view section, std::string_view key) {
    return Qt_Text(section) + '/' + Qt_Text(key);
}

// The window under a box.
QWidget* Window_In_Front(FrmMain* main) {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return main != nullptr && main->isVisible() ? main : nullptr;
}

}  // namespace

DesktopPlaces User_Places() {
    return {User_Folder(QStandardPaths::GenericConfigLocation, "/.config"),
            User_Folder(QStandardPaths::GenericDataLocation, "/.local/share"),
            Plain_Text(QCoreApplication::applicationDirPath()),
            Present,
            [](const std::string& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(Qt_Text(path))); },
            User_Documents()};
}

DesktopPlatform::DesktopPlatform(DesktopPlaces places) : places_(std::move(places)), before_(Install_Platform(this)) {}

DesktopPlatform::~DesktopPlatform() {
    Hourglass(false);
    Install_Platform(before_);
}

void DesktopPlatform::Attach(FrmMain* main) {
    main_ = main;
}

template <class Show>
auto DesktopPlatform::In_Front(Show show) {
    const JobGuard::Pause pause(guard_);
    struct Pointer {
        bool waits = QApplication::overrideCursor() != nullptr;
        Pointer() {
            if (waits) QApplication::changeOverrideCursor(Qt::ArrowCursor);
        }
        ~Pointer() {
            if (waits && QApplication::overrideCursor() != nullptr) {
                QApplication::changeOverrideCursor(Qt::WaitCursor);
            }
        }
    } const pointer;
    return show(Window_In_Front(main_));
}

Answer DesktopPlatform::Message_Box(std::string_view prompt, int buttons, std::string_view title) {
    return In_Front([&](QWidget* parent) { return Show_Message_Box(parent, prompt, buttons, title); });
}

void DesktopPlatform::Beep() {
    QApplication::beep();
}

std::optional<std::string> DesktopPlatform::Open_File(const FileDialog& dialog) {
    return In_Front([&](QWidget* parent) { return Show_File_Dialog(parent, FileDialogKind::Open, dialog); });
}

std::optional<std::string> DesktopPlatform::Save_File(const FileDialog& dialog) {
    return In_Front([&](QWidget* parent) { return Show_File_Dialog(parent, FileDialogKind::Save, dialog); });
}

void DesktopPlatform::Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) {
    In_Front([&](QWidget* parent) { Show_Batch_Msgs(parent, title, rows); });
}

void DesktopPlatform::Hourglass(bool on) {
    if (on == guard_.Is_On()) return;
    if (on) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        guard_.Turn_On();
    } else {
        guard_.Turn_Off();
        QApplication::restoreOverrideCursor();
    }
}

void DesktopPlatform::Progress(std::string_view text) {
    if (main_ == nullptr) return;
    main_->Show_Progress(Qt_Text(text));
    // Outside a job events could start another one.
    if (guard_.Is_On()) Do_Events();
}

void DesktopPlatform::Do_Events() {
    QCoreApplication::processEvents();
}

std::string DesktopPlatform::Get_Setting(std::string_view application, std::string_view section, std::string_view key,
                                         std::string_view otherwise) {
    const QSettings settings(Settings_File(places_.settingsFolder, application), QSettings::IniFormat);
    return Plain_Text(settings.value(Settings_Key(section, key), Qt_Text(otherwise)).toString());
}

void DesktopPlatform::Save_Setting(std::string_view application, std::string_view section, std::string_view key,
                                   std::string_view value) {
    QSettings settings(Settings_File(places_.settingsFolder, application), QSettings::IniFormat);
    settings.setValue(Settings_Key(section, key), Qt_Text(value));
}

void DesktopPlatform::Notify(ReportEvent event) {
    if (event == ReportEvent::Making) Hide_Create_New_CRF();
    if (main_ != nullptr) main_->Follow(event);
}

void DesktopPlatform::Busy(bool on) {
    if (main_ != nullptr) main_->Set_Busy(on);
}

bool DesktopPlatform::Close_All_Forms(std::string_view but) {
    return main_ != nullptr && main_->Forms().Close_All_Forms(but);
}

void DesktopPlatform::Menus_Stale() {
    if (main_ != nullptr) main_->Refresh_Menus();
}

void DesktopPlatform::Open_Document(std::string_view path) {
    const std::string file = Native_Path(path);
    if (!QFileInfo(Qt_Text(file)).isFile()) {
        Message_Box("The document " + file + " is not there.", kExclamation, "Error: Document Not Found");
    } else if (!places_.open(file)) {
        Message_Box("There is no program that opens the document " + file + ".", kExclamation,
                    "Error: Document Not Opened");
    }
}

void DesktopPlatform::End_Program() {
    std::_Exit(1);
}

}  // namespace tallmar
