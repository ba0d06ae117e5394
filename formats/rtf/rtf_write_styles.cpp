#include "formats/rtf/rtf_write_text.h"

namespace {

std::string Word(const char* name, std::int64_t parameter) {
    std::string word = "\\";
    return word.append(name).append(std::to_string(parameter));
}

std::string WordUnlessZero(const char* name, std::int32_t parameter) {
    return parameter == 0 ? std::string() : Word(name, parameter);
}

const char* AlignmentWord(Alignment alignment) {
    switch (alignment) {
    case Alignment::Right: return "\\qr";
    case Alignment::Center: return "\\qc";
    case Alignment::Justified: return "\\qj";
    default: return "\\ql";
    }
}

std::string ColorWord(const char* name, Color color, const RtfWriteTables& tables) {
    return Word(name, static_cast<std::int64_t>(tables.ColorNumber(color)));
}

std::string TabStopWords(const TabStop& stop) {
    constexpr const char* alignments[] = {"", "\\tqr", "\\tqc", "\\tqdec"};
    constexpr const char* leaders[] = {"", "\\tldot", "\\tlmdot", "\\tlhyph", "\\tlul", "\\tleq"};
    std::string rtf = alignments[static_cast<int>(stop.alignment)];
    return rtf + leaders[static_cast<int>(stop.leader)] + Word("tx", stop.position);
}

std::string BorderWords(const char* side, const ParagraphBorder& border,
                        const RtfWriteTables& tables) {
    if (border.width == 0) return {};
    std::string rtf = side;
    rtf += "\\brdrs" + Word("brdrw", border.width) + Word("brsp", border.space);
    if (!border.autoColor) rtf += ColorWord("brdrcf", border.color, tables);
    return rtf;
}

} // namespace

std::string CharStyleWords(const CharStyle& style, const RtfWriteTables& tables) {
    std::string rtf = "\\plain";
    rtf += Word("f", static_cast<std::int64_t>(tables.FontNumber(style.font)));
    rtf += Word("fs", style.halfPoints);
    if (style.bold) rtf += "\\b";
    if (style.italic) rtf += "\\i";
    if (style.underline) rtf += "\\ul";
    if (style.strikethrough) rtf += "\\strike";
    if (style.capitals == Capitals::All) rtf += "\\caps";
    if (style.capitals == Capitals::Small) rtf += "\\scaps";
    if (style.script == Script::Superscript) rtf += "\\super";
    if (style.script == Script::Subscript) rtf += "\\sub";
    if (style.rightToLeft) rtf += "\\rtlch";
    if (!style.autoForeground) rtf += ColorWord("cf", style.foreground, tables);
    // Older readers know the first, word processors the second.
    if (!style.autoBackground)
        rtf += ColorWord("cb", style.background, tables) +
               ColorWord("chcbpat", style.background, tables);
    return rtf;
}

std::string ParagraphStyleWords(const ParagraphStyle& style, bool inTable,
                                const RtfWriteTables& tables) {
    std::string rtf = "\\pard";
    if (inTable) rtf += "\\intbl";
    if (style.rightToLeft) rtf += "\\rtlpar";
    if (style.outlineLevel != 0) rtf += Word("outlinelevel", style.outlineLevel - 1);
    rtf += AlignmentWord(style.alignment);
    rtf += WordUnlessZero("li", style.leftIndent);
    rtf += WordUnlessZero("ri", style.rightIndent);
    rtf += WordUnlessZero("fi", style.firstLineIndent);
    rtf += WordUnlessZero("sb", style.spaceBefore);
    rtf += WordUnlessZero("sa", style.spaceAfter);
    rtf += WordUnlessZero("sl", style.lineSpacing);
    rtf += WordUnlessZero("slmult", style.lineSpacingIsMultiple);
    for (const TabStop& stop : style.tabStops)
        rtf += TabStopWords(stop);
    const ParagraphBorders& borders = style.borders;
    rtf += BorderWords("\\brdrt", borders.top, tables);
    rtf += BorderWords("\\brdrl", borders.left, tables);
    rtf += BorderWords("\\brdrb", borders.bottom, tables);
    rtf += BorderWords("\\brdrr", borders.right, tables);
    rtf += BorderWords("\\brdrbtw", borders.between, tables);
    if (!style.autoBackground) rtf += ColorWord("cbpat", style.background, tables);
    return rtf;
}
