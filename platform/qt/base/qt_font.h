// Fonts between the core's type and Qt's.
#pragma once

#include "platform/text_view.h"

#include <QFont>
#include <QGuiApplication>

#include <algorithm>

// An empty name and a size of 0 are those of the desktop.
inline QFont MakeFont(const ViewFont& font) {
    constexpr double minSize = 1, maxSize = 1638; // points
    const QFont standard = QGuiApplication::font();
    QFont result(font.name.empty() ? standard.family() : QString::fromStdU16String(font.name));
    const double size = font.size > 0               ? font.size
                        : standard.pointSizeF() > 0 ? standard.pointSizeF()
                                                    : 10;
    result.setPointSizeF(std::clamp(size, minSize, maxSize));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethrough);
    return result;
}
