// The program's UTF-8 texts and Qt's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tallmar {

inline QString Qt_Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string Plain_Text(const QString& text) {
    return text.toStdString();
}

}  // namespace tallmar
