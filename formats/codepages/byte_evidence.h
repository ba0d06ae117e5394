// The evidence for the charset of a plain text: its bytes that are not ASCII, with their context.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct BytePair {
    unsigned char first, second;
    int count;
};

struct ByteEvidence {
    std::string text;           // stretches of the samples, a line end before and after each
    std::size_t highBytes = 0;  // of it, from 0x80 on
    std::vector<BytePair> high; // pairs with such a byte, commonest first
    std::vector<BytePair> ascii;
    bool macLineEnds = false; // CR alone
    bool dosRules = false;    // lines drawn by signs of DOS
    bool seen[256] = {};      // anywhere in the samples that were looked through
};

// From a sample that begins with the text and others from within it; a byte of another sample that
// begins or ends within a character does not count.
ByteEvidence GatherEvidence(std::span<const std::string_view> samples);
