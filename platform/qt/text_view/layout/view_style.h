// How the text is to be shown: properties of the view, so that a change costs one screen, not one
// book.
#pragma once

#include "platform/text_view.h"

#include <QColor>

#include <optional>

struct ViewLook {
    ViewFont font;
    bool fontForAll = false; // over what the file says
    bool autoColor = false;
    Color textColor = 0x000000, backColor = 0xFFFFFF;
    std::optional<Alignment> alignment; // none: what the file says
    int rightMargin = 0;                // twips, 0 wraps at the view's edge
};

inline QColor ToQColor(Color color) {
    return QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

inline Color FromQColor(const QColor& color) {
    return Color(color.blue()) << 16 | Color(color.green()) << 8 | Color(color.red());
}

// Black or white, whichever is easier to read on `background`.
inline QColor ReadableOn(const QColor& background) {
    return qGray(background.rgb()) < 128 ? Qt::white : Qt::black;
}

// Whether a text in one of the colours can be read on the other.
inline bool Contrast(const QColor& a, const QColor& b) {
    return qAbs(qGray(a.rgb()) - qGray(b.rgb())) >= 80;
}
