// `font` and `font-family`.
#include "formats/css/css_limits.h"
#include "formats/css/css_shorthands.h"
#include "formats/css/css_style.h"

#include <algorithm>
#include <array>

namespace {

using Kind = CssToken::Kind;
using P = CssProperty;

constexpr std::u16string_view genericNames[] = {
    u"serif",    u"sans-serif",   u"monospace",  u"cursive",     u"fantasy",
    u"math",     u"emoji",        u"system-ui",  u"ui-serif",    u"ui-sans-serif",
    u"fangsong", u"ui-monospace", u"ui-rounded", u"-webkit-body"};

constexpr std::u16string_view stretches[] = {
    u"normal",        u"condensed", u"ultra-condensed", u"extra-condensed", u"semi-condensed",
    u"semi-expanded", u"expanded",  u"extra-expanded",  u"ultra-expanded"};

// The names of a system's own texts, which stand for all of `font`.
constexpr std::u16string_view systemFonts[] = {u"caption",     u"icon",          u"menu",
                                               u"message-box", u"small-caption", u"status-bar"};

// A quoted name, or words with one blank between them.
bool ReadFamily(CssTokenStream tokens, CssFontFamily& family) {
    if (tokens.Peek().Is(Kind::String)) {
        family.name = tokens.Next().text;
        return tokens.AtEnd();
    }
    while (!tokens.AtEnd()) {
        const CssToken& word = tokens.Next();
        if (!word.Is(Kind::Ident)) return false;
        if (!family.name.empty()) family.name += u' ';
        family.name += word.text;
    }
    for (const std::u16string_view generic : genericNames)
        if (CssEqual(family.name, generic)) {
            family.name = generic;
            family.generic = true;
        }
    return !family.name.empty();
}

// What may stand before the size, in any order.
bool ReadBeforeSize(CssShorthandReader& reader, std::array<CssValue, 3>& values) {
    constexpr std::array<P, 3> properties{P::FontStyle, P::FontVariant, P::FontWeight};
    for (int count = 0; count < 4; ++count) {
        const CssToken& token = reader.tokens.Peek();
        bool found = false;
        if (token.Is(Kind::Ident) || token.Is(Kind::Number))
            for (std::size_t i = 0; i < 3 && !found; ++i)
                if (const auto value = reader.Read(properties[i])) {
                    // "normal" says nothing of which; it leaves what was said.
                    if (!token.IsIdent(u"normal")) values[i] = *value;
                    found = true;
                }
        for (const std::u16string_view stretch : stretches)
            if (!found && token.IsIdent(stretch)) {
                reader.tokens.Next();
                found = true;
            }
        if (!found) return true;
    }
    return true;
}

} // namespace

bool ReadCssFontFamily(CssShorthandReader& reader, std::span<const CssProperty>) {
    CssFontFamilies families;
    while (!reader.tokens.AtEnd()) {
        CssFontFamily family;
        const std::size_t start = reader.tokens.Place();
        if (!ReadFamily(reader.tokens.UpToComma(), family)) return false;
        if (reader.tokens.EndedByComma(start) && reader.tokens.AtEnd()) return false;
        if (families.size() < maxCssFontFamilies) families.push_back(std::move(family));
    }
    if (families.empty()) return false;
    reader.Add(P::FontFamily, reader.block.Store(CssValue::Kind::Families, &CssBlock::families,
                                                 std::move(families)));
    return true;
}

bool ReadCssFont(CssShorthandReader& reader, std::span<const CssProperty>) {
    for (const std::u16string_view name : systemFonts)
        if (reader.tokens.Peek().IsIdent(name)) return false; // the reader's font stays
    std::array<CssValue, 3> before{CssValue::Of(CssFontStyle::Normal),
                                   CssValue::Of(CssFontCaps::Normal), CssValue::OfKeyword(400)};
    if (!ReadBeforeSize(reader, before)) return false;
    const auto size = reader.Read(P::FontSize);
    if (!size) return false;
    CssValue lineHeight = CssValue::OfKeyword(0);
    if (reader.tokens.Peek().IsDelim(u'/')) {
        reader.tokens.Next();
        const auto given = reader.Read(P::LineHeight);
        if (!given) return false;
        lineHeight = *given;
    }
    reader.Add(P::FontStyle, before[0]);
    reader.Add(P::FontVariant, before[1]);
    reader.Add(P::FontWeight, before[2]);
    reader.Add(P::FontSize, *size);
    reader.Add(P::LineHeight, lineHeight);
    return ReadCssFontFamily(reader, {});
}
