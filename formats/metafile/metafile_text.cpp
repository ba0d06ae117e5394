#include "formats/metafile/metafile_text.h"

#include "formats/codepages/code_pages.h"
#include "formats/codepages/symbol_fonts.h"

#include <algorithm>

std::u16string TextOfMetaBytes(std::string_view bytes, int charset) {
    constexpr int windowsLatin = 1252, symbolCharset = 2;
    std::u16string text;
    if (charset == symbolCharset) {
        for (const char byte : bytes)
            text += static_cast<char16_t>(
                SymbolOfByte(SymbolSet::Symbol, static_cast<unsigned char>(byte)));
    } else {
        const int page = CodePageOfFontCharset(charset);
        DecodeCodePage(page == 0 ? windowsLatin : page, bytes, text);
    }
    return ShownMetaText(std::move(text));
}

std::u16string ShownMetaText(std::u16string text) {
    std::erase_if(text, [](char16_t unit) { return unit < 0x20; });
    return text;
}
