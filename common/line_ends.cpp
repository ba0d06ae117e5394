#include "common/line_ends.h"

#include <algorithm>

namespace {
constexpr std::ptrdiff_t blockSize = 32;

// Without a branch, so that the compiler compares several units at once.
bool HasReturn(const char16_t* block) {
    char16_t found = 0;
    for (std::ptrdiff_t i = 0; i < blockSize; ++i)
        found = static_cast<char16_t>(found | (block[i] == u'\r'));
    return found != 0;
}

const char16_t* FindReturn(const char16_t* at, const char16_t* end) {
    while (end - at >= blockSize && !HasReturn(at))
        at += blockSize;
    return std::find(at, end, u'\r');
}
} // namespace

void UnifyLineEnds(std::u16string& text) {
    const char16_t* at = text.data();
    const char16_t* const end = at + text.size();
    char16_t* to = text.data();
    for (;;) {
        const char16_t* const lineEnd = FindReturn(at, end);
        to = to == at ? to + (lineEnd - at) : std::copy(at, lineEnd, to);
        if (lineEnd == end) break;
        *to++ = u'\n';
        at = lineEnd + 1;
        if (at != end && *at == u'\n') ++at;
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
}
