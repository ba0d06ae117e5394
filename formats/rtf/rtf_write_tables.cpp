#include "formats/rtf/rtf_write_tables.h"

#include "formats/rtf/rtf_escape.h"

#include <algorithm>

RtfWriteTables::RtfWriteTables(const Document& document, const DocumentStyles& used, TextPos start,
                               TextPos end)
    : styles_(used) {
    AddFont(0); // the default one
    StyleCursor styles(document.charRuns);
    for (TextPos at = start; at < end; at = styles.RunEnd(end)) {
        const CharStyle& style = styles_.charStyles[styles.At(at)];
        AddFont(style.font);
        if (!style.autoForeground) AddColor(style.foreground);
        if (!style.autoBackground) AddColor(style.background);
    }
    AddParagraphColors(document, start, end);
    for (const TableRow& row : document.rows) {
        if (row.start < start || row.end > end) continue;
        for (const TableCell& cell : row.cells)
            if (!cell.autoBackground) AddColor(cell.background);
    }
}

// A paragraph has the style of its end, which may lie beyond the stretch.
void RtfWriteTables::AddParagraphColors(const Document& document, TextPos start, TextPos end) {
    const std::size_t last = document.text.find_first_of(u"\n\a", static_cast<std::size_t>(end));
    const auto stop = static_cast<TextPos>(std::min(last, document.text.size()));
    StyleCursor styles(document.paragraphRuns);
    for (TextPos at = start; at <= stop; at = styles.RunEnd(stop + 1)) {
        const ParagraphStyle& style = styles_.paragraphStyles[styles.At(at)];
        const ParagraphBorders& borders = style.borders;
        for (const ParagraphBorder* border :
             {&borders.left, &borders.top, &borders.right, &borders.bottom, &borders.between})
            if (border->width != 0 && !border->autoColor) AddColor(border->color);
        if (!style.autoBackground) AddColor(style.background);
    }
}

void RtfWriteTables::AddFont(std::uint16_t font) {
    if (fontNumbers_.try_emplace(font, fonts_.size()).second) fonts_.push_back(font);
}

void RtfWriteTables::AddColor(Color color) {
    if (colorNumbers_.try_emplace(color, colors_.size() + 1).second) colors_.push_back(color);
}

std::string RtfWriteTables::FontTable() const {
    std::string rtf = "{\\fonttbl";
    for (const std::uint16_t font : fonts_) {
        std::u16string name = styles_.fonts[font];
        std::erase(name, u';'); // would end the name
        rtf += "{\\f" + std::to_string(FontNumber(font)) + "\\fnil ";
        AppendRtfText(rtf, name);
        rtf += ";}";
    }
    return rtf + '}';
}

std::string RtfWriteTables::ColorTable() const {
    std::string rtf = "{\\colortbl;";
    for (const Color color : colors_) {
        rtf += "\\red" + std::to_string(color & 0xFF);
        rtf += "\\green" + std::to_string(color >> 8 & 0xFF);
        rtf += "\\blue" + std::to_string(color >> 16 & 0xFF) + ';';
    }
    return rtf + '}';
}
