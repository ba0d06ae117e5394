// A sum over bytes that compilers vectorise.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The sum of weight(at) over all bytes; `at` points to the byte, and the weight is at most 2. There
// are 32 partial sums of a byte each, added to the total before they can overflow.
template <class Weight>
std::size_t SumOverBytes(std::string_view bytes, Weight weight) {
    constexpr std::size_t lanes = 32, maxRounds = 127;
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = at + bytes.size();
    std::size_t sum = 0;
    while (static_cast<std::size_t>(end - at) >= lanes) {
        std::uint8_t sums[lanes] = {};
        const std::size_t rounds = std::min(maxRounds, static_cast<std::size_t>(end - at) / lanes);
        for (std::size_t round = 0; round < rounds; ++round, at += lanes)
            for (std::size_t lane = 0; lane < lanes; ++lane)
                sums[lane] = static_cast<std::uint8_t>(sums[lane] + weight(at + lane));
        for (const std::uint8_t each : sums)
            sum += each;
    }
    for (; at != end; ++at)
        sum += static_cast<std::size_t>(weight(at));
    return sum;
}
