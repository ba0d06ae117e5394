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
