#include "datafile/ini_file.h"

#include "common/text.h"
#include "common/utf.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

constexpr std::size_t maxStringLength = 32766, maxNumberLength = 254; // UTF-16 units
constexpr int oneAsFixed = 10000;                                     // four decimals

std::int64_t ToFixed(double value) {
    const double scaled = std::nearbyint(value * oneAsFixed);
    if (std::isnan(scaled)) return 0;
    if (scaled >= 0x1p63) return std::numeric_limits<std::int64_t>::max();
    if (scaled <= -0x1p63) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(scaled);
}

double FromFixed(std::int64_t fixed) {
    return static_cast<double>(fixed) / oneAsFixed;
}

// "-2.05": a point whatever the locale, no zeros at the end.
std::u16string FixedText(std::int64_t fixed) {
    std::u16string text = fixed < 0 ? u"-" : u"";
    text += NumberText(std::abs(fixed / oneAsFixed));
    std::int64_t fraction = std::abs(fixed % oneAsFixed);
    if (fraction == 0) return text;
    text += u'.';
    for (; fraction != 0; fraction = fraction * 10 % oneAsFixed) {
        text += static_cast<char16_t>(u'0' + fraction * 10 / oneAsFixed);
    }
    return text;
}

std::u16string CutTo(std::u16string text, std::size_t length) {
    if (text.size() <= length) return text;
    const bool splitsPair = IsHighSurrogate(text[length - 1]) && IsLowSurrogate(text[length]);
    text.resize(splitsPair ? length - 1 : length);
    return text;
}

// Blanks at the end of a default are lost on the way, those within the quotes of a value are not.
std::u16string ReadCut(IniFile& file, std::u16string_view section, std::u16string_view key,
                       std::u16string_view fallback, std::size_t length) {
    if (auto value = file.Content().Value(section, key)) return CutTo(std::move(*value), length);
    fallback = fallback.substr(0, fallback.find_last_not_of(u' ') + 1);
    return CutTo(std::u16string(fallback), length);
}

IniFile::WriteMode ModeFor(WriteTime time, bool always) {
    if (time == WriteTime::Keep) return IniFile::WriteMode::KeepTime;
    return always ? IniFile::WriteMode::Always : IniFile::WriteMode::NewTime;
}

} // namespace

std::u16string IniReadString(IniFile& file, std::u16string_view section, std::u16string_view key,
                             std::u16string_view fallback) {
    const std::u16string value = ReadCut(file, section, key, fallback, maxStringLength);
    return value.substr(std::min(value.find_first_not_of(u' '), value.size()));
}

double IniReadNumber(IniFile& file, std::u16string_view section, std::u16string_view key,
                     double fallback, int* charactersRead) {
    std::u16string value;
    if (!file.Path().empty() && !section.empty() && !key.empty()) {
        value = ReadCut(file, section, key, FixedText(ToFixed(fallback)), maxNumberLength);
    }
    if (charactersRead) *charactersRead = static_cast<int>(value.size());
    return FromFixed(ToFixed(NumericValue(value)));
}

void IniWriteString(IniFile& file, std::u16string_view section, std::u16string_view key,
                    std::u16string_view value, WriteTime time) {
    if (!value.empty() && IniReadString(file, section, key) == value) return;
    file.SetValue(ModeFor(time, value.empty()), section, key, value.empty() ? u" " : value);
}

void IniWriteNumber(IniFile& file, std::u16string_view section, std::u16string_view key,
                    double value, WriteTime time) {
    const std::int64_t fixed = ToFixed(value);
    if (fixed != 0 && ToFixed(IniReadNumber(file, section, key)) == fixed) return;
    file.SetValue(ModeFor(time, fixed == 0), section, key, FixedText(fixed));
}
