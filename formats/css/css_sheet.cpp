#include "formats/css/css_sheet.h"

std::uint32_t CssTexts::Add(std::u16string_view text) {
    const auto known = numbers_.find(text);
    if (known != numbers_.end()) return known->second;
    const auto number = static_cast<std::uint32_t>(texts_.size());
    numbers_.emplace(texts_.emplace_back(text), number);
    return number;
}

std::uint32_t CssTexts::Find(std::u16string_view text) const {
    const auto known = numbers_.find(text);
    return known == numbers_.end() ? 0 : known->second;
}

std::span<const CssDeclaration> DeclarationsOf(const CssSheet& sheet, const CssRule& rule) {
    return std::span(sheet.block.declarations).subspan(rule.declarations, rule.declarationCount);
}
