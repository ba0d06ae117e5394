// Decodes texts as a book is decoded, for comparisons by bench/charsets.py: from the standard input
// the length of each (four bytes, little-endian) and its bytes; to the standard output the same of
// its text in UTF-8, after a line with the code page (0 for Unicode).
#include "common/utf.h"
#include "formats/plain/plain_text.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    const int systemPage = argc > 1 ? std::atoi(argv[1]) : 1252;
    std::uint32_t length = 0;
    std::string bytes;
    while (std::fread(&length, sizeof length, 1, stdin) == 1) {
        bytes.resize(length);
        if (std::fread(bytes.data(), 1, length, stdin) != length) return 1;
        const DecodedText decoded = DecodePlainText(bytes, 0, systemPage);
        const std::string text = Utf16ToUtf8(decoded.text);
        std::printf("%d\n", decoded.codePage);
        const auto size = static_cast<std::uint32_t>(text.size());
        std::fwrite(&size, sizeof size, 1, stdout);
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
    }
    return 0;
}
