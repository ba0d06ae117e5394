// Colours between the core's type and Qt's.
#pragma once

#include "common/geometry.h"

#include <QColor>

inline QColor ToQColor(Color color) {
    return QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

inline Color FromQColor(const QColor& color) {
    return Color(color.blue()) << 16 | Color(color.green()) << 8 | Color(color.red());
}

// Black or white, whichever is more legible on `background`.
inline QColor LegibleOn(const QColor& background) {
    return qGray(background.rgb()) < 128 ? Qt::white : Qt::black;
}

// Whether text in one of the colours is legible on the other.
inline bool HasContrast(const QColor& a, const QColor& b) {
    return qAbs(qGray(a.rgb()) - qGray(b.rgb())) >= 80;
}
