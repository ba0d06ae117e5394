// What every document must keep to, and whether two show the same. For unit tests and fuzzers.
#pragma once

#include "formats/document.h"

#include <algorithm>
#include <string>

namespace document_check {

inline bool RunsAreSound(const std::vector<StyleRun>& runs, std::size_t styleCount, TextPos size) {
    if (runs.empty() || runs.front().start != 0) return false;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (runs[i].style >= styleCount) return false;
        if (i == 0) continue;
        if (runs[i].start <= runs[i - 1].start || runs[i].start >= size) return false;
        if (runs[i].style == runs[i - 1].style) return false;
    }
    return true;
}

inline bool TextIsSound(const std::u16string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        const bool isAllowedControl = c == u'\t' || c == u'\n' || c == u'\v' || c == u'\a';
        if (c < 0x20 && !isAllowedControl) return false;
        const bool hasLow = i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if ((c & 0xFC00) == 0xD800 && !hasLow) return false;
        const bool followsHigh = i > 0 && (text[i - 1] & 0xFC00) == 0xD800;
        if ((c & 0xFC00) == 0xDC00 && !followsHigh) return false;
    }
    return true;
}

inline bool StylesAreSound(const Document& document) {
    const auto isSound = [&](const CharStyle& style) {
        return style.font < document.fonts.size() && style.link <= document.links.size() &&
               style.halfPoints > 0;
    };
    const auto hasOrder = [](const ParagraphStyle& style) {
        const auto& stops = style.tabStops;
        return std::adjacent_find(stops.begin(), stops.end(),
                                  [](const TabStop& a, const TabStop& b) {
                                      return a.position >= b.position;
                                  }) == stops.end();
    };
    return std::all_of(document.charStyles.begin(), document.charStyles.end(), isSound) &&
           std::all_of(document.paragraphStyles.begin(), document.paragraphStyles.end(), hasOrder);
}

inline bool PicturesAreSound(const Document& document) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < document.text.size(); ++i) {
        if (document.text[i] != u'\uFFFC') continue;
        if (found == document.pictures.size()) return false;
        const Picture& picture = document.pictures[found++];
        if (picture.position != static_cast<TextPos>(i)) return false;
        if (picture.bytes.empty() != (picture.format == PictureFormat::Other)) return false;
        if (picture.widthTwips < 0 || picture.heightTwips < 0) return false;
    }
    return found == document.pictures.size();
}

inline bool RowIsSound(const TableRow& row, const std::u16string& text) {
    if (row.cells.empty() || row.cells.front().start != row.start) return false;
    if (row.end != row.cells.back().end + 1 || text[row.end - 1] != u'\n') return false;
    TextPos start = row.start;
    std::int32_t left = 0;
    for (const TableCell& cell : row.cells) {
        if (cell.start != start || cell.end <= start || text[cell.end - 1] != u'\a') return false;
        if (cell.rightEdge < left || cell.columnSpan < 1) return false;
        start = cell.end;
        left = cell.rightEdge;
    }
    return row.cellGap >= 0;
}

// Rows ascend, lie inside the text and hold all the U+0007 that there are.
inline bool RowsAreSound(const Document& document) {
    TextPos last = 0;
    std::ptrdiff_t cellEnds = 0;
    for (const TableRow& row : document.rows) {
        const bool isInside = row.start >= last && row.end > row.start &&
                              row.end <= static_cast<TextPos>(document.text.size());
        if (!isInside || !RowIsSound(row, document.text)) return false;
        last = row.end;
        cellEnds += static_cast<std::ptrdiff_t>(row.cells.size());
    }
    return cellEnds == std::count(document.text.begin(), document.text.end(), u'\a');
}

// What is wrong with a document, "" when nothing is.
inline std::string FirstFault(const Document& document) {
    const auto size = static_cast<TextPos>(document.text.size());
    if (document.fonts.empty() || document.charStyles.empty() || document.paragraphStyles.empty())
        return "no defaults";
    if (!TextIsSound(document.text)) return "text";
    if (!RunsAreSound(document.charRuns, document.charStyles.size(), size)) return "char runs";
    if (!RunsAreSound(document.paragraphRuns, document.paragraphStyles.size(), size))
        return "paragraph runs";
    if (!StylesAreSound(document)) return "styles";
    if (!PicturesAreSound(document)) return "pictures";
    if (!RowsAreSound(document)) return "rows";
    return document.defaultTab > 0 ? "" : "default tab";
}

