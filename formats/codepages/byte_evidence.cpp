#include "formats/codepages/byte_evidence.h"

#include "common/decode_pieces.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

namespace {
constexpr std::size_t maxFromStart = 6 * 1024; // bytes of evidence from the first sample
constexpr std::size_t maxTotal = 12 * 1024;
constexpr std::size_t around = 24; // ASCII bytes of context on each side

bool IsHigh(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

// No byte below 0x30 is part of a longer sequence, except in GB18030 a digit, which is not looked
// for.
bool IsBoundary(char byte) {
    return static_cast<unsigned char>(byte) < 0x30;
}

// Which ends of a text a part of it has.
struct TextEnds {
    bool start = false, end = false;
};

// A part of a text without what may be half a character at its ends.
std::string_view WithoutPartialCharacters(std::string_view part, TextEnds has) {
    constexpr std::size_t maxScanned = 512;
    if (!has.start) {
        const auto line = part.substr(0, maxScanned).find_first_of("\n\r");
        const auto* const blank = std::ranges::find_if(part.substr(0, maxScanned), IsBoundary);
        if (line != part.npos)
            part.remove_prefix(line);
        else if (blank != part.substr(0, maxScanned).end())
            part.remove_prefix(static_cast<std::size_t>(blank - part.begin()));
    }
    if (!has.end) {
        const auto last = std::find_if(part.rbegin(), part.rend(), IsBoundary);
        if (last != part.rend() && static_cast<std::size_t>(last - part.rbegin()) < maxScanned)
            part.remove_suffix(static_cast<std::size_t>(last - part.rbegin()));
    }
    return part;
}

std::size_t NextHigh(std::string_view bytes, std::size_t from) {
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    from += AsciiLength(start + from, start + bytes.size());
    while (from < bytes.size() && !IsHigh(bytes[from]))
        ++from;
    return from;
}

// The end of a stretch in which at most `2 * around` ASCII bytes stand in a row, `maxBytes` bytes
// from its start at most.
std::size_t StretchEnd(std::string_view bytes, std::size_t high, std::size_t maxBytes) {
    std::size_t end = high + 1;
    for (std::size_t at = end; at < bytes.size() && at < end + 2 * around && at < maxBytes; ++at)
        if (IsHigh(bytes[at])) end = at + 1;
    return end;
}

// Returns how many bytes of the sample were collected or are ASCII.
std::size_t CollectStretches(std::string_view sample, std::size_t maxBytes, std::string& text) {
    const std::size_t limit = text.size() + maxBytes;
    std::size_t taken = 0;
    for (std::size_t high = NextHigh(sample, 0); high < sample.size() && text.size() < limit;
         high = NextHigh(sample, taken)) {
        const std::size_t begin = std::max(taken, high - std::min(high, around));
        const std::size_t wanted = StretchEnd(sample, high, begin + (limit - text.size()));
        // A stretch that the limit cuts ends where a character does.
        std::string_view stretch =
            sample.substr(begin, std::min(wanted + around, sample.size()) - begin);
        if (wanted >= begin + (limit - text.size()))
            stretch = WithoutPartialCharacters(stretch, {.start = true});
        text += stretch;
        text += '\n';
        taken = std::max(begin + stretch.size(), high + 1);
    }
    return text.size() < limit ? sample.size() : taken;
}

// Bytes that are rare in what was collected so far: a single letter may distinguish two charsets.
void CollectRareBytes(std::string_view sample, std::uint8_t (&known)[256], std::string& text) {
    constexpr std::size_t maxScanned = 128 * 1024, maxBytes = 2048;
    constexpr int enough = 3;
    sample = sample.substr(0, maxScanned);
    const std::size_t limit = text.size() + maxBytes;
    for (std::size_t at = NextHigh(sample, 0); at < sample.size() && text.size() < limit;
         at = NextHigh(sample, at + 1)) {
        std::uint8_t& count = known[static_cast<unsigned char>(sample[at])];
        if (count >= enough) continue;
        ++count;
        const std::size_t begin = at - std::min(at, around);
        text += WithoutPartialCharacters(sample.substr(begin, 2 * around), {});
        text += '\n';
    }
}

// How often each pair of bytes counts.
using PairCounts = std::unique_ptr<std::uint16_t[]>;

PairCounts CountAll(std::string_view text) {
    auto counts = std::make_unique<std::uint16_t[]>(0x10000);
    unsigned before = '\n';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        ++counts[before << 8 | byte];
        before = byte;
    }
    return counts;
}

// How many different ones there are, when each stands by itself in ASCII; else 0.
std::size_t CountLoneBytes(std::string_view text) {
    bool known[256] = {};
    std::size_t distinct = 0;
    bool before = false;
    for (const char c : text) {
        if (IsHigh(c) && before) return 0;
        before = IsHigh(c);
        if (before) distinct += !std::exchange(known[static_cast<unsigned char>(c)], true);
    }
    return distinct;
}

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

// Digits differ from one price to the next.
unsigned ContextOf(char byte) {
    return IsDigit(byte) ? '0' : static_cast<unsigned char>(byte);
}

bool IsBesideDigit(std::string_view text, std::size_t at) {
    const std::size_t before = text[at - 1] == ' ' && at >= 2 ? at - 2 : at - 1;
    const std::size_t after = text[at + 1] == ' ' && at + 2 < text.size() ? at + 2 : at + 1;
    return IsDigit(text[before]) || IsDigit(text[after]);
}

bool IsAsciiLetter(char byte) {
    return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
}

// "it's", "don't", with the apostrophe of Windows
bool IsContraction(std::string_view text, std::size_t at) {
    return text[at] == '\x92' && IsAsciiLetter(text[at - 1]) &&
           (text[at + 1] == 's' || text[at + 1] == 't') &&
           (at + 2 == text.size() || !IsAsciiLetter(text[at + 2]));
}

// Beside numbers, in contractions and as bullets stand signs, which say nothing new where they
// stand as before. Letters have ever other ones beside them. `few` is how many different ones there
// are.
std::size_t DiscountRepeatedSigns(std::string_view text, std::size_t few, PairCounts& counts) {
    std::vector<unsigned> known;
    std::size_t counted = 0;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (!IsHigh(text[i])) continue;
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool isBullet = few == 1 && text[i - 1] == '\n';
        const unsigned after = isBullet ? 0 : ContextOf(text[i + 1]);
        const unsigned context = ContextOf(text[i - 1]) << 16 | byte << 8u | after;
        const bool isKnown = std::ranges::find(known, context) != known.end();
        if (!isKnown) known.push_back(context);
        const bool isSign =
            isBullet || IsBesideDigit(text, i) || (few == 1 && IsContraction(text, i));
        if (!isKnown || !isSign) {
            ++counted;
            continue;
        }
        --counts[static_cast<unsigned char>(text[i - 1]) << 8 | byte];
        --counts[byte << 8 | static_cast<unsigned char>(text[i + 1])];
    }
    return counted;
}

