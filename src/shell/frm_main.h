// frmMain: the frame of the program. It holds the menus, the welcome panel and the worksheet windows, and shows what
// the platform is asked to show; what the menus do is connected to its signals.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QStackedWidget>
#include <QUrl>
#include <string>

#include "common/platform.h"
#include "shell/form_windows.h"
#include "shell/help_scroller.h"
#include "shell/menu_bar.h"
#include "shell/welcome_panel.h"

namespace tallmar {

class JobGuard;

class FrmMain : public QMainWindow {
    Q_OBJECT

  public:
    // Input is kept out while the guard is on: the window then does nothing of its own accord.
    explicit FrmMain(const JobGuard& guard);

    FormWindows& Forms() const { return *forms_; }
    MenuBar& Menus() const { return *menus_; }
    QMdiArea& Area() const { return *area_; }

    // The menu refresh.
    void Refresh_Menus();
    // Shows what happened to the report.
    void Follow(ReportEvent event);
    void Set_Busy(bool busy);
    // The title of the window, which the worksheet windows leave as it is.
    void Set_Caption(const QString& caption);
    // The welcome panel in place of the worksheet windows, or these.
    void Show_Welcome(bool on);
    // The text of txtCalcMsg; empty hides it.
    void Show_Progress(const QString& text);
    // A word on what was done, at the foot of the window until the next one; the count of the entries follows it.
    void Tell(const QString& what);

    // Reports that another program has changed are read again.
    void Look_For_Changes();

  signals:
    // The name of an entry of the menus or of a button of the welcome panel.
    void Command_Chosen(const QString& name);
    void Recent_File_Chosen(const QString& path);
    void Files_Dropped(const QList<QUrl>& urls);

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    QSize First_Size() const;
    void Lay_Out();
    void Draw();
    // By the path of the open report: the caption, and the line below the menus.
    void Show_Name();
    // The line below the menus.
    void Show_Head(bool on);
    void Place_Help();
    void Forms_Changed();
    // How old the figures are, at the foot of the window and in the views.
    void Show_Age();
    // Sum and count of the cells that are selected in the active form.
    void Show_Selection();
    // A word on the report that was opened since the last time.
    void Tell_Of_Report();
    void Fill_Window_List();
    void Fill_Recent_Files();

    const JobGuard& guard_;
    QStackedWidget* pages_;
    WelcomePanel* welcome_;
    QMdiArea* area_;
    QWidget* head_;
    QLabel* picLogo_;
    QLabel* lblCRFName_;
    QLabel* lblForm_;
    QLabel* lblSelection_;
    QLabel* lblEntries_;
    QLabel* txtCalcMsg_;
    HelpScroller* help_;
    FormWindows* forms_;
    MenuBar* menus_;
    QString caption_;
    QString told_;
    std::string reportPath_;   // as shown
    QPointer<QWidget> focus_;  // where it was as the window became busy
};

}  // namespace tallmar
