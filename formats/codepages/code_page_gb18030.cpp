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

std::string SequenceOf(unsigned index) {
    const unsigned bytes[] = {0x81 + index / 12600, 0x30 + index / 1260 % 10,
                              0x81 + index / 10 % 126, 0x30 + index % 10};
    return {std::begin(bytes), std::end(bytes)};
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

void AddFourByteSequences(char32_t character, std::vector<std::string>& sequences) {
    if (character >= 0x10000)
        sequences.push_back(SequenceOf(supplementaryIndex + (character - 0x10000)));
    for (const FourByteRange* range = std::begin(fourByteRanges); range != std::end(fourByteRanges);
         ++range) {
        const bool last = range + 1 == std::end(fourByteRanges);
        const unsigned count = (last ? bmpFourBytes : range[1].index) - range->index;
        if (character >= range->unit && character - range->unit < count)
            sequences.push_back(SequenceOf(range->index + (character - range->unit)));
    }
}
