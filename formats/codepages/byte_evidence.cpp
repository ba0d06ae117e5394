#include "formats/codepages/byte_evidence.h"

#include "common/decode_pieces.h"

#include <algorithm>
#include <memory>

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

// A part of a text without what may be half a character at its ends.
std::string_view WithoutPartialCharacters(std::string_view part, bool fromStart, bool toEnd) {
    constexpr std::size_t maxScanned = 512;
    if (!fromStart) {
        const auto line = part.substr(0, maxScanned).find_first_of("\n\r");
        const auto* const blank = std::ranges::find_if(part.substr(0, maxScanned), IsBoundary);
        if (line != part.npos)
            part.remove_prefix(line);
        else if (blank != part.substr(0, maxScanned).end())
            part.remove_prefix(static_cast<std::size_t>(blank - part.begin()));
    }
    if (!toEnd) {
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
            stretch = WithoutPartialCharacters(stretch, true, false);
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
        text += WithoutPartialCharacters(sample.substr(begin, 2 * around), false, false);
        text += '\n';
    }
}

void CountPairs(ByteEvidence& evidence) {
    const auto counts = std::make_unique<std::uint16_t[]>(0x10000);
    unsigned before = '\n';
    for (const char c : evidence.text) {
        const auto byte = static_cast<unsigned char>(c);
        evidence.highBytes += byte >= 0x80;
        ++counts[before << 8 | byte];
        before = byte;
    }
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
        const std::string_view part = WithoutPartialCharacters(samples[i], i == 0, alone);
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
    CountPairs(evidence);
    for (const BytePair& pair : evidence.high)
        evidence.seen[pair.first] = evidence.seen[pair.second] = true;
    for (const BytePair& pair : evidence.ascii)
        evidence.seen[pair.first] = evidence.seen[pair.second] = true;
    return evidence;
}