inline std::uint32_t StyleAt(const std::vector<StyleRun>& runs, TextPos position) {
    const auto after =
        std::upper_bound(runs.begin(), runs.end(), position,
                         [](TextPos p, const StyleRun& run) { return p < run.start; });
    return std::prev(after)->style;
}

inline const ParagraphStyle& ParagraphStyleAt(const Document& document, TextPos position) {
    return document.paragraphStyles[StyleAt(document.paragraphRuns, position)];
}

inline const CharStyle& CharStyleAt(const Document& document, TextPos position) {
    return document.charStyles[StyleAt(document.charRuns, position)];
}

inline std::u16string LinkAt(const Document& document, TextPos position) {
    const std::uint16_t link = CharStyleAt(document, position).link;
    return link == 0 ? u"" : document.links[link - 1u];
}

// Indexes differ between documents that look alike, fonts and links do not.
inline bool LooksSameAt(const Document& a, const Document& b, TextPos position) {
    CharStyle left = CharStyleAt(a, position), right = CharStyleAt(b, position);
    if (a.fonts[left.font] != b.fonts[right.font]) return false;
    if (LinkAt(a, position) != LinkAt(b, position)) return false;
    left.font = right.font = left.link = right.link = 0;
    for (CharStyle* style : {&left, &right}) {
        if (style->autoForeground) style->foreground = 0;
        if (style->autoBackground) style->background = 0;
    }
    return left == right && ParagraphStyleAt(a, position) == ParagraphStyleAt(b, position);
}

inline bool IsSame(const TableCell& a, const TableCell& b) {
    return a.start == b.start && a.end == b.end && a.rightEdge == b.rightEdge &&
           a.columnSpan == b.columnSpan && a.mergedAbove == b.mergedAbove &&
           a.borderLeft == b.borderLeft && a.borderTop == b.borderTop &&
           a.borderRight == b.borderRight && a.borderBottom == b.borderBottom &&
           a.verticalAlignment == b.verticalAlignment && a.autoBackground == b.autoBackground &&
           (a.autoBackground || a.background == b.background);
}

inline bool IsSame(const TableRow& a, const TableRow& b) {
    return a.start == b.start && a.end == b.end && a.leftEdge == b.leftEdge &&
           a.cellGap == b.cellGap && a.rightToLeft == b.rightToLeft &&
           std::equal(a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
                      [](const TableCell& x, const TableCell& y) { return IsSame(x, y); });
}

inline bool IsSame(const Picture& a, const Picture& b) {
    return a.position == b.position && a.format == b.format && a.widthTwips == b.widthTwips &&
           a.heightTwips == b.heightTwips && a.bytes == b.bytes;
}

// Where styles may change: between the runs of both documents they need no comparison.
inline std::vector<TextPos> RunStarts(const Document& a, const Document& b) {
    std::vector<TextPos> starts;
    for (const Document* document : {&a, &b}) {
        for (const StyleRun& run : document->charRuns)
            starts.push_back(run.start);
        for (const StyleRun& run : document->paragraphRuns)
            starts.push_back(run.start);
    }
    return starts;
}

// In what two documents differ for a reader, "" when in nothing.
inline std::string FirstDifference(const Document& a, const Document& b) {
    if (a.text != b.text) {
        const auto at = std::mismatch(a.text.begin(), a.text.end(), b.text.begin(), b.text.end());
        return "text at " + std::to_string(at.first - a.text.begin());
    }
    if (a.defaultTab != b.defaultTab) return "default tab";
    if (!a.text.empty())
        for (const TextPos start : RunStarts(a, b))
            if (!LooksSameAt(a, b, start)) return "style at " + std::to_string(start);
    const auto same = [](const auto& x, const auto& y) { return IsSame(x, y); };
    if (!std::equal(a.rows.begin(), a.rows.end(), b.rows.begin(), b.rows.end(), same))
        return "rows";
    if (!std::equal(a.pictures.begin(), a.pictures.end(), b.pictures.begin(), b.pictures.end(),
                    same))
        return "pictures";
    return "";
}

} // namespace document_check
