// A declared value, as far as it can be understood without the element.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

struct CssColor {
    std::uint8_t red = 0, green = 0, blue = 0, alpha = 255;
    bool operator==(const CssColor&) const = default;

    bool IsTransparent() const { return alpha == 0; }
    // As common/geometry.h has its Color: 0x00BBGGRR.
    std::uint32_t Bgr() const {
        return std::uint32_t(blue) << 16 | std::uint32_t(green) << 8 | red;
    }
    static CssColor FromBgr(std::uint32_t bgr) {
        return {std::uint8_t(bgr), std::uint8_t(bgr >> 8), std::uint8_t(bgr >> 16)};
    }
};
constexpr CssColor cssTransparent{0, 0, 0, 0};

// What a length is relative to. The absolute units are pixels once they are read.
// QuirkyEm, of the default sheet alone, is an em that goes in some places of a page in quirks mode.
enum class CssUnit : std::uint8_t { Px, Em, QuirkyEm, Rem, Ex, Ch, Lh, Rlh, Vw, Vh, Vmin, Vmax };

struct CssFontFamily {
    std::u16string name;
    bool generic = false; // one of CSS's own names (serif, monospace, ...), written without quotes
    bool operator==(const CssFontFamily&) const = default;
};
using CssFontFamilies = std::vector<CssFontFamily>;

// A piece of what `content` puts before or after an element.
struct CssContentItem {
    enum class Kind : std::uint8_t {
        Text,
        Attribute,
        Picture,
        OpenQuote,
        CloseQuote,
        Counter, // the innermost of the name
        Counters // all of the name, from the outermost one on
    };
    Kind kind = Kind::Text;
    std::uint16_t numberStyle = 0; // of a counter, a CssListStyleType
    std::u16string text;      // or the attribute's name, the picture's address, the counter's name
    std::u16string separator; // between counters
    bool operator==(const CssContentItem&) const = default;
};
using CssContent = std::vector<CssContentItem>;

struct CssCounterChange {
    std::u16string name;
    std::int32_t value = 0; // that it is set to, or that is added
    bool operator==(const CssCounterChange&) const = default;
};
using CssCounterChanges = std::vector<CssCounterChange>;

struct CssValue {
    enum class Kind : std::uint8_t {
        Keyword, // `keyword` is a value of the property's own enumeration
        Length,
        Percent,
        Number,
        Rgba,
        CurrentColor,
        Families,
        Content,
        Counters,   // `index` of changes in the block
        GridTracks, // `index` of one in the block, as the next two
        GridAreas,
        GridName,
        Math,    // `index` of one in the block; never a computed value
        Written, // `index` of a CssWrittenDeclaration in the block; likewise
        Sum,     // of `number` pixels and `keyword`, an int16_t, hundredths of a percent
        // Those of all properties.
        Inherit,
        Initial,
        Unset,
        Revert,
    };
    Kind kind = Kind::Keyword;
    CssUnit unit = CssUnit::Px;
    std::uint16_t keyword = 0;
    union {
        float number = 0;
        std::uint32_t index; // of a list in the block; of a colour its bytes
    };

    static CssValue OfKeyword(std::uint16_t keyword) {
        CssValue value;
        value.keyword = keyword;
        return value;
    }
    template <typename Enumeration>
    static CssValue Of(Enumeration keyword) {
        return OfKeyword(static_cast<std::uint16_t>(keyword));
    }
    static CssValue OfKind(Kind kind) {
        CssValue value;
        value.kind = kind;
        return value;
    }
    static CssValue Pixels(float pixels) {
        CssValue value = OfKind(Kind::Length);
        value.number = pixels;
        return value;
    }
    static CssValue Percent(float percent) {
        CssValue value = OfKind(Kind::Percent);
        value.number = percent;
        return value;
    }
    static CssValue Number(float number) {
        CssValue value = OfKind(Kind::Number);
        value.number = number;
        return value;
    }
    static CssValue OfColor(CssColor color) {
        return OfIndex(Kind::Rgba, std::bit_cast<std::uint32_t>(color));
    }
    CssColor AsColor() const { return std::bit_cast<CssColor>(index); }
    static CssValue OfIndex(Kind kind, std::size_t index) {
        CssValue value = OfKind(kind);
        value.index = static_cast<std::uint32_t>(index);
        return value;
    }
};
static_assert(sizeof(CssValue) == 8);
