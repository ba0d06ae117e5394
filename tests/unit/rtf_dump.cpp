#include "tests/unit/rtf_dump.h"

#include "common/utf.h"
#include "tests/document_check.h"

#include <cstdio>

namespace {

using document_check::CharStyleAt;
using document_check::ParagraphStyleAt;

std::string Number(const char* name, std::int32_t value) {
    return value == 0 ? "" : std::string(" ") + name + "=" + std::to_string(value);
}

std::string ColorText(const char* name, bool isAutomatic, Color color) {
    if (isAutomatic) return "";
    char text[16];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", color & 0xFF, color >> 8 & 0xFF,
                  color >> 16 & 0xFF);
    return std::string(" ") + name + "=" + text;
}

std::string BorderText(const char* name, const ParagraphBorder& border) {
    if (border.width == 0) return "";
    return Number(name, border.width) + Number("space", border.space) +
           ColorText("color", border.autoColor, border.color);
}

std::string TabStopText(const TabStop& stop) {
    const char* const alignments[] = {"tab", "right-tab", "center-tab", "decimal-tab"};
    const char* const leaders[] = {"",         "/dots",        "/middle-dots",
                                   "/hyphens", "/underscores", "/equal-signs"};
    return Number(alignments[static_cast<int>(stop.alignment)], stop.position) +
           leaders[static_cast<int>(stop.leader)];
}

std::string ParagraphText(const ParagraphStyle& style) {
    const char* const alignments[] = {"left", "right", "center", "justified"};
    std::string text = alignments[static_cast<int>(style.alignment)];
    if (style.rightToLeft) text += " rtl";
    text += Number("outline", style.outlineLevel) + Number("left", style.leftIndent) +
            Number("right", style.rightIndent) + Number("first", style.firstLineIndent) +
            Number("before", style.spaceBefore) + Number("after", style.spaceAfter);
    text += Number(style.lineSpacingIsMultiple ? "lines/240" : "line", style.lineSpacing);
    for (const TabStop& stop : style.tabStops)
        text += TabStopText(stop);
    const ParagraphBorders& borders = style.borders;
    text += BorderText("border-left", borders.left) + BorderText("border-top", borders.top) +
            BorderText("border-right", borders.right) +
            BorderText("border-bottom", borders.bottom) +
            BorderText("border-between", borders.between);
    return text + ColorText("back", style.autoBackground, style.background);
}

std::string CharText(const Document& document, const CharStyle& style) {
    std::string text = "\"";
    text += Utf16ToUtf8(document.fonts[style.font]) + "\" ";
    text += std::to_string(style.halfPoints) + "/2";
    if (style.bold) text += " bold";
    if (style.italic) text += " italic";
    if (style.underline) text += " underline";
    if (style.strikethrough) text += " strike";
    if (style.rightToLeft) text += " rtl";
    if (style.script == Script::Superscript) text += " super";
    if (style.script == Script::Subscript) text += " sub";
    if (style.capitals == Capitals::All) text += " caps";
    if (style.capitals == Capitals::Small) text += " small caps";
    text += ColorText("color", style.autoForeground, style.foreground);
    text += ColorText("back", style.autoBackground, style.background);
    if (style.link != 0) text += " -> " + Utf16ToUtf8(document.links[style.link - 1u]);
    return text;
}

std::string Visible(std::u16string_view text) {
    std::string visible;
    for (const char c : Utf16ToUtf8(text)) {
        switch (c) {
        case '\n': visible += "\\n"; break;
        case '\t': visible += "\\t"; break;
        case '\v': visible += "\\v"; break;
        case '\a': visible += "\\a"; break;
        default: visible += c;
        }
    }
    return visible;
}

std::string DumpText(const Document& document, TextPos start, TextPos end, const char* indent) {
    std::string lines;
    TextPos at = start;
    while (at < end) {
        const std::size_t found = document.text.find_first_of(u"\n\a", at);
        const TextPos paragraphEnd =
            found == std::u16string::npos ? end : static_cast<TextPos>(found + 1);
        lines += indent + ParagraphText(ParagraphStyleAt(document, paragraphEnd - 1)) + "\n";
        while (at < paragraphEnd) {
            const CharStyle& style = CharStyleAt(document, at);
            const TextPos runStart = at;
            while (at < paragraphEnd && CharStyleAt(document, at) == style)
                ++at;
            const std::u16string_view run(document.text.data() + runStart, at - runStart);
            lines += indent + ("  " + CharText(document, style)) + " | " + Visible(run) + "\n";
        }
    }
    return lines;
}

std::string DumpCell(const Document& document, const TableCell& cell) {
    std::string line = "  cell right=" + std::to_string(cell.rightEdge);
    if (cell.columnSpan != 1) line += " span=" + std::to_string(cell.columnSpan);
    if (cell.mergedAbove) line += " merged above";
    if (cell.verticalAlignment == VerticalAlignment::Center) line += " center";
    if (cell.verticalAlignment == VerticalAlignment::Bottom) line += " bottom";
    line += ColorText("back", cell.autoBackground, cell.background) + " borders=";
    line += cell.borderLeft ? 'L' : '-';
    line += cell.borderTop ? 'T' : '-';
    line += cell.borderRight ? 'R' : '-';
    line += cell.borderBottom ? 'B' : '-';
    return line + "\n" + DumpText(document, cell.start, cell.end, "    ");
}

std::string DumpRow(const Document& document, const TableRow& row) {
    std::string lines = "row" + Number("left", row.leftEdge) + Number("gap", row.cellGap) +
                        (row.rightToLeft ? " rtl\n" : "\n");
    for (const TableCell& cell : row.cells)
        lines += DumpCell(document, cell);
    return lines;
}

std::string DumpPicture(const Picture& picture) {
    const char* const formats[] = {"png", "jpeg", "wmf", "emf", "other"};
    return "picture at " + std::to_string(picture.position) + ": " +
           formats[static_cast<int>(picture.format)] + ", " + std::to_string(picture.widthTwips) +
           " x " + std::to_string(picture.heightTwips) + ", " +
           std::to_string(picture.bytes.size()) + " bytes\n";
}

} // namespace

std::string DumpDocument(const Document& document) {
    std::string lines = "default tab " + std::to_string(document.defaultTab) + "\n";
    TextPos at = 0;
    for (const TableRow& row : document.rows) {
        lines += DumpText(document, at, row.start, "") + DumpRow(document, row);
        at = row.end;
    }
    lines += DumpText(document, at, static_cast<TextPos>(document.text.size()), "");
    for (const Picture& picture : document.pictures)
        lines += DumpPicture(picture);
    return lines;
}
