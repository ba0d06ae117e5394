// Values of HTML's old attributes (HTML Standard, "common microsyntaxes"), as declarations.
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

#include <optional>
#include <string_view>

void AddHint(CssBlock& block, CssProperty property, const CssValue& value);
template <typename Enumeration>
void AddHint(CssBlock& block, CssProperty property, Enumeration keyword) {
    AddHint(block, property, CssValue::Of(keyword));
}
constexpr std::uint16_t cssAutoKeyword = 0;

// What 0 means: itself, or that the attribute is passed over.
enum class HtmlZero : std::uint8_t { IsValid, IsIgnored };
// Pixels or percents; nothing for what is no number.
std::optional<CssValue> HtmlDimension(std::u16string_view text, HtmlZero zero = HtmlZero::IsValid);

void AddDimensionHint(CssBlock& block, CssProperty property, const HtmlAttribute* attribute,
                      HtmlZero zero = HtmlZero::IsValid);
void AddColorHint(CssBlock& block, CssProperty property, const HtmlAttribute* attribute);
void AddPixelsHint(CssBlock& block, CssProperty property, const HtmlAttribute* attribute);
// On all four sides, the first of which is given.
void AddBorderHint(CssBlock& block, float width, std::uint16_t style);

// Hints of kinds of elements, in files of their own.
void ReadTextHints(const HtmlNode& node, CssBlock& block);     // paragraphs, fonts, lists, breaks
void ReadReplacedHints(const HtmlNode& node, CssBlock& block); // pictures and their like
void ReadRuleHints(const HtmlNode& node, CssBlock& block);     // `hr`
