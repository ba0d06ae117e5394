#include "formats/plain/pattern_search.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {
// What it costs to look through a byte of text, where one pass of `memchr` costs 1, and to stop at
// a place on the way; as measured.
constexpr std::size_t byTwoCost = 5, stopCost = 900, hitCost = 1200;

std::vector<char> BytesThatFit(MaskedByte masked) {
    std::vector<char> bytes;
    for (int byte = 0; byte < 0x100; ++byte)
        if (masked.Fits(static_cast<char>(byte))) bytes.push_back(static_cast<char>(byte));
    return bytes;
}

// A pattern's byte that is seldom found together with this one.
struct Partner {
    std::size_t offset = 0, count = 0; // of the places where both are
};

Partner PartnerOf(const BytePattern& pattern, std::size_t first, const ByteSample& sample) {
    const std::string_view bytes = sample.bytes;
    const std::size_t places = bytes.size() - std::min(bytes.size(), pattern.size() - 1);
    Partner best{first, sample.CountOf(pattern[first])};
    for (const std::size_t offset : sample.RarestOf(pattern)) {
        std::size_t count = 0;
        for (std::size_t i = 0; i < places; ++i)
            count +=
                pattern[first].Fits(bytes[i + first]) & pattern[offset].Fits(bytes[i + offset]);
        if (count < best.count) best = {offset, count};
    }
    return best;
}

constexpr std::size_t blockSize = 128;

// 0 where both bytes fit. Without a branch, so that the compiler looks at many places at once.
char Misfit(char a, char b, MaskedByte first, MaskedByte second) {
    return static_cast<char>(((a | first.mask) ^ first.value) | ((b | second.mask) ^ second.value));
}

// Whether both bytes fit in a place of a block; `as` and `bs` are where they are in the first.
bool IsInBlock(const char* as, const char* bs, MaskedByte first, MaskedByte second) {
    unsigned char least = 0xFF;
    for (std::size_t i = 0; i < blockSize; ++i)
        least = std::min(least, static_cast<unsigned char>(Misfit(as[i], bs[i], first, second)));
    return least == 0;
}
} // namespace

ByteSample::ByteSample(std::string_view sample) : bytes(sample) {
    for (const char byte : sample)
        ++counts[static_cast<unsigned char>(byte)];
}

std::size_t ByteSample::CountOf(MaskedByte masked) const {
    std::size_t count = 0;
    for (std::size_t byte = 0; byte < counts.size(); ++byte)
        if (masked.Fits(static_cast<char>(byte))) count += counts[byte];
    return count;
}

std::vector<std::size_t> ByteSample::RarestOf(const BytePattern& pattern) const {
    constexpr std::size_t most = 6;
    std::vector<std::size_t> countAt(pattern.size()), places(pattern.size());
    for (std::size_t i = 0; i < pattern.size(); ++i)
        countAt[i] = CountOf(pattern[i]);
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(),
                     [&](std::size_t a, std::size_t b) { return countAt[a] < countAt[b]; });
    places.resize(std::min(places.size(), most));
    return places;
}

PatternSearch::PatternSearch(const BytePattern& pattern, const ByteSample& sample)
    : pattern_(pattern) {
    const std::size_t size = std::max<std::size_t>(sample.bytes.size(), 1);
    std::size_t least = std::numeric_limits<std::size_t>::max();
    const std::vector<std::size_t> rarest = sample.RarestOf(pattern);
    for (const std::size_t offset : rarest) {
        std::vector<char> values = BytesThatFit(pattern[offset]);
        const std::size_t cost = values.size() * size + stopCost * sample.CountOf(pattern[offset]);
        if (cost >= least) continue;
        least = cost;
        first_ = offset;
        values_ = std::move(values);
    }
    if (least <= byTwoCost * size) return;
    const Partner partner = PartnerOf(pattern, rarest.front(), sample);
    if (least <= byTwoCost * size + hitCost * partner.count) return;
    first_ = rarest.front();
    second_ = partner.offset;
    values_.clear();
}

void PatternSearch::AddPlaces(std::string_view bytes, std::size_t begin, std::size_t end,
                              std::vector<std::size_t>& places) const {
    if (bytes.size() < pattern_.size()) return;
    end = std::min(end, bytes.size() - pattern_.size() + 1);
    if (begin >= end) return;
    if (values_.empty())
        AddByTwo(bytes, begin, end, places);
    else
        AddByOne(bytes, begin, end, places);
}

void PatternSearch::AddByOne(std::string_view bytes, std::size_t begin, std::size_t end,
                             std::vector<std::size_t>& places) const {
    const std::string_view searched = bytes.substr(0, end + first_);
    for (const char value : values_)
        for (std::size_t at = searched.find(value, begin + first_); at != searched.npos;
             at = searched.find(value, at + 1))
            if (IsAt(pattern_, bytes, at - first_)) places.push_back(at - first_);
}

void PatternSearch::AddByTwo(std::string_view bytes, std::size_t begin, std::size_t end,
                             std::vector<std::size_t>& places) const {
    const MaskedByte first = pattern_[first_], second = pattern_[second_];
    const char *const as = bytes.data() + first_, *const bs = bytes.data() + second_;
    for (; begin < end; begin += blockSize) {
        const std::size_t size = std::min(blockSize, end - begin);
        if (size == blockSize && !IsInBlock(as + begin, bs + begin, first, second)) continue;
        char misfits[blockSize];
        for (std::size_t i = 0; i < size; ++i)
            misfits[i] = Misfit(as[begin + i], bs[begin + i], first, second);
        const std::string_view marks(misfits, size);
        for (std::size_t i = marks.find('\0'); i != marks.npos; i = marks.find('\0', i + 1))
            if (IsAt(pattern_, bytes, begin + i)) places.push_back(begin + i);
    }
}
