// Reads where items of a grid stand: lines, tracks across, names.
#include "formats/css/css_grid_readers.h"
#include "formats/css/css_limits.h"

#include <algorithm>

namespace {
using Kind = CssToken::Kind;

struct Place {
    CssValue value = CssValue::OfKeyword(0); // `auto` where there is a name
    CssGridName name;
};

// A number of a line or of tracks, a name, or `auto`.
bool ReadPlace(CssShorthandReader& reader, Place& place) {
    if (reader.tokens.TakeIdent(u"auto")) return true;
    bool isSpan = false, hasNumber = false;
    float number = 1;
    std::u16string& name = place.name.name;
    while (!AtCssGridEnd(reader.tokens)) {
        const CssToken& token = reader.tokens.Next();
        if (token.IsIdent(u"span") && !isSpan) {
            isSpan = true;
        } else if (token.Is(Kind::Number) && token.isInteger && !hasNumber) {
            hasNumber = true;
            number = token.number;
        } else if (token.Is(Kind::Ident) && name.empty()) {
            name = token.text;
        } else {
            return false;
        }
    }
    if ((!isSpan && !hasNumber && name.empty()) || number == 0) return false;
    if (isSpan && number < 0) return false;
    if (!isSpan && !hasNumber) return true;
    const auto limit = float(maxCssGridTracks);
    place.value = CssValue::Number(std::clamp(number, -limit, limit));
    place.value.keyword = isSpan ? cssGridSpan : 0;
    name.clear(); // the first track or line, of any name
    return true;
}

void AddPlace(CssShorthandReader& reader, CssProperty property, const Place& place) {
    if (place.name.empty()) return reader.Add(property, place.value);
    reader.Add(property,
               reader.block.Store(CssValue::Kind::GridName, &CssBlock::gridNames, place.name));
}
} // namespace

// From one line to another, for each axis; what is missing has the name of the start.
bool ReadCssGridPlace(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    std::vector<Place> places;
    do {
        Place place;
        if (places.size() == properties.size() || !ReadPlace(reader, place)) return false;
        places.push_back(std::move(place));
        if (reader.tokens.AtEnd()) break;
    } while (reader.tokens.Next().IsDelim(u'/'));
    if (!reader.tokens.AtEnd()) return false;
    while (places.size() < properties.size()) {
        // Row and column start, and then their ends.
        const std::size_t start = places.size() > 2 ? places.size() - 2 : 0;
        places.push_back({CssValue::OfKeyword(0), places[start].name});
    }
    for (std::size_t i = 0; i < properties.size(); ++i)
        AddPlace(reader, properties[i], places[i]);
    return true;
}
