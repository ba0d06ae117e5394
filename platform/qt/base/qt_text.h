// Text between the core's type and Qt's.
#pragma once

#include <QString>

#include <string>
#include <string_view>

inline QString ToQt(std::u16string_view text) {
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

inline std::u16string FromQt(const QString& text) {
    return text.toStdU16String();
}
