#include "platform/windows/portable/elided_text.h"

#include "common/utf.h"

namespace {
// With `kept` units of the text or one or two less.
std::u16string Elided(std::u16string_view text, std::size_t kept) {
    std::size_t head = (kept + 1) / 2, tail = text.size() - kept / 2;
    if (head > 0 && head < text.size() && IsLowSurrogate(text[head])) --head;
    if (tail < text.size() && IsLowSurrogate(text[tail])) ++tail;
    return std::u16string(text.substr(0, head)) + u'\u2026' + std::u16string(text.substr(tail));
}
} // namespace

std::u16string ElidedInMiddle(std::u16string_view text, int maxWidth,
                              const std::function<int(std::u16string_view)>& width) {
    if (width(text) <= maxWidth) return std::u16string(text);
    std::size_t fits = 0, tooMany = text.size();
    while (tooMany - fits > 1) {
        const std::size_t kept = (fits + tooMany) / 2;
        (width(Elided(text, kept)) <= maxWidth ? fits : tooMany) = kept;
    }
    return Elided(text, fits);
}
