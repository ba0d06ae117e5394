// Values that are lists of words: decoration, background, content and list style.
#include "formats/css/css_color.h"
#include "formats/css/css_length.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_shorthands.h"
#include "formats/css/css_style.h"

#include <algorithm>

namespace {

using Kind = CssToken::Kind;
using P = CssProperty;

template <std::size_t count>
bool IsOneOf(const CssToken& token, const std::u16string_view (&words)[count]) {
    return std::ranges::any_of(words,
                               [&](std::u16string_view word) { return token.IsIdent(word); });
}

constexpr std::u16string_view lineStyles[] = {u"solid", u"double", u"dotted",   u"dashed",
                                              u"wavy",  u"auto",   u"from-font"};
constexpr std::u16string_view imageWords[] = {
    u"none",   u"repeat", u"repeat-x", u"repeat-y",    u"no-repeat",  u"round",       u"space",
    u"fixed",  u"scroll", u"local",    u"left",        u"right",      u"top",         u"bottom",
    u"center", u"cover",  u"contain",  u"padding-box", u"border-box", u"content-box", u"auto"};

// The address of url(...), in either form.
bool ReadUrl(CssTokenStream& tokens, std::u16string& address) {
    const CssToken& token = tokens.Peek();
    if (token.Is(Kind::Url)) {
        address = tokens.Next().text;
        return true;
    }
    if (!token.IsFunction(u"url")) return false;
    tokens.Next();
    CssTokenStream arguments = tokens.Arguments();
    address = arguments.Peek().text;
    return arguments.Next().Is(Kind::String);
}

bool ReadContentItem(CssTokenStream& tokens, CssContentItem& item) {
    const CssToken& token = tokens.Peek();
    if (ReadUrl(tokens, item.text)) {
        item.kind = CssContentItem::Kind::Picture;
        return true;
    }
    tokens.Next();
    if (token.Is(Kind::String)) {
        item.text = token.text;
        return true;
    }
    if (token.IsFunction(u"attr")) {
        CssTokenStream arguments = tokens.Arguments();
        item.kind = CssContentItem::Kind::Attribute;
        item.text = CssLowerCase(arguments.Peek().text);
        return arguments.Next().Is(Kind::Ident) && arguments.AtEnd();
    }
    if (token.Is(Kind::Function)) return ReadCssCounter(token, tokens.Arguments(), item);
    item.kind = CssContentItem::Kind::OpenQuote;
    if (token.IsIdent(u"open-quote")) return true;
    item.kind = CssContentItem::Kind::CloseQuote;
    if (token.IsIdent(u"close-quote")) return true;
    item.kind = CssContentItem::Kind::Text; // they count a level, which is not shown
    return token.IsIdent(u"no-open-quote") || token.IsIdent(u"no-close-quote");
}

} // namespace

// Line, style and colour; only the lines are drawn, in the text's own colour.
bool ReadCssTextDecoration(CssShorthandReader& reader, std::span<const CssProperty>) {
    std::uint16_t lines = cssNoDecoration;
    while (!reader.tokens.AtEnd()) {
        const CssToken& token = reader.tokens.Peek();
        if (token.IsIdent(u"underline"))
            lines |= cssUnderline;
        else if (token.IsIdent(u"overline"))
            lines |= cssOverline;
        else if (token.IsIdent(u"line-through"))
            lines |= cssLineThrough;
        else if (!token.IsIdent(u"none") && !token.IsIdent(u"blink") &&
                 !IsOneOf(token, lineStyles) && !CssLengthOf(token)) {
            if (!ReadCssColor(reader.tokens)) return false;
            continue;
        }
        reader.tokens.Next();
    }
    reader.Add(P::TextDecoration, CssValue::OfKeyword(lines));
    return true;
}

// The colour; pictures of a background are not shown, as they make text unreadable when it is in
// the reader's own colours.
bool ReadCssBackground(CssShorthandReader& reader, std::span<const CssProperty>) {
    CssValue color = CssValue::OfColor(cssTransparent);
    while (!reader.tokens.AtEnd()) {
        const CssToken& token = reader.tokens.Peek();
        std::u16string address;
        if (const auto given = ReadCssColor(reader.tokens)) {
            color = *given;
            continue;
        }
        if (ReadUrl(reader.tokens, address)) continue;
        const bool isSize = token.Is(Kind::Percentage) || CssLengthOf(token, reader.reading.quirks);
        const bool isGradient = token.Is(Kind::Function);
        if (!isSize && !isGradient && !IsOneOf(token, imageWords) && !token.IsDelim(u'/') &&
            !token.Is(Kind::Comma))
            return false;
        reader.tokens.Next();
        if (isGradient) reader.tokens.Arguments();
    }
    reader.Add(P::BackgroundColor, color);
    return true;
}

bool ReadCssContent(CssShorthandReader& reader, std::span<const CssProperty>) {
    if (reader.tokens.TakeIdent(u"none") || reader.tokens.TakeIdent(u"normal")) {
        reader.Add(P::Content, CssValue::OfKeyword(0));
        return true;
    }
    CssContent content;
    while (!reader.tokens.AtEnd()) {
        CssContentItem item;
        if (reader.tokens.Peek().IsDelim(u'/')) { // what is read aloud in its place
            while (!reader.tokens.AtEnd())
                reader.tokens.Next();
            break;
        }
        if (!ReadContentItem(reader.tokens, item) || content.size() >= maxCssContentItems)
            return false;
        content.push_back(std::move(item));
    }
    if (content.empty()) return false;
    reader.Add(P::Content, reader.block.Store(CssValue::Kind::Content, &CssBlock::contents,
                                              std::move(content)));
    return true;
}

// Type, position and picture in any order. "none" is of the type, once that was not given.
bool ReadCssListStyle(CssShorthandReader& reader, std::span<const CssProperty>) {
    CssValue type = CssValue::Of(CssListStyleType::Disc);
    CssValue position = CssValue::Of(CssListStylePosition::Outside);
    while (!reader.tokens.AtEnd()) {
        std::u16string address;
        if (const auto given = reader.Read(P::ListStylePosition))
            position = *given;
        else if (const auto typeGiven = reader.Read(P::ListStyleType))
            type = *typeGiven;
        else if (!ReadUrl(reader.tokens, address))
            return false;
    }
    reader.Add(P::ListStyleType, type);
    reader.Add(P::ListStylePosition, position);
    return true;
}
