// Which charset the bytes of a plain text without a mark are in: among those that the bytes can be,
// the one in which they read as a language.
#pragma once

#include <span>
#include <string_view>
#include <vector>

struct CharsetGuess {
    int page = 0; // a code page that DecodeCodePage knows
    int bits = 0; // by how much it is less likely than the first, as a power of two
    const char* language = "";
};

// All that are thinkable, likeliest first. The samples are of one text: its start and, of a long
// one, others from within it. `systemPage` is taken when others are not clearly likelier.
std::vector<CharsetGuess> GuessCharsets(std::span<const std::string_view> samples, int systemPage);

// Of the charsets for the script of a Windows code page the likeliest; that page itself in doubt,
// and when it is none of Windows.
int GuessCharsetOfScript(std::span<const std::string_view> samples, int windowsPage);

// That page, of a charset for the same letters; 0 when there is none.
int WindowsPageOfScript(int codePage);
