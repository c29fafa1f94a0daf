// The worksheet windows inside the main window: how they are opened, found, calculated and closed.
#pragma once

#include <QMdiArea>
#include <QObject>
#include <QSet>
#include <string_view>
#include <vector>

#include "screens/view/worksheet_form.h"
#include "structure/edit_key.h"

class QMdiSubWindow;

namespace tallmar {

class GivenPlaces;

class FormWindows : public QObject {
    Q_OBJECT

  public:
    explicit FormWindows(QMdiArea* area);

    // One that is open is brought up. Where there is no form, or no table, a box says so. A view is opened when the
    // row under edit of its worksheet was stored.
    void Open_Worksheet_Form(FormMode mode, const Item& item);
    // Closing a view means that a cell is being changed: no ECR may be built any more, whether the form is open or not.
    void Close_Worksheet_Form(const Item& item, FormMode mode);
    // Null where it is not open.
    WorksheetForm* Find_Form(const Item& item, FormMode mode) const;
    // By the form's name ("frmEditCCs"), without regard to case.
    bool Form_Is_Loaded(std::string_view name) const;

    // Asks, and closes all but the forms named `but`. True when the user cancelled, or a row under edit was refused.
    bool Close_All_Forms(std::string_view but = {});
    // Closes without asking the forms whose name begins so: "FRMEDIT", "FRMVIEW"; empty: all. False where one stays,
    // since its row under edit was refused.
    bool Close_Form_Family(std::string_view beginning);
    // Stores the rows under edit of all forms. False where one was refused.
    bool Commit_Rows();
    // Reads all forms' rows again, keeping their places; a form whose worksheet is gone goes too.
    void Reload_All();
    // The views say whether their figures are older than the entries.
    void Show_Age();

    // The identity of the report was changed, `by` a form or by the identity editor: the other forms of Worksheet S-2
    // read their rows again, and every other form closes but the cost centers'.
    void Identity_Changed(const WorksheetForm* by = nullptr);
    // No report is open any more: there is nothing to store.
    void Drop_All();

    // cmdRecalculate: calculates the whole report. An edit form then gets its view.
    void Recalculate(WorksheetForm& form);

    // In the order of opening.
    std::vector<WorksheetForm*> Forms() const;
    // Null where no form is open.
    WorksheetForm* Active() const;
    // Of the active form where it fills the area, and no title bar or tab says its name; else empty.
    std::string Caption_Out_Of_Sight() const;
    void Activate(WorksheetForm& form);

    void Set_Zoom(int percent);
    int Zoom() const { return zoom_; }
    void Set_Tabs(bool tabs);
    void Cascade();
    void Tile();

  signals:
    // A form was opened, closed or brought up.
    void Changed();
    // What was stored or calculated, for the line at the foot of the window.
    void Stored(const QString& what);
    // Of the active form, maybe by another form that became active.
    void Selection_Changed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Connect(WorksheetForm& form);
    // What was stored in the form may have changed the identity of the report.
    void Follow_Identity(WorksheetForm& form);
    // A row of `by` may have made worksheets or removed some: codes make those of C Part II.
    void Worksheets_Changed(const WorksheetForm& by);
    // The next hit of a search of all worksheets: its form is opened, and the search goes on there.
    void Go_To_Found(const FoundCell& cell, const QString& text, FormMode mode);
    // cmdOpenView, cmdOpenEdit, cmdPrevious and cmdNext of the form.
    void Open_From(WorksheetForm& form, FormMode mode, const Item& item);
    // A neighbour of the form. One that the walk itself opened and the person left as it was is left behind closed.
    void Walk_To(WorksheetForm& form, const Item& item);
    void Put_In_Place(QMdiSubWindow& window, const WorksheetForm& form);
    void Remember(const QMdiSubWindow& window);
    QMdiSubWindow* Window_Of(const WorksheetForm& form) const;
    // The width at which nothing of the form is out of sight, as far as the area allows.
    int Whole_Width(const WorksheetForm& form) const;
    // A form that showed its whole width goes on to do so at another zoom.
    void Follow_Zoom(const WorksheetForm& form);
    void Drop(WorksheetForm& form);

    QMdiArea* area_;
    GivenPlaces* places_;
    QObject* closing_ = nullptr;  // the form whose window is being closed
    int zoom_ = 100;
    Identity identity_;            // as the open forms know it
    QSet<const QObject*> whole_;   // forms that showed their whole width before the zoom that is under way
    QSet<const QObject*> walked_;  // forms that cmdPrevious or cmdNext opened, and nobody has touched
};

}  // namespace tallmar
