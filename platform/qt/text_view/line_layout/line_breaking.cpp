#include "platform/qt/text_view/line_layout/line_breaking.h"

#include "platform/qt/text_view/line_layout/line_edges.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"

#include <algorithm>

namespace {
// Lines with spaces between words only. A line before a line break keeps its width, and so does a
// line with a tab, where text would leave its column.
bool IsJustifiedLine(const QString& text, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return false;
    const QStringView words =
        QStringView(text).sliced(line.textStart(), line.textLength()).trimmed();
    return words.contains(u' ') && !words.contains(u'\t');
}

// Sets another width unless the line would then break elsewhere.
bool ChangeWidth(QTextLine& line, double width) {
    const double before = line.width();
    const int length = line.textLength();
    line.setLineWidth(width);
    if (line.textLength() == length) return true;
    line.setLineWidth(before);
    return false;
}

// As narrow as the width, or as near to it as the ink of the last letter allows: a justified line
// is stretched to all of its width.
bool Shrink(QTextLine& line, double width, double maxInk) {
    constexpr double step = 0.5;
    const int steps = int(maxInk / step);
    for (int i = 0; i <= steps; ++i)
        if (ChangeWidth(line, width + i * step)) return true;
    return false;
}

// A word, or all there is: its width may be the one that was measured.
bool IsUnbroken(const QString& text, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return true;
    return !QStringView(text).sliced(line.textStart(), line.textLength()).trimmed().contains(u' ');
}

bool EndsWithinCharacter(const QTextLayout& text, const QTextLine& line) {
    return !IsCharacterStart(text, line.textStart() + line.textLength());
}

// Where a line has no room for a word, it may be broken within a character of several scripts or
// fonts, where Qt 6.4 even sees an end of a word: the line would then grow by all the next word.
void KeepCharacter(QTextLayout& text, QTextLine& line) {
    if (!EndsWithinCharacter(text, line)) return;
    constexpr int maxSteps = 64;
    QTextOption ways[] = {text.textOption(), text.textOption()};
    ways[1].setWrapMode(QTextOption::WrapAnywhere);
    const double step = std::max(1.0, line.height() / 8), before = line.width();
    for (int i = 2; i <= 2 * maxSteps && EndsWithinCharacter(text, line); ++i) {
        text.setTextOption(ways[i % 2]);
        line.setLineWidth(before + i / 2 * step);
    }
    text.setTextOption(ways[0]);
    if (EndsWithinCharacter(text, line)) line.setLineWidth(before); // as for thousands of marks
}

void BreakByAdvances(const ParagraphText& paragraph, const QTextLayout& text, QTextLine& line,
                     int width) {
    const auto& style = static_cast<const QtStyle&>(*paragraph.runs.front().style);
    const double room = width / (1 + style.cutOff);
    line.setLineWidth(width + style.maxInk);
    constexpr int maxWords = 4; // in the room for ink
    for (int i = 0; i < maxWords; ++i) {
        const double advance = line.horizontalAdvance();
        if (advance <= (IsUnbroken(text.text(), line) ? width : room)) break;
        line.setLineWidth(i + 1 < maxWords ? std::max(1.0, advance - 1.0 / 32) : width);
    }
    // The next word may fit into the whole width by Qt's own count; a line that is a little
    // narrower is stretched all the same.
    for (const double less : {0.0, width - room, 1.0, 2.0, 3.0})
        if (ChangeWidth(line, width - less)) return;
    if (!Shrink(line, width, style.maxInk)) ChangeWidth(line, line.naturalTextWidth());
}

// As long as it is not broken again, a stretched line remains so, whatever the layout's alignment:
// with another one, the others of its paragraph remain as they are.
void Stretch(QTextLayout& text, const QTextLine& line) {
    const QTextOption own = text.textOption();
    QTextOption justify = own;
    justify.setAlignment(Qt::AlignJustify);
    text.setTextOption(justify);
    line.naturalTextRect();
    text.setTextOption(own);
}
} // namespace

bool GoesByAdvances(const ParagraphText& paragraph) {
    return static_cast<const QtStyle&>(*paragraph.runs.front().style).exactSize &&
           !paragraph.rightToLeft;
}

bool EndsWith(const QString& text, const QTextLine& line, QChar unit) {
    const int end = line.textStart() + line.textLength();
    return end > 0 && text[end - 1] == unit;
}

bool BreakLine(const ParagraphText& paragraph, QTextLayout& text, QTextLine& line, int width,
               bool byAdvances) {
    if (byAdvances)
        BreakByAdvances(paragraph, text, line, width);
    else
        line.setLineWidth(width);
    KeepCharacter(text, line);
    const bool stretched = paragraph.justified && IsJustifiedLine(text.text(), line);
    constexpr double rounding = 0.5;
    if (!stretched || line.horizontalAdvance() > width + rounding) return false;
    if (EndsWith(text.text(), line, u'\t')) return false;
    const double spaces = paragraph.rightToLeft ? TrailingSpacesWidth(text, line) : 0;
    if (spaces > 0 && !ChangeWidth(line, line.width() + spaces)) return false;
    Stretch(text, line);
    return true;
}
