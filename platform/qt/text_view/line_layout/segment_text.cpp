#include "platform/qt/text_view/line_layout/segment_text.h"

#include "common/text_characters.h"
#include "common/text_words.h"
#include "common/unicode.h"

namespace {
constexpr char16_t zeroWidthSpace = 0x200B, wordJoiner = 0x2060;

bool IsMark(const QString& text, qsizetype at) {
    if (at >= text.size()) return false;
    const QStringView rest = QStringView(text).sliced(at);
    const char32_t character =
        FirstCharacter(std::u16string_view(rest.utf16(), std::size_t(rest.size())));
    const ClusterJoin join = ClusterJoinOf(character);
    return join == ClusterJoin::Extending || join == ClusterJoin::Joiner;
}

// QTextLayout takes half a pair for a part of its neighbour, in another font.
void ReplaceLoneSurrogates(QString& text) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!text[at].isSurrogate()) continue;
        const bool isPair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (isPair)
            ++at;
        else
            text[at] = QChar::ReplacementCharacter;
    }
}

bool IsGlue(char16_t unit) {
    return unit == wordJoiner || unit == u'\uFEFF';
}

// Fonts have boxes for them, or none of them, and another font would make the line higher.
void HideControls(QString& text) {
    for (QChar& unit : text)
        if (IsControlCode(unit.unicode()) && unit != QChar::Tabulation)
            unit = QChar(zeroWidthSpace);
}

// QTextLayout breaks lines after every space, even before a mark on it or a word joiner.
void KeepSpaces(QString& text) {
    constexpr char16_t firstMark = 0x300;
    for (qsizetype at = 1; at < text.size(); ++at) {
        if (text[at] < QChar(firstMark) || !IsBreakingSpace(text[at - 1].unicode())) continue;
        if (text[at] == QChar(wordJoiner) || IsMark(text, at)) text[at - 1] = QChar::Nbsp;
    }
}

// In front of a line separator it counts some spaces to the line and some not.
void HideSpacesBeforeBreaks(QString& text) {
    for (qsizetype end = text.indexOf(QChar::LineSeparator); end >= 0;
         end = text.indexOf(QChar::LineSeparator, end + 1))
        for (qsizetype at = end - 1; at >= 0 && IsBreakingSpace(text[at].unicode()); --at)
            text[at] = QChar(zeroWidthSpace);
}

// A hyphen that a line ends with is drawn, even where it breaks for a space or does not break.
void HideHyphensAtEnds(QString& text) {
    for (qsizetype at = text.size() - 1; at >= 0; --at) {
        if (text[at] != QChar::SoftHyphen) continue;
        const char16_t next = at + 1 < text.size() ? text[at + 1].unicode() : u'\u2028';
        const bool isSpace =
            next == zeroWidthSpace || next == u'\u2028' || next == u'\t' || IsBreakingSpace(next);
        if (isSpace || next == QChar::SoftHyphen || IsMark(text, at + 1))
            text[at] = QChar(zeroWidthSpace);
        else if (IsGlue(next))
            text[at] = QChar(wordJoiner);
    }
}
} // namespace

QString SegmentText(const ParagraphText& paragraph) {
    QString text = QStringView(paragraph.text).toString();
    ReplaceLoneSurrogates(text);
    HideControls(text);
    KeepSpaces(text);
    HideSpacesBeforeBreaks(text);
    HideHyphensAtEnds(text);
    for (const InlineBox& box : paragraph.boxes) {
        text[box.at] = boxPlaceholder;
        // Marks on it would be as wide as it is.
        for (qsizetype at = box.at + 1; IsMark(text, at); ++at)
            text[at] = QChar(zeroWidthSpace);
    }
    return text;
}
