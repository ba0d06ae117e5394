#include "formats/css/css_property_parser.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_longhands.h"
#include "formats/css/css_shorthands.h"

#include <algorithm>
#include <array>

namespace {

using Kind = CssToken::Kind;

// Cuts "!important" off the end, and the space around.
bool TakeImportant(std::span<const CssToken>& value) {
    const auto trim = [&value] {
        while (!value.empty() && value.back().Is(Kind::Whitespace))
            value = value.first(value.size() - 1);
    };
    trim();
    if (value.empty() || !value.back().IsIdent(u"important")) return false;
    const std::span<const CssToken> whole = value;
    value = value.first(value.size() - 1);
    trim();
    if (value.empty() || !value.back().IsDelim(u'!')) {
        value = whole;
        return false;
    }
    value = value.first(value.size() - 1);
    trim();
    return true;
}

// `inherit` and its like, which every property takes, alone.
bool ReadWide(std::span<const CssToken> value, CssValue& wide) {
    CssTokenStream tokens(value);
    const CssToken& word = tokens.Next();
    if (!word.Is(Kind::Ident) || !tokens.AtEnd()) return false;
    if (CssEqual(word.text, u"inherit"))
        wide = CssValue::OfKind(CssValue::Kind::Inherit);
    else if (CssEqual(word.text, u"initial"))
        wide = CssValue::OfKind(CssValue::Kind::Initial);
    else if (CssEqual(word.text, u"unset"))
        wide = CssValue::OfKind(CssValue::Kind::Unset);
    else if (CssEqual(word.text, u"revert"))
        wide = CssValue::OfKind(CssValue::Kind::Revert);
    else
        return false;
    return true;
}

// From the first of the tokens, which stand in one text, to the last.
std::u16string_view SourceOf(std::span<const CssToken> tokens) {
    if (tokens.empty()) return {};
    const char16_t* const start = tokens.front().source.data();
    const std::u16string_view last = tokens.back().source;
    return {start, static_cast<std::size_t>(last.data() + last.size() - start)};
}

void AddWritten(CssProperty property, std::u16string_view name, std::span<const CssToken> value,
                bool important, CssBlock& block) {
    while (!value.empty() && value.front().Is(Kind::Whitespace))
        value = value.subspan(1);
    const std::u16string_view text = SourceOf(value);
    if (name.size() + text.size() > maxCssVariableUnits) return;
    CssWrittenDeclaration written{std::u16string(name), std::u16string(text)};
    block.declarations.push_back(
        {property, important,
         block.Store(CssValue::Kind::Written, &CssBlock::written, std::move(written))});
}

} // namespace

void ReadCssDeclaration(std::u16string_view name, std::span<const CssToken> value,
                        const CssReading& reading, CssBlock& block) {
    const bool important = TakeImportant(value);
    if (IsCssVariable(name)) return AddWritten(CssProperty::Custom, name, value, important, block);
    std::array<char16_t, 32> letters; // no property has a longer name
    if (name.size() > letters.size()) return;
    std::ranges::transform(name, letters.begin(), AsciiLower);
    const std::u16string_view lower(letters.data(), name.size());
    const CssLonghand* longhand = FindCssLonghand(lower);
    const CssShorthand* shorthand = longhand ? nullptr : FindCssShorthand(lower);
    if ((!longhand && !shorthand) || value.empty()) return;

    if (UsesCssVariables(value))
        return AddWritten(CssProperty::WithVariables, lower, value, important, block);
    const std::size_t first = block.declarations.size();
    CssValue wide;
    if (ReadWide(value, wide)) {
        if (longhand)
            block.declarations.push_back({longhand->property, important, wide});
        else
            for (const CssProperty property : shorthand->properties)
                block.declarations.push_back({property, important, wide});
        return;
    }
    CssTokenStream tokens(value);
    bool understood = true;
    if (longhand) {
        const auto one = ReadCssValue(*longhand, tokens, reading, block);
        understood = one.has_value();
        if (one) block.declarations.push_back({longhand->property, important, *one});
    } else {
        CssShorthandReader reader{tokens, reading, block};
        understood = shorthand->read(reader, shorthand->properties);
    }
    if (!understood || !tokens.AtEnd()) block.declarations.resize(first);
    for (std::size_t i = first; i < block.declarations.size(); ++i)
        block.declarations[i].important = important;
}

CssBlock ReadCssWritten(const CssWrittenDeclaration& declaration, const CssVariables& variables,
                        const CssReading& reading) {
    CssBlock block;
    if (const auto text = SubstituteCssVariables(declaration.value, variables)) {
        CssTokenizer tokenizer(*text);
        ReadCssDeclaration(declaration.name, CssTokensOf(tokenizer), reading, block);
    }
    if (!block.declarations.empty()) return block;
    CssTokenizer unset(u"unset");
    ReadCssDeclaration(declaration.name, CssTokensOf(unset), reading, block);
    return block;
}