bool HasMacLineEnds(std::string_view sample) {
    return sample.find('\r') != sample.npos && sample.find('\n') == sample.npos;
}

// Four times the same: letters do not stand so.
bool HasDosRules(std::string_view sample) {
    constexpr std::string_view rules[] = {"\xC4\xC4\xC4\xC4", "\xCD\xCD\xCD\xCD",
                                          "\xDB\xDB\xDB\xDB"};
    return std::ranges::any_of(
        rules, [&](std::string_view rule) { return sample.find(rule) != sample.npos; });
}

void CountPairs(ByteEvidence& evidence) {
    PairCounts counts = CountAll(evidence.text);
    constexpr std::size_t few = 3;
    const std::size_t lone = CountLoneBytes(evidence.text);
    evidence.highBytes =
        lone > 0 && lone <= few
            ? DiscountRepeatedSigns(evidence.text, lone, counts)
            : static_cast<std::size_t>(std::ranges::count_if(evidence.text, IsHigh));
    for (unsigned pair = 0; pair < 0x10000; ++pair) {
        if (counts[pair] == 0) continue;
        const auto first = static_cast<unsigned char>(pair >> 8);
        const auto second = static_cast<unsigned char>(pair);
        const bool ascii = first < 0x80 && second < 0x80;
        (ascii ? evidence.ascii : evidence.high).push_back({first, second, counts[pair]});
    }
    std::ranges::sort(evidence.high, std::greater<>(), &BytePair::count);
}
} // namespace

ByteEvidence GatherEvidence(std::span<const std::string_view> samples) {
    ByteEvidence evidence;
    if (samples.empty()) return evidence;
    evidence.text = "\n";
    std::vector<std::string_view> rests;
    const std::size_t share =
        samples.size() > 1 ? (maxTotal - maxFromStart) / (samples.size() - 1) : maxTotal;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const bool alone = samples.size() == 1;
        const std::string_view part =
            WithoutPartialCharacters(samples[i], {.start = i == 0, .end = alone});
        const std::size_t taken = CollectStretches(part,
                                                   alone    ? maxTotal
                                                   : i == 0 ? maxFromStart
                                                            : share,
                                                   evidence.text);
        rests.push_back(part.substr(taken));
    }
    std::uint8_t known[256] = {};
    for (const char byte : evidence.text) {
        std::uint8_t& count = known[static_cast<unsigned char>(byte)];
        count = static_cast<std::uint8_t>(std::min(count + 1, 255));
    }
    for (const std::string_view rest : rests)
        CollectRareBytes(rest, known, evidence.text);
    constexpr std::size_t lookedThrough = 16 * 1024;
    evidence.macLineEnds = HasMacLineEnds(samples[0].substr(0, lookedThrough));
    evidence.dosRules = HasDosRules(samples[0].substr(0, lookedThrough));
    CountPairs(evidence);
    for (const BytePair& pair : evidence.high)
        evidence.seen[pair.first] = evidence.seen[pair.second] = true;
    for (const BytePair& pair : evidence.ascii)
        evidence.seen[pair.first] = evidence.seen[pair.second] = true;
    return evidence;
}
