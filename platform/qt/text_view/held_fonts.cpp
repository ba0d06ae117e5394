#include "platform/qt/text_view/held_fonts.h"

#include <QFontMetricsF>

std::vector<QFont> HeldFonts(const QFont& layoutFont,
                             const QList<QTextLayout::FormatRange>& formats) {
    std::vector<QFont> fonts;
    const auto hold = [&fonts](const QFont& font) {
        fonts.push_back(font);
        QFontMetricsF(font).ascent(); // loads it into what the copies share
    };
    for (const QTextLayout::FormatRange& range : formats) {
        QFont font = range.format.font().resolve(layoutFont);
        hold(font);
        if (range.format.verticalAlignment() == QTextCharFormat::AlignNormal) continue;
        font.setPointSize(font.pointSize() * 2 / 3); // as the layout does
        hold(font);
    }
    return fonts;
}
