// Properties that are several longhands at once, and those whose value is a list.
#pragma once

#include "formats/css/css_longhands.h"
#include "formats/css/css_sheet.h"
#include "formats/css/css_token_stream.h"

#include <span>
#include <string_view>

struct CssShorthandReader {
    CssTokenStream& tokens;
    const CssReading& reading;
    CssBlock& block;

    std::optional<CssValue> Read(CssProperty property) {
        return ReadCssValue(CssLonghandOf(property), tokens, reading, block);
    }
    void Add(CssProperty property, const CssValue& value) {
        block.declarations.push_back({property, false, value});
    }
};

struct CssShorthand {
    std::u16string_view name;
    // Adds a value for each of the properties; false for a wrong one, what was added then goes.
    bool (*read)(CssShorthandReader& reader, std::span<const CssProperty> properties) = nullptr;
    std::span<const CssProperty> properties;
};

const CssShorthand* FindCssShorthand(std::u16string_view lowerCase); // nullptr for others

// The readers of each, in files of their own.
bool ReadCssFont(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssFontFamily(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssContent(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssTextDecoration(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssBackground(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssListStyle(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssCounterReset(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssCounterIncrement(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssFlex(CssShorthandReader& reader, std::span<const CssProperty>);
bool ReadCssFlexFlow(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssGridTracks(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssGridAreas(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssGridTemplate(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssGridPlace(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssGridFlow(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssColumns(CssShorthandReader& reader, std::span<const CssProperty> properties);
bool ReadCssAspectRatio(CssShorthandReader& reader, std::span<const CssProperty>);
// The arguments of counter() and counters(), of `content`; false for other functions.
bool ReadCssCounter(const CssToken& function, CssTokenStream arguments, CssContentItem& item);
