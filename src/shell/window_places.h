// Where windows were last, kept in the settings by the name of the form.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QSize>
#include <optional>
#include <string_view>

namespace tallmar {

struct FormPlace {
    QPoint at;
    std::optional<QSize> size;  // none: the form's own
};
std::optional<FormPlace> Remembered_Place(std::string_view form);
void Remember_Place(std::string_view form, const FormPlace& place);
// Moved and, where it must be, made smaller, so that all of it is inside the area.
QRect Fit_Into(QRect place, QSize area);

// The main window's own geometry, in the form that its toolkit gives it.
QByteArray Remembered_Geometry();
void Remember_Geometry(const QByteArray& geometry);

// The zoom of all worksheet forms in percent.
int Remembered_Zoom();
void Remember_Zoom(int percent);

bool Tabs_Remembered();
void Remember_Tabs(bool tabs);

}  // namespace tallmar
