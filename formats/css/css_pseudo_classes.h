// Names after a colon, and what they ask. Nothing for what is not known: its rule is none.
#pragma once

#include "formats/css/css_sheet.h"

#include <optional>
#include <string_view>
#include <vector>

std::vector<CssCondition> CssPseudoClass(std::u16string_view name);      // all of them have to hold
std::optional<CssCondition> CssPseudoFunction(std::u16string_view name); // its argument is missing
CssPseudoElement OldCssPseudoElement(std::u16string_view name);          // after one colon
CssPseudoElement NewCssPseudoElement(std::u16string_view name);
