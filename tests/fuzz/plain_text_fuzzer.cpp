// The decoder of plain text: any bytes, read as themselves and in every code page.
#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/plain/plain_text.h"
#include "tests/fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

constexpr int pages[] = {437,   850,   852,   866,   874,   932,   936,   949,   950,   1250,
                         1251,  1252,  1253,  1254,  1255,  1256,  1257,  1258,  1361,  10000,
                         10001, 10006, 10007, 10029, 10081, 20866, 28592, 28593, 28594, 28595,
                         28596, 28597, 28598, 28599, 28600, 28601, 28603, 28604, 28605, 54936,
                         65001, 720,   864,   21866, 28606, 51932, 51950, 70001, 70002, 70003,
                         70004, 38598, 50220, 50225, 50227, 52936, 0};

bool HasLoneSurrogate(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((text[i] & 0xF800) != 0xD800) continue;
        const bool pair =
            (text[i] & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (!pair) return true;
        ++i;
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Require(IsValidUtf8(bytes) == (ValidUtf8Length(bytes) == size));
    for (const int page : {0, 932, 936, 1251}) {
        const DecodedText decoded = DecodePlainText(bytes, page, 1252);
        Require(decoded.text.find(u'\0') == std::u16string::npos);
        Require(decoded.text.size() <= size + 1);
        Require(!HasLoneSurrogate(decoded.text));
        Require((decoded.codePage != 0) == (decoded.encoding == TextEncoding::CodePage));
    }
    for (const int page : pages) {
        std::u16string text;
        DecodeCodePage(page, bytes, text);
        Require(text.size() <= size);
        Require(!HasLoneSurrogate(text));
    }
    return 0;
}
