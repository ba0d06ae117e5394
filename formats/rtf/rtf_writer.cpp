#include "formats/rtf/rtf_writer.h"

#include "formats/rtf/rtf_write_text.h"
#include "product.h"

#include <algorithm>

std::string WriteRtf(const Document& document, TextPos start, TextPos length,
                     const StyleOverrides& overrides) {
    const auto size = static_cast<TextPos>(document.text.size());
    start = std::clamp(start, 0, size);
    const TextPos end = length < 0 ? size : start + std::min(length, size - start);
    const DocumentStyles styles = WithOverrides(document, overrides);
    const RtfWriteTables tables(document, styles, start, end);

    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deftab";
    rtf += std::to_string(document.defaultTab) + '\n';
    rtf += tables.FontTable() + '\n' + tables.ColorTable() + '\n';
    rtf += "{\\*\\generator " PRODUCT_TITLE ";}\n";
    RtfTextWriter(document, styles, tables, rtf).Write(start, end);
    return rtf + '}';
}
