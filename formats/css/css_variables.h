// Custom properties (css-variables-1): their values are texts, which stand in for var().
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/css/css_tokenizer.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct CssVariable {
    std::u16string name; // with its "--"
    std::u16string value;
};
inline void AppendCssKey(std::u16string& key, const CssVariable& variable) {
    key += variable.name;
    key += u':';
    key += variable.value;
}
// Of an element, with those that it inherits; ascending by name.
using CssVariables = std::vector<CssVariable>;

bool IsCssVariable(std::u16string_view name);
bool UsesCssVariables(std::span<const CssToken> value);

// The variables of an element whose parent has these. Of own ones of the same name the last wins.
CssVariables ResolveCssVariables(const CssVariables& inherited,
                                 std::span<const CssWrittenDeclaration* const> own);
// A value with the variables in their places; nothing where one has no value, or it is too long.
std::optional<std::u16string> SubstituteCssVariables(std::u16string_view value,
                                                     const CssVariables& variables);
