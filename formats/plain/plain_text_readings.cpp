#include "formats/plain/plain_text_readings.h"

#include "common/decode_pieces.h"
#include "common/direction_controls.h"
#include "common/text.h"
#include "formats/codepages/charset_guess.h"
#include "formats/codepages/charset_names.h"
#include "formats/codepages/charsets.h"
#include "formats/codepages/code_pages.h"
#include "formats/plain/distinctive_line.h"
#include "formats/plain/plain_text_guess.h"
#include "formats/plain/plain_text_source.h"

#include <algorithm>

namespace {
using Samples = std::vector<std::string_view>;

// The size of the file when there is none.
std::uint64_t FirstHighByte(const FileReader& file, std::uint64_t from) {
    constexpr std::size_t block = 1 << 16;
    while (true) {
        const std::string bytes = BytesAt(file, from, block);
        if (bytes.empty() || !IsAscii(bytes)) return from;
        from += bytes.size();
    }
}

std::vector<std::string> ReadSamples(const FileReader& file) {
    const std::uint64_t size = std::min(file.Size(), maxPlainTextSize);
    std::vector<std::string> read{BytesAt(file, 0, guessSample)};
    const std::uint64_t high = IsAscii(read[0]) ? FirstHighByte(file, read[0].size()) : 0;
    if (high >= size) return read;
    for (const SamplePlace& place : SamplePlaces(size, high))
        if (place.begin > 0) read.push_back(BytesAt(file, place.begin, place.length));
    return read;
}

bool ReadsAsUtf8(const Samples& samples) {
    return (samples.size() == 1 && LooksLikeUtf8(samples[0])) || LooksLikeDamagedUtf8(samples);
}

// Whoever sees words backwards looks for the other order of the same letters.
void AddOtherOrder(std::vector<int>& pages) {
    constexpr int windowsHebrew = 1255; // the same letters as in ISO 8859-8, and better known
    int other = OtherOrderPage(pages[0]);
    if (other == 0) return;
    if (other == logicalIsoPage) other = windowsHebrew;
    std::erase(pages, other);
    pages.insert(pages.begin() + 1, other);
}

std::vector<int> LikeliestPages(const Samples& samples, int systemPage) {
    std::vector<int> pages;
    if (ReadsAsUtf8(samples)) pages.push_back(utf8Page);
    for (const CharsetGuess& guess : GuessCharsets(samples, systemPage))
        pages.push_back(guess.page);
    AddOtherOrder(pages);
    return pages;
}

// Which bytes a text has, so that charsets which differ in no other need not be told apart.
class SeenBytes {
  public:
    explicit SeenBytes(std::string_view text) {
        for (const char byte : text)
            seen_[static_cast<unsigned char>(byte)] = true;
    }
    bool SameText(int page, int other) const {
        const char16_t *units = UpperHalf(page), *others = UpperHalf(other);
        if (IsVisualOrder(page) != IsVisualOrder(other)) return false;
        if (!units || !others || WindowsPageOfScript(page) != WindowsPageOfScript(other))
            return false;
        for (int i = 0; i < 128; ++i)
            if (seen_[128 + i] && units[i] != others[i]) return false;
        return true;
    }

  private:
    bool seen_[256] = {};
};

std::string NameOf(int page) {
    const auto charsets = NamedCharsets();
    const auto named = std::ranges::find(charsets, page, &NamedCharset::page);
    if (named != charsets.end()) return std::string(named->name);
    return "Code page " + std::to_string(page);
}

// As it can be shown in a list.
std::u16string LineIn(int page, std::string_view bytes) {
    std::u16string line = DecodeAs(FormOfPage(page), bytes);
    for (char16_t& unit : line) {
        if (unit == u'\t') unit = u' ';
        if (unit < u' ' || (unit >= 0x7F && unit < 0xA0)) unit = u'\uFFFD';
    }
    return std::u16string(Trim(WithoutDirectionControls(std::move(line))));
}

void AddOtherCharsets(std::vector<CharsetReading>& readings, std::string_view line) {
    const auto likely = static_cast<std::ptrdiff_t>(readings.size());
    for (const NamedCharset& each : NamedCharsets())
        if (std::ranges::find(readings, each.page, &CharsetReading::page) == readings.end())
            readings.push_back({each.page, std::string(each.name), LineIn(each.page, line)});
    std::ranges::stable_sort(
        readings.begin() + likely, readings.end(), {},
        [](const CharsetReading& reading) { return std::ranges::count(reading.line, u'\uFFFD'); });
}

// Which the font dialog has by its script's name, too.
bool IsPageOfFontScript(int page) {
    constexpr int oemCharset = 254;
    return page == CharsetToCodePage(CodePageToCharset(page)) ||
           page == CharsetToCodePage(oemCharset);
}

void MarkScripts(std::vector<CharsetReading>& readings, const Samples& samples) {
    for (const NamedCharset& each : NamedCharsets()) {
        if (!IsPageOfFontScript(each.page)) continue;
        const int page = GuessCharsetOfScript(samples, each.page);
        const auto reading = std::ranges::find(readings, page, &CharsetReading::page);
        if (reading != readings.end()) reading->standsForScript = true;
    }
}

void RemoveEqualReadings(std::vector<CharsetReading>& readings, const SeenBytes& seen,
                         int presentPage) {
    std::vector<CharsetReading> kept;
    for (CharsetReading& reading : readings) {
        const auto isSame = [&](const CharsetReading& other) {
            return seen.SameText(reading.page, other.page);
        };
        if (reading.page == presentPage || IsPageOfFontScript(reading.page) ||
            std::ranges::none_of(kept, isSame))
            kept.push_back(std::move(reading));
    }
    readings = std::move(kept);
}
} // namespace

std::vector<CharsetReading> CharsetReadings(const FileReader& file, int systemPage,
                                            int presentPage) {
    const std::vector<std::string> read = ReadSamples(file);
    const Samples samples(read.begin(), read.end());
    if (MarkedForm(samples[0]) || std::ranges::all_of(samples, IsAscii)) return {};

    std::vector<int> pages = LikeliestPages(samples, systemPage);
    const std::string line = DistinctiveLine(samples, FormOfPage(pages[0]));
    std::vector<CharsetReading> readings;
    readings.reserve(pages.size());
    for (const int page : pages)
        readings.push_back({page, NameOf(page), LineIn(page, line)});
    AddOtherCharsets(readings, line);
    MarkScripts(readings, samples);
    const bool whole = file.Size() <= guessSample;
    if (whole) RemoveEqualReadings(readings, SeenBytes(samples[0]), presentPage);
    if (std::ranges::find(readings, presentPage, &CharsetReading::page) == readings.end())
        readings.push_back({presentPage, NameOf(presentPage), LineIn(presentPage, line)});
    return readings;
}

bool HasMarkedForm(const FileReader& file) {
    return MarkedForm(BytesAt(file, 0, guessSample)).has_value();
}

PlainTextForm FormOfPage(int page) {
    if (page == utf8Page || page == 0) return {};
    return {TextEncoding::CodePage, page};
}
