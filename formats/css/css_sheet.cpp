#include "formats/css/css_sheet.h"

std::uint32_t CssTexts::Add(std::u16string_view text) {
    all_ += text;
    ends_.push_back(static_cast<std::uint32_t>(all_.size()));
    return static_cast<std::uint32_t>(ends_.size() - 2);
}

std::span<const CssDeclaration> DeclarationsOf(const CssSheet& sheet, const CssRule& rule) {
    return std::span(sheet.block.declarations).subspan(rule.declarations, rule.declarationCount);
}
