// Attributes that are integers (HTML Standard, "Rules for parsing integers").
#pragma once

#include "formats/html/html_tree.h"

#include <optional>
#include <string_view>

// Nothing for what is none. Within a million, which no rule needs more of.
std::optional<int> HtmlInteger(std::u16string_view text);
std::optional<int> HtmlInteger(const HtmlNode& element, HtmlName attribute);
std::optional<int> HtmlNonNegative(std::u16string_view text); // nothing for what is below 0, too
