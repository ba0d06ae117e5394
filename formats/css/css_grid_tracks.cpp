// Reads the columns and rows of grids: their sizes, repetitions and the names of lines.
#include "formats/css/css_grid_readers.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_style_values.h"

namespace {
using Kind = CssToken::Kind;

constexpr CssKeyword breadths[] = {
    {u"auto", 0}, {u"min-content", cssMinContent}, {u"max-content", cssMaxContent}};
constexpr CssLonghand breadth{u"", CssProperty::GridTemplateColumns, cssLength | cssPercent,
                              breadths};

// Those of what the other tracks leave, `fr`.
enum class Fractions : std::uint8_t { Allowed, Wrong };

std::optional<CssValue> ReadBreadth(CssShorthandReader& reader, Fractions fractions) {
    const CssToken& token = reader.tokens.Peek();
    if (token.Is(Kind::Dimension) && CssEqual(token.unit, u"fr")) {
        if (fractions == Fractions::Wrong || token.number < 0) return std::nullopt;
        return CssValue::Number(reader.tokens.Next().number);
    }
    return ReadCssValue(breadth, reader.tokens, reader.reading, reader.block);
}

bool ReadMinMax(CssShorthandReader& reader, CssGridTrack& track) {
    const auto min = ReadBreadth(reader, Fractions::Wrong);
    if (!min || !reader.tokens.Take(Kind::Comma)) return false;
    const auto max = ReadBreadth(reader, Fractions::Allowed);
    if (!max || !reader.tokens.AtEnd()) return false;
    track = {*min, *max};
    return true;
}

bool ReadFitContent(CssShorthandReader& reader, CssGridTrack& track) {
    const auto limit = ReadBreadth(reader, Fractions::Wrong);
    if (!limit || limit->kind == CssValue::Kind::Keyword || !reader.tokens.AtEnd()) return false;
    track = {CssValue::OfKeyword(0), *limit, true};
    return true;
}

// One repetition holds no other.
enum class Repetitions : std::uint8_t { Allowed, Wrong };
bool ReadList(CssShorthandReader& reader, CssGridTracks& list, Repetitions repetitions);

void Repeat(const CssGridTracks& part, std::size_t times, CssGridTracks& list) {
    for (std::size_t i = 0; i < times && list.tracks.size() < maxCssGridTracks; ++i) {
        for (const CssGridLine& line : part.lines)
            if (list.lines.size() < maxCssGridLines)
                list.lines.push_back({line.name, line.line + std::int32_t(list.tracks.size())});
        list.tracks.insert(list.tracks.end(), part.tracks.begin(), part.tracks.end());
    }
}

// A number, or as often as they fit, and tracks.
bool ReadRepeat(CssShorthandReader& reader, CssGridTracks& list) {
    reader.tokens.Next();
    CssTokenStream arguments = reader.tokens.Arguments();
    CssShorthandReader within{arguments, reader.reading, reader.block};
    const CssToken times = arguments.Next();
    CssGridTracks part;
    if (!arguments.Take(Kind::Comma) || !ReadList(within, part, Repetitions::Wrong)) return false;
    if (times.Is(Kind::Number) && times.isInteger && times.number >= 1) {
        Repeat(part, std::size_t(times.number), list);
        return true;
    }
    const bool collapses = times.IsIdent(u"auto-fit");
    if ((!collapses && !times.IsIdent(u"auto-fill")) || list.Repeats()) return false;
    list.collapsesEmpty = collapses;
    list.repeatStart = std::uint32_t(list.tracks.size());
    Repeat(part, 1, list);
    list.repeatEnd = std::uint32_t(list.tracks.size());
    return true;
}

bool ReadList(CssShorthandReader& reader, CssGridTracks& list, Repetitions repetitions) {
    while (!AtCssGridEnd(reader.tokens)) {
        const CssToken& token = reader.tokens.Peek();
        CssGridTrack track;
        if (token.Is(Kind::OpenSquare)) {
            if (!ReadCssGridLineNames(reader.tokens, list.tracks.size(), list.lines)) return false;
        } else if (token.IsFunction(u"repeat")) {
            if (repetitions == Repetitions::Wrong || !ReadRepeat(reader, list)) return false;
        } else if (!ReadCssGridTrack(reader, track)) {
            return false;
        } else if (list.tracks.size() < maxCssGridTracks) {
            list.tracks.push_back(track);
        }
    }
    return !list.tracks.empty();
}
} // namespace

bool ReadCssGridTrack(CssShorthandReader& reader, CssGridTrack& track) {
    const CssToken& token = reader.tokens.Peek();
    const bool isMinMax = token.IsFunction(u"minmax");
    if (isMinMax || token.IsFunction(u"fit-content")) {
        reader.tokens.Next();
        CssTokenStream arguments = reader.tokens.Arguments();
        CssShorthandReader within{arguments, reader.reading, reader.block};
        return isMinMax ? ReadMinMax(within, track) : ReadFitContent(within, track);
    }
    const auto both = ReadBreadth(reader, Fractions::Allowed);
    if (!both) return false;
    // What has a share is at least as wide as its content.
    const bool isShare = both->kind == CssValue::Kind::Number;
    track = {isShare ? CssValue::OfKeyword(0) : *both, *both};
    return true;
}

bool ReadCssGridLineNames(CssTokenStream& tokens, std::size_t line,
                          std::vector<CssGridLine>& lines) {
    tokens.Next();
    CssTokenStream names = tokens.Arguments();
    while (!names.AtEnd()) {
        const CssToken& name = names.Next();
        if (!name.Is(Kind::Ident)) return false;
        if (lines.size() < maxCssGridLines)
            lines.push_back({std::u16string(name.text), std::int32_t(line)});
    }
    return true;
}

bool ReadCssGridTrackList(CssShorthandReader& reader, CssGridTracks& tracks) {
    return ReadList(reader, tracks, Repetitions::Allowed);
}

void AddCssGridTracks(CssShorthandReader& reader, CssProperty property, CssGridTracks tracks) {
    if (tracks.empty()) return reader.Add(property, CssValue::OfKeyword(0));
    reader.Add(property, reader.block.Store(CssValue::Kind::GridTracks, &CssBlock::gridTracks,
                                            std::move(tracks)));
}

bool ReadCssGridTracks(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    CssGridTracks tracks;
    if (!reader.tokens.TakeIdent(u"none") && !ReadCssGridTrackList(reader, tracks)) return false;
    AddCssGridTracks(reader, properties[0], std::move(tracks));
    return true;
}
