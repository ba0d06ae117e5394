#include "formats/codepages/code_page_gb18030.h"

#include "formats/codepages/code_page_tables.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr unsigned supplementaryIndex =
    189000; // of the sequence for U+10000; from there on without gaps

bool IsDigit(unsigned char byte) {
    return byte >= 0x30 && byte <= 0x39;
}
bool IsHigh(unsigned char byte) {
    return byte >= 0x81 && byte <= 0xFE;
}

unsigned SequenceIndex(const unsigned char* bytes) {
    return (((bytes[0] - 0x81u) * 10 + (bytes[1] - 0x30u)) * 126 + (bytes[2] - 0x81u)) * 10 +
           (bytes[3] - 0x30u);
}

} // namespace

bool IsFourByteSequence(const unsigned char* bytes) {
    return IsHigh(bytes[0]) && IsDigit(bytes[1]) && IsHigh(bytes[2]) && IsDigit(bytes[3]);
}

char32_t FourByteCharacter(const unsigned char* bytes) {
    const unsigned index = SequenceIndex(bytes);
    if (index < bmpFourBytes) {
        const auto* const range =
            std::upper_bound(
                std::begin(fourByteRanges), std::end(fourByteRanges), index,
                [](unsigned wanted, const FourByteRange& r) { return wanted < r.index; }) -
            1; // the first range begins at 0
        return range->unit + (index - range->index);
    }
    const bool supplementary = index >= supplementaryIndex && index < supplementaryIndex + 0x100000;
    return supplementary ? 0x10000 + (index - supplementaryIndex) : undefinedUnit;
}
