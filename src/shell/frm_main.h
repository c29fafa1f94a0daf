// frmMain: the frame of the program. It holds the menus, the welcome panel and the worksheet windows, and shows what
// the platform is told to show; what the menus do is in main_commands.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QStackedWidget>
#include <string_view>

#include "shell/form_windows.h"
#include "shell/help_scroller.h"
#include "shell/menu_bar.h"
#include "shell/welcome_panel.h"

namespace tallmar {

class JobGuard;

class FrmMain : public QMainWindow {
    Q_OBJECT

  public:
    // Input is shut out while the guard is on: the window then does nothing of its own accord.
    explicit FrmMain(const JobGuard& guard);

    FormWindows& Forms() const { return *forms_; }
    MenuBar& Menus() const { return *menus_; }
    QMdiArea& Area() const { return *area_; }

    // The menu refresh.
    void Refresh_Menus();
    // What the platform asks for by the names of the controls. Names that the window has not are passed over.
    void Set_Enabled(std::string_view control, bool enabled);
    void Set_Visible(std::string_view control, bool visible);
    void Set_Text(std::string_view control, const QString& text);
    // The text of txtCalcMsg; empty hides it.
    void Show_Progress(const QString& text);
    // A word on what was done, at the foot of the window until the next one; the count of the entries follows it.
    void Tell(const QString& what);

    // Reports that another program has changed are read again.
    void Look_For_Changes();

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
    void Set_Open(bool open);
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
    std::string reportPath_;   // that was told of
    QPointer<QWidget> focus_;  // where it was as the window was shut
};

}  // namespace tallmar
