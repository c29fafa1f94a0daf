// The hands and eyes of the tour: works the real main window by its menus, keys and boxes, and takes pictures of the
// screen. Whatever is not found ends the tour with a message.
#pragma once

#include <QString>
#include <chrono>
#include <string_view>

#include "common/currency.h"
#include "shell/frm_main.h"

namespace tallmar {

class Desk {
  public:
    // `samples` is the folder of the reports that the tour opens.
    Desk(FrmMain& main, QString samples) : main_(main), samples_(std::move(samples)) {}

    // Through mnuReportOpen and its dialog.
    void Open_Report(std::string_view name);
    // The menu entry by its name. Comes back when its box or dialog has been left.
    void Trigger(std::string_view name);
    // The entry of the worksheet below mnuEditOpen or mnuViewOpen: its own, or that of a list.
    void Open_Form(FormMode mode, std::string_view item);
    // Lets the menu with this name down.
    void Drop_Menu(std::string_view name);

    // The form in front.
    WorksheetForm& Form() const;
    void Go_To(Currency line, std::string_view field) const;
    // Keys to whatever has the focus.
    void Type(std::string_view text) const;
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void Click(std::string_view button) const;
    // The dialog or box on top, or the pop-up; null where there is none.
    QWidget* On_Top() const;
    // Takes a text into a field of the dialog on top.
    void Fill(std::string_view field, std::string_view text) const;
    // Lets the program be.
    void Rest(std::chrono::milliseconds time);
    // The desk rests, or answers a dialog that no station shows.
    bool Busy() const { return busy_; }

    // False where the screen is of one colour or the file cannot be written.
    bool Take_Picture(const QString& path) const;

  private:
    QWidget& Focus() const;

    FrmMain& main_;
    QString samples_;
    bool busy_ = false;
};

// Ends the program with 1.
[[noreturn]] void Tour_Failed(const QString& why);

}  // namespace tallmar
