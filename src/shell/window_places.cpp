#include "shell/window_places.h"

#include <QStringList>
#include <algorithm>

#include "common/platform.h"
#include "common/program.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr std::string_view kSection = "Windows";
constexpr int kNormalZoom = 100;

QString Read(std::string_view key, std::string_view otherwise = {}) {
    return Qt_Text(The_Platform().Get_Setting(kProgramTitle, kSection, key, otherwise));
}
void Write(std::string_view key, const QString& value) {
    The_Platform().Save_Setting(kProgramTitle, kSection, key, Plain_Text(value));
}

}  // namespace

// "left top", or "left top width height" where the person chose the size, too.
std::optional<FormPlace> Remembered_Place(std::string_view form) {
    const QStringList numbers = Read(form).split(' ');
    const bool hasSize = numbers.size() == 4;
    if (!hasSize && numbers.size() != 2) return std::nullopt;
    int values[4] = {};
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        values[i] = numbers[i].toInt(&isNumber);
        if (!isNumber) return std::nullopt;
    }
    FormPlace place{{values[0], values[1]}, std::nullopt};
    if (!hasSize) return place;
    place.size = QSize(values[2], values[3]);
    return place.size->isEmpty() ? std::nullopt : std::optional(place);
}

void Remember_Place(std::string_view form, const FormPlace& place) {
    QString text = QString("%1 %2").arg(place.at.x()).arg(place.at.y());
    if (place.size) text += QString(" %1 %2").arg(place.size->width()).arg(place.size->height());
    Write(form, text);
}

QRect Fit_Into(QRect place, QSize area) {
    place.setSize(place.size().boundedTo(area));
    place.moveLeft(std::clamp(place.left(), 0, area.width() - place.width()));
    place.moveTop(std::clamp(place.top(), 0, area.height() - place.height()));
    return place;
}

QByteArray Remembered_Geometry() {
    return QByteArray::fromBase64(Read("frmMain").toLatin1());
}
void Remember_Geometry(const QByteArray& geometry) {
    Write("frmMain", QString::fromLatin1(geometry.toBase64()));
}

int Remembered_Zoom() {
    bool isNumber = false;
    const int percent = Read("Zoom").toInt(&isNumber);
    return isNumber && percent > 0 ? percent : kNormalZoom;
}
void Remember_Zoom(int percent) {
    Write("Zoom", QString::number(percent));
}

bool Tabs_Remembered() {
    return Read("Tabbed", "False") == "True";
}
void Remember_Tabs(bool tabs) {
    Write("Tabbed", tabs ? "True" : "False");
}

}  // namespace tallmar
