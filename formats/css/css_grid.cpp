#include "formats/css/css_grid.h"

namespace {
void AddNumber(std::u16string& key, std::uint32_t number) {
    key += char16_t(number);
    key += char16_t(number >> 16);
}

void AddName(std::u16string& key, const std::u16string& name) {
    key += name;
    key += u'\uFFFF';
}

void AddValue(std::u16string& key, const CssValue& value) {
    AddNumber(key, std::uint32_t(value.kind) << 16 | value.keyword);
    AddNumber(key, value.kind == CssValue::Kind::Keyword ? 0 : value.index);
}
} // namespace

std::u16string CssKeyOf(const CssGridTracks& tracks) {
    std::u16string key;
    AddNumber(key, std::uint32_t(tracks.tracks.size()));
    for (const CssGridTrack& track : tracks.tracks) {
        AddValue(key, track.min);
        AddValue(key, track.max);
        key += track.fits ? u'f' : u'-';
    }
    AddNumber(key, tracks.repeatStart);
    AddNumber(key, tracks.repeatEnd);
    key += tracks.collapsesEmpty ? u'c' : u'-';
    for (const CssGridLine& line : tracks.lines) {
        AddName(key, line.name);
        AddNumber(key, std::uint32_t(line.line));
    }
    return key;
}

std::u16string CssKeyOf(const CssGridAreas& areas) {
    std::u16string key;
    for (const CssGridArea& area : areas) {
        AddName(key, area.name);
        for (const std::int32_t line : {area.column, area.row, area.columnEnd, area.rowEnd})
            AddNumber(key, std::uint32_t(line));
    }
    return key;
}
