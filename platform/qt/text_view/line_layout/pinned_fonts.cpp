#include "platform/qt/text_view/line_layout/pinned_fonts.h"

#include <QFontMetricsF>
#include <QSet>

std::vector<QFont> PinFonts(const QFont& layoutFont,
                            const QList<QTextLayout::FormatRange>& formats) {
    std::vector<QFont> fonts;
    QSet<QFont> known;
    const auto pin = [&](const QFont& font) {
        if (known.contains(font)) return;
        known.insert(font);
        fonts.push_back(font);
        QFontMetricsF(font).ascent(); // loads the engine, which copies of the font share
    };
    for (const QTextLayout::FormatRange& range : formats) {
        QFont font = range.format.font().resolve(layoutFont);
        pin(font);
        if (range.format.verticalAlignment() == QTextCharFormat::AlignNormal) continue;
        font.setPointSize(font.pointSize() * 2 / 3); // as QTextLayout does for sub- and superscript
        pin(font);
    }
    return fonts;
}
