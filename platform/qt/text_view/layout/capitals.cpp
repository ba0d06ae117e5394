#include "platform/qt/text_view/layout/capitals.h"

#include "platform/qt/text_view/layout/style_runs.h"

namespace {
constexpr double smallSize = 0.8; // of the surrounding font size

// Single-unit uppercase only; `unit` itself if there is none.
QChar CapitalOf(QChar unit) {
    return QChar(unit.toUpper());
}

// The end of the run of units that change, or do not change, in upper case.
int EndOfSame(const QString& text, int from, int end, bool changes) {
    while (from < end && (CapitalOf(text[from]) != text[from]) == changes)
        ++from;
    return from;
}

QTextLayout::FormatRange Smaller(const QTextCharFormat& format, int start, int end) {
    QFont font = format.font();
    font.setPointSizeF(smallSize * font.pointSizeF());
    QTextCharFormat smaller = format;
    smaller.setFont(font);
    return {start, end - start, smaller};
}
} // namespace

bool HasCapital(QChar unit) {
    return CapitalOf(unit) != unit;
}

void ApplyCapitals(const LayoutContext& context, TextPos start, QString& text,
                   QList<QTextLayout::FormatRange>& formats) {
    const auto& runs = context.document.charRuns;
    const auto& styles = context.document.charStyles;
    const TextPos textEnd = start + TextPos(text.size());
    for (std::size_t i = RunAt(runs, start); i < runs.size() && runs[i].start < textEnd; ++i) {
        const auto style = std::min<std::size_t>(runs[i].style, styles.size() - 1);
        const Capitals capitals = styles[style].capitals;
        if (capitals == Capitals::AsWritten) continue;
        const TextPos runEnd = i + 1 < runs.size() ? std::min(textEnd, runs[i + 1].start) : textEnd;
        const int end = runEnd - start;
        for (int at = std::max(0, runs[i].start - start), next = 0; at < end; at = next) {
            const bool changes = CapitalOf(text[at]) != text[at];
            next = EndOfSame(text, at, end, changes);
            if (changes && capitals == Capitals::Small)
                formats.append(Smaller(context.formats.FormatAt(start + at), at, next));
            for (int each = at; each < next; ++each)
                text[each] = CapitalOf(text[each]);
        }
    }
}
