// Detects the charset of a plain text without a byte-order mark: of those in which its bytes are
// valid, the one in which they read most like a language.
#pragma once

#include <span>
#include <string_view>
#include <vector>

struct CharsetGuess {
    int page = 0; // a code page that DecodeCodePage knows
    int bits = 0; // by how much it is less likely than the first, as a power of two
    const char* language = "";
};

// All plausible ones, likeliest first. The samples are of one text: its start and, of a long
// one, others from within it. `systemPage` wins unless another is clearly likelier.
std::vector<CharsetGuess> GuessCharsets(std::span<const std::string_view> samples, int systemPage);

// Of the charsets for the script of a Windows code page the likeliest; that page itself in doubt,
// and when it is none of Windows.
int GuessCharsetOfScript(std::span<const std::string_view> samples, int windowsPage);

// The Windows code page for the script of a charset; 0 when there is none.
int WindowsPageOfScript(int codePage);
