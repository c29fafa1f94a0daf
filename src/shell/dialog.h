// What the dialogs share: how they are made, named and shown.
#pragma once

#include <QDialog>
#include <QString>
#include <memory>

class QDialogButtonBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace tallmar {

// Owned by the caller; `parent` is the window under it.
using DialogPtr = std::unique_ptr<QDialog>;

// The name of its form and its caption, without the "?" of some desktops.
void Set_Up_Dialog(QDialog& dialog, const char* name, const QString& caption);
// A dialog narrower than this would cut its caption.
int Caption_Width(const QWidget& dialog);
DialogPtr Make_Dialog(const char* name, const QString& caption, QWidget* parent);
// A row of the layout: an entry by its control's name, and the label before it with its access key.
QLineEdit* Add_Entry(QFormLayout& layout, const char* name, const QString& label);
// A button of the box: its control's name, and the caption with its access key.
QPushButton* Add_Button(QDialogButtonBox& box, const char* name, const QString& caption, int role);
// Shows it over its parent until it is accepted or rejected; a job that hides it meanwhile does not end it. True when
// it was accepted.
bool Run_Modal(QDialog& dialog);

}  // namespace tallmar
