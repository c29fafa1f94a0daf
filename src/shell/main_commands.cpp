#include "shell/main_commands.h"

#include <QFileInfo>
#include <algorithm>
#include <array>

#include "common/platform.h"
#include "report/open_report.h"
#include "report/paths.h"
#include "report/store.h"
#include "screens/report_jobs.h"
#include "screens/view/qt_text.h"
#include "shell/form_maker.h"
#include "shell/frm_backups.h"
#include "shell/frm_create_new_crf.h"
#include "shell/frm_crf_edit_key.h"
#include "shell/frm_go_to.h"
#include "shell/frm_header_lines.h"
#include "shell/frm_help_about.h"
#include "shell/frm_help_keys.h"
#include "shell/frm_main.h"
#include "shell/recent_files.h"
#include "shell/window_places.h"

namespace tallmar {

namespace {

constexpr std::string_view kEditForms = "FRMEDIT";
constexpr std::string_view kViewForms = "FRMVIEW";
constexpr int kZoomStep = 10;
constexpr int kNormalZoom = 100;

// ---- Report File

void New_Report(FrmMain& main) {
    if (The_Platform().Close_All_Forms()) return;
    if (!openReport.CRFPath.empty() && !Report_Close()) return;
    Show_Create_New_CRF(&main);
    The_Platform().Menus_Stale();
}

void Open_Report(FrmMain&) {
    Report_Open_Dialog();
}

void Open_Backup(FrmMain& main) {
    if (main.Forms().Commit_Rows()) Open_A_Backup(&main);
}

void Close_Report(FrmMain& main) {
    std::string trouble;
    if (!Report_Close(trouble)) return;
    main.Tell(trouble.empty() ? main.tr("Closed, compacted.")
                              : main.tr("Closed, not compacted: %1.").arg(Qt_Text(trouble)));
}

void Store_Rows(FrmMain& main) {
    if (main.Forms().Commit_Rows()) main.Tell(QStringLiteral("Everything is stored."));
}

// A row under edit goes into both: it was entered before the copy was asked for. One that cannot be stored goes into
// the copy, and a cancelled dialog stores nothing.
void Save_Report_As(FrmMain& main) {
    const auto path = Ask_Save_As_Path();
    if (!path || (!db.Is_Read_Only() && !main.Forms().Commit_Rows()) || !Report_Save_As(*path)) return;
    main.Tell(main.tr("Saved as %1.").arg(Qt_Text(openReport.CRFTitle)));
    main.Forms().Reload_All();
}

void Edit_Identity(FrmMain& main) {
    if (!main.Forms().Commit_Rows()) return;
    Show_CRF_Edit_Key(&main, [&main] { main.Forms().Identity_Changed(); });
}

void Calculate(FrmMain& main) {
    if (!main.Forms().Commit_Rows()) return;
    main.Menus().Set_Enabled("mnuReportCalculate", false);
    const bool calculated = Calculate_Report();
    main.Menus().Set_Enabled("mnuReportCalculate", true);
    main.Forms().Reload_All();
    main.Tell(calculated ? Qt_Text(openReport.entryAge.Calculation_Text()) : main.tr("Not calculated."));
}

constexpr std::string_view kQualityApplication = "Tallmar", kQualitySection = "Printing", kQualityKey = "PrintQuality";

bool Is_High_Quality() {
    return The_Platform().Get_Setting(kQualityApplication, kQualitySection, kQualityKey, "True") == "True";
}

void Swap_Print_Quality(FrmMain& main) {
    const bool high = !Is_High_Quality();
    The_Platform().Save_Setting(kQualityApplication, kQualitySection, kQualityKey, high ? "True" : "False");
    Show_Print_Quality(main);
}

void Header_Lines(FrmMain& main) {
    Show_Header_Lines(&main);
}

void Exit_Program(FrmMain& main) {
    main.close();
}

// ---- Edit and View

void Close_Edits(FrmMain& main) {
    main.Forms().Close_Form_Family(kEditForms);
}

void Close_Views(FrmMain& main) {
    if (!The_Platform().Close_All_Forms()) main.Forms().Close_Form_Family(kViewForms);
}

void Undo(FrmMain& main) {
    if (WorksheetForm* form = main.Forms().Active()) Undo_In(*form);
}

void Redo(FrmMain& main) {
    if (WorksheetForm* form = main.Forms().Active()) Redo_In(*form);
}

void Fill_Down(FrmMain& main) {
    if (WorksheetForm* form = main.Forms().Active()) Fill_Down_In(*form);
}

void Go_To(FrmMain& main) {
    const bool costCentersAreEdited = main.Forms().Form_Is_Loaded("frmEditCCs");
    const auto choice = Show_Go_To(&main, Worksheets_To_Open(Menu_State(costCentersAreEdited)));
    if (choice) main.Forms().Open_Worksheet_Form(choice->mode, choice->item);
}

void Copy(FrmMain& main) {
    if (const WorksheetForm* form = main.Forms().Active()) form->Grid().Copy();
}

void Copy_With_Heads(FrmMain& main) {
    if (const WorksheetForm* form = main.Forms().Active()) form->Grid().Copy(true);
}

void Paste(FrmMain& main) {
    if (WorksheetForm* form = main.Forms().Active()) Paste_Into(*form);
}

void Find(FrmMain& main) {
    if (WorksheetForm* form = main.Forms().Active()) form->Open_Find();
}

// ---- Window

void Swap_Tabs(FrmMain& main) {
    const bool tabs = main.Menus().Find("mnuWindowTabbed")->isChecked();
    Remember_Tabs(tabs);
    main.Forms().Set_Tabs(tabs);
}

void Cascade(FrmMain& main) {
    main.Forms().Cascade();
}

void Tile(FrmMain& main) {
    main.Forms().Tile();
}

void Next_Window(FrmMain& main) {
    main.Area().activateNextSubWindow();
}

void Previous_Window(FrmMain& main) {
    main.Area().activatePreviousSubWindow();
}

void Close_Window(FrmMain& main) {
    main.Area().closeActiveSubWindow();
}

void Zoom_In(FrmMain& main) {
    main.Forms().Set_Zoom(main.Forms().Zoom() + kZoomStep);
}

void Zoom_Out(FrmMain& main) {
    main.Forms().Set_Zoom(main.Forms().Zoom() - kZoomStep);
}

void Zoom_Normal(FrmMain& main) {
    main.Forms().Set_Zoom(kNormalZoom);
}

// ---- Documents and Help

std::string Program_Document(const char* name) {
    return The_Platform().Program_Folder() + name;
}

void Open_Program_Document(const char* name) {
    The_Platform().Open_Document(Program_Document(name));
}

void Part_1(FrmMain&) {
    Open_Program_Document("/P1339.DOCX");
}

void Bad_Debt_Log(FrmMain&) {
    Open_Program_Document("/BAD DEBT.DOCX");
}

constexpr const char* kInstructions = "/R17pr232.pdf";

void Keys(FrmMain& main) {
    Show_Help_Keys(&main);
}

// Whoever asks for help gets some.
void Instructions(FrmMain& main) {
    const QString document = Qt_Text(Native_Path(Program_Document(kInstructions)));
    if (QFileInfo(document).isFile()) return Open_Program_Document(kInstructions);
    Show_Help_Keys(&main, "The instructions of the form, " + document + ", are not there.  These are the keys:");
}

void About(FrmMain& main) {
    Show_Help_About(&main);
}

constexpr std::array kCommands{
    MainCommand{"mnuReportNew", New_Report},
    MainCommand{"mnuReportOpen", Open_Report},
    MainCommand{"mnuReportBackup", Open_Backup},
    MainCommand{"mnuReportClose", Close_Report},
    MainCommand{"mnuReportStore", Store_Rows},
    MainCommand{"mnuReportSaveAs", Save_Report_As},
    MainCommand{"mnuReportKey", Edit_Identity},
    MainCommand{"mnuReportCalculate", Calculate},
    MainCommand{"mnuReportUtilitiesHQ", Swap_Print_Quality},
    MainCommand{"mnuReportUtilitiesHeader", Header_Lines},
    MainCommand{"mnuReportExit", Exit_Program},
    MainCommand{"mnuEditClose", Close_Edits},
    MainCommand{"mnuEditUndo", Undo},
    MainCommand{"mnuEditRedo", Redo},
    MainCommand{"mnuEditCopy", Copy},
    MainCommand{"mnuEditCopyHeads", Copy_With_Heads},
    MainCommand{"mnuEditPaste", Paste},
    MainCommand{"mnuEditFillDown", Fill_Down},
    MainCommand{"mnuEditFind", Find},
    MainCommand{"mnuEditGoTo", Go_To},
    MainCommand{"mnuViewCloseAll", Close_Views},
    MainCommand{"mnuWindowTabbed", Swap_Tabs},
    MainCommand{"mnuWindowCascade", Cascade},
    MainCommand{"mnuWindowTile", Tile},
    MainCommand{"mnuWindowNext", Next_Window},
    MainCommand{"mnuWindowPrevious", Previous_Window},
    MainCommand{"mnuWindowClose", Close_Window},
    MainCommand{"mnuWindowZoomIn", Zoom_In},
    MainCommand{"mnuWindowZoomOut", Zoom_Out},
    MainCommand{"mnuWindowZoomNormal", Zoom_Normal},
    MainCommand{"mnu1", Part_1},
    MainCommand{"mnu2", Bad_Debt_Log},
    MainCommand{"mnuHelpInstructions", Instructions},
    MainCommand{"mnuHelpKeys", Keys},
    MainCommand{"mnuHelpAbout", About},
};

constexpr std::string_view kDropTitle = "Error: Not A Cost Report File";
constexpr const char* kDropText = "Drop one Cost Report File (*.CRF) at a time on the window to open it.";
constexpr std::string_view kGoneTitle = "Error: File Not Found";

}  // namespace

std::span<const MainCommand> Main_Commands() {
    return kCommands;
}

void Run_Command(FrmMain& main, std::string_view name) {
    const auto found = std::ranges::find(kCommands, name, &MainCommand::name);
    if (found != kCommands.end()) found->run(main);
}

void Connect_Commands(FrmMain& main) {
    FrmMain* window = &main;
    QObject::connect(window, &FrmMain::Command_Chosen, window,
                     [window](const QString& name) { Run_Command(*window, Plain_Text(name)); });
    QObject::connect(window, &FrmMain::Recent_File_Chosen, window,
                     [window](const QString& path) { Open_Recent(*window, Plain_Text(path)); });
    QObject::connect(window, &FrmMain::Files_Dropped, window,
                     [window](const QList<QUrl>& urls) { Open_Dropped(*window, urls); });
    Show_Print_Quality(main);
}

void Open_Recent(FrmMain&, const std::string& path) {
    if (QFileInfo::exists(Qt_Text(path))) {
        Report_Open(path);
        return;
    }
    The_Platform().Message_Box("The file " + path + " is not there any more.  It is taken off the list.", kExclamation,
                               kGoneTitle);
    Remove_Recent_File(path);
    The_Platform().Menus_Stale();
}

void Open_Dropped(FrmMain&, const QList<QUrl>& urls) {
    const QString path = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
    if (path.endsWith(".CRF", Qt::CaseInsensitive) && QFileInfo(path).isFile()) {
        Report_Open(Plain_Text(path));
    } else {
        The_Platform().Message_Box(kDropText, kExclamation, kDropTitle);
    }
}

void Show_Print_Quality(FrmMain& main) {
    main.Menus()
        .Find("mnuReportUtilitiesHQ")
        ->setText(Is_High_Quality() ? "Turn High Quality Printing Off" : "Turn High Quality Printing On");
}

}  // namespace tallmar
