#include "formats/html_charset.h"

#include "common/decode_pieces.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text.h"
#include "formats/plain/plain_text_guess.h"

#include <algorithm>
#include <iterator>

namespace {
struct PageCharset {
    int page;
    std::string_view name;
};

// Of the Encoding Standard.
constexpr PageCharset charsets[] = {
    {utf8Page, "UTF-8"},
    {866, "IBM866"},
    {874, "windows-874"},
    {932, "Shift_JIS"},
    {936, "GBK"},
    {949, "EUC-KR"},
    {950, "Big5"},
    {1250, "windows-1250"},
    {1251, "windows-1251"},
    {1252, "windows-1252"},
    {1253, "windows-1253"},
    {1254, "windows-1254"},
    {1255, "windows-1255"},
    {1256, "windows-1256"},
    {1257, "windows-1257"},
    {1258, "windows-1258"},
    {10000, "macintosh"},
    {10007, "x-mac-cyrillic"},
    {20866, "KOI8-R"},
    {21866, "KOI8-U"},
    {28591, "windows-1252"},
    {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},
    {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},
    {28599, "windows-1254"},
    {28600, "ISO-8859-10"},
    {28601, "windows-874"},
    {28603, "ISO-8859-13"},
    {28604, "ISO-8859-14"},
    {28605, "ISO-8859-15"},
    {28606, "ISO-8859-16"},
    {iso2022JpPage, "ISO-2022-JP"},
    {51932, "EUC-JP"},
};

int GuessedPage(std::string_view start, int systemPage) {
    if (const auto marked = MarkedForm(start)) return marked->codePage;
    if (IsAscii(start)) return 0;
    if (LooksLikeUtf8(start)) return utf8Page;
    const PlainTextForm form = CodePageForm({&start, 1}, 0, systemPage);
    return form.encoding == TextEncoding::Utf8 ? utf8Page : form.codePage;
}
} // namespace

std::string GuessedPageCharset(std::string_view start, int systemPage) {
    const int page = GuessedPage(start.substr(0, guessSample), systemPage);
    const auto charset = std::ranges::find(charsets, page, &PageCharset::page);
    return charset == std::end(charsets) ? "" : std::string(charset->name);
}
