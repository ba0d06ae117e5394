// The frame of every byte decoder: ASCII eight bytes at a time, and appending to the text in pieces
// that stay in the processor's cache. So memory is touched only for the text there is, and a step
// never asks whether it has room.
#pragma once

#include "common/surrogates.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

// The number of ASCII bytes at the start of [at, stop), counted in whole groups of eight.
inline std::size_t AsciiLength(const unsigned char* at, const unsigned char* stop) {
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    const unsigned char* const start = at;
    std::uint64_t groups[4];
    for (; stop - at >= 32; at += 32) {
        std::memcpy(groups, at, 32);
        if (((groups[0] | groups[1] | groups[2] | groups[3]) & highBits) != 0) break;
    }
    for (; stop - at >= 8; at += 8) {
        std::memcpy(groups, at, 8);
        if ((groups[0] & highBits) != 0) break;
    }
    return static_cast<std::size_t>(at - start);
}

inline bool IsAscii(std::string_view bytes) {
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    const std::string_view rest = bytes.substr(AsciiLength(start, start + bytes.size()));
    return std::all_of(rest.begin(), rest.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// Writes a character as one unit or two; returns where the next one goes.
inline char16_t* PutUtf16(char32_t value, char16_t* out) {
    if (value < 0x10000) {
        *out++ = static_cast<char16_t>(value);
    } else {
        *out++ = HighSurrogateOf(value);
        *out++ = LowSurrogateOf(value);
    }
    return out;
}

// `step(at, stop, end, out)` moves `at` and `out` past at least one character, a byte or more each
// for every unit written. It begins none at `stop` or later, but may read on to `end`, 7 bytes
// beyond `stop` at most.
template <class Step>
void DecodeInPieces(std::string_view bytes, std::u16string& text, Step step) {
    constexpr std::ptrdiff_t pieceBytes = 8192;
    char16_t piece[pieceBytes + 8];
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char* const end = at + bytes.size();
    while (at != end) {
        const unsigned char* const stop = at + std::min(pieceBytes, end - at);
        char16_t* out = piece;
        while (at < stop) {
            const unsigned char* const other = at + AsciiLength(at, stop);
            out = std::copy(at, other, out);
            at = other;
            if (at < stop) step(at, stop, end, out);
        }
        text.append(piece, out);
    }
}
