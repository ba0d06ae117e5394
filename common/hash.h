// A hash of short texts that is the same in every run and on every system (FNV-1a, 32 bits).
#pragma once

#include <cstdint>
#include <string_view>

template <class Unit>
constexpr std::uint32_t Fnv1a(std::basic_string_view<Unit> text) {
    static_assert(sizeof(Unit) <= sizeof(char16_t));
    constexpr std::uint32_t mask = sizeof(Unit) == 1 ? 0xFF : 0xFFFF; // a char may be negative
    std::uint32_t hash = 2'166'136'261;
    for (const Unit unit : text)
        hash = (hash ^ (static_cast<std::uint32_t>(unit) & mask)) * 16'777'619;
    return hash;
}
