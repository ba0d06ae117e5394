#include "platform/qt/text_view/line_layout/pinned_fonts.h"

#include <QFontMetricsF>

#include <unordered_set>

std::size_t FontHash::operator()(const QFont& font) const {
    return qHashMulti(0, font.pointSizeF(), font.letterSpacing(), font.weight(), font.italic(),
                      font.family());
}

std::vector<QFont> PinFonts(const QFont& layoutFont,
                            const QList<QTextLayout::FormatRange>& formats) {
    std::vector<QFont> fonts;
    std::unordered_set<QFont, FontHash> known;
    const auto pin = [&](const QFont& font) {
        if (!known.insert(font).second) return;
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
