#include "platform/qt/text_view/layout/pinned_fonts.h"

#include <QFontMetricsF>
#include <QSet>

std::vector<QFont> HeldFonts(const QFont& layoutFont,
                             const QList<QTextLayout::FormatRange>& formats) {
    std::vector<QFont> fonts;
    QSet<QFont> held;
    const auto hold = [&](const QFont& font) {
        if (held.contains(font)) return;
        held.insert(font);
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
