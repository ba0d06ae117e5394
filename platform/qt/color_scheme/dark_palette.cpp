#include "platform/qt/color_scheme/dark_palette.h"

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

// Windows and buttons give the shades that frames are drawn in.
QPalette DarkPalette() {
    const QColor window(0x2B2B2B), button(0x3A3A3A), base(0x1E1E1E), text(0xEEEEEE);
    const QColor accent(0x2F6FB7), link(0x7AB8FF), visited(0xC9A2FF), greyed(0x868686);
    QPalette palette(button, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::BrightText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::PlaceholderText, greyed);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, link);
    palette.setColor(QPalette::LinkVisited, visited);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, greyed);
    palette.setColor(QPalette::Disabled, QPalette::Base, window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, greyed);
    return palette;
}
