#include "formats/plain/pattern_search.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {
std::string DrawnBytes(std::mt19937& random, std::size_t length) {
    constexpr std::string_view bytes = "aaaabbbAABcC\xD0\xD1\x80\xFF\0z";
    std::string drawn(length, ' ');
    for (char& byte : drawn)
        byte = bytes[random() % bytes.size()];
    return drawn;
}

std::vector<std::size_t> PlacesOneByOne(const BytePattern& pattern, std::string_view bytes,
                                        std::size_t begin, std::size_t end) {
    std::vector<std::size_t> places;
    for (std::size_t at = begin; at < std::min(end, bytes.size()); ++at)
        if (IsAt(pattern, bytes, at)) places.push_back(at);
    return places;
}
} // namespace

TEST_CASE("pattern search: the same places as one by one, whatever the sample shows") {
    std::mt19937 random(12); // NOLINT: the same bytes every time
    const std::string samples[] = {"", DrawnBytes(random, 3), DrawnBytes(random, 4096),
                                   std::string(4096, 'z'), std::string(4096, 'a')};
    for (int round = 0; round < 2000; ++round) {
        const std::string bytes = DrawnBytes(random, random() % 600);
        BytePattern pattern = PatternOf(DrawnBytes(random, 1 + random() % 6));
        for (MaskedByte& byte : pattern)
            if (random() % 2) byte = {0x20, static_cast<unsigned char>(byte.value | 0x20)};
        const std::size_t begin = random() % (bytes.size() + 1), end = begin + random() % 400;
        for (const std::string& sample : samples) {
            std::vector<std::size_t> places;
            PatternSearch(pattern, ByteSample(sample)).AddPlaces(bytes, begin, end, places);
            std::sort(places.begin(), places.end());
            CHECK(places == PlacesOneByOne(pattern, bytes, begin, end));
        }
    }
}

TEST_CASE("pattern search: patterns are joined while enough of each byte stays known") {
    const auto joined = Joined(PatternOf("\xD0\xB0"), PatternOf("\xD0\x90")); // small a, capital
    REQUIRE(joined);
    CHECK(IsAt(*joined, "\xD0\xB0", 0));
    CHECK(IsAt(*joined, "-\xD0\x90", 1));
    CHECK_FALSE(IsAt(*joined, "\xD1\xB0", 0));
    CHECK_FALSE(IsAt(*joined, "\xD0", 0));
    CHECK_FALSE(Joined(PatternOf("a"), PatternOf("ab")));
    CHECK_FALSE(Joined(PatternOf(std::string(1, '\0')), PatternOf("\x0F")));
}
