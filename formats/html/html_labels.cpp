#include "formats/html/html_labels.h"

#include "common/text.h"
#include "formats/codepages/code_pages.h"

#include <algorithm>
#include <string>

namespace {

struct PageLabels {
    int page;
    std::string_view labels; // with blanks between, before and after
};

// The table of the Encoding Standard's section "Names and labels". The labels of its encoding
// "replacement" are left out: our guess reads such texts.
constexpr PageLabels pages[] = {
    {utf8Page, " unicode-1-1-utf-8 unicode11utf8 unicode20utf8 utf-8 utf8 x-unicode20utf8 "
               "unicodefffe utf-16be csunicode iso-10646-ucs-2 ucs-2 unicode unicodefeff utf-16 "
               "utf-16le "},
    {866, " 866 cp866 csibm866 ibm866 "},
    {28592, " csisolatin2 iso-8859-2 iso-ir-101 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 l2 "
            "latin2 "},
    {28593, " csisolatin3 iso-8859-3 iso-ir-109 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 l3 "
            "latin3 "},
    {28594, " csisolatin4 iso-8859-4 iso-ir-110 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 l4 "
            "latin4 "},
    {28595, " csisolatincyrillic cyrillic iso-8859-5 iso-ir-144 iso8859-5 iso88595 iso_8859-5 "
            "iso_8859-5:1988 "},
    {28596, " arabic asmo-708 csiso88596e csiso88596i csisolatinarabic ecma-114 iso-8859-6 "
            "iso-8859-6-e iso-8859-6-i iso-ir-127 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987 "},
    {28597, " csisolatingreek ecma-118 elot_928 greek greek8 iso-8859-7 iso-ir-126 iso8859-7 "
            "iso88597 iso_8859-7 iso_8859-7:1987 sun_eu_greek "},
    {visualIsoPage,
     " csiso88598e csisolatinhebrew hebrew iso-8859-8 iso-8859-8-e iso-ir-138 iso8859-8 "
     "iso88598 iso_8859-8 iso_8859-8:1988 visual "},
    {logicalIsoPage, " csiso88598i iso-8859-8-i logical "},
    {28600, " csisolatin6 iso-8859-10 iso-ir-157 iso8859-10 iso885910 l6 latin6 "},
    {28603, " iso-8859-13 iso8859-13 iso885913 "},
    {28604, " iso-8859-14 iso8859-14 iso885914 "},
    {28605, " csisolatin9 iso-8859-15 iso8859-15 iso885915 iso_8859-15 l9 "},
    {28606, " iso-8859-16 "},
    {20866, " cskoi8r koi koi8 koi8-r koi8_r "},
    {21866, " koi8-ru koi8-u "},
    {10000, " csmacintosh mac macintosh x-mac-roman "},
    {10007, " x-mac-cyrillic x-mac-ukrainian "},
    {874, " dos-874 iso-8859-11 iso8859-11 iso885911 tis-620 windows-874 "},
    {1250, " cp1250 windows-1250 x-cp1250 "},
    {1251, " cp1251 windows-1251 x-cp1251 "},
    {1252, " ansi_x3.4-1968 ascii cp1252 cp819 csisolatin1 ibm819 iso-8859-1 iso-ir-100 iso8859-1 "
           "iso88591 iso_8859-1 iso_8859-1:1987 l1 latin1 us-ascii windows-1252 x-cp1252 "
           "x-user-defined "},
    {1253, " cp1253 windows-1253 x-cp1253 "},
    {1254, " cp1254 csisolatin5 iso-8859-9 iso-ir-148 iso8859-9 iso88599 iso_8859-9 "
           "iso_8859-9:1989 l5 latin5 windows-1254 x-cp1254 "},
    {1255, " cp1255 windows-1255 x-cp1255 "},
    {1256, " cp1256 windows-1256 x-cp1256 "},
    {1257, " cp1257 windows-1257 x-cp1257 "},
    {1258, " cp1258 windows-1258 x-cp1258 "},
    {936, " chinese csgb2312 csiso58gb231280 gb2312 gb_2312 gb_2312-80 gbk iso-ir-58 x-gbk "},
    {54936, " gb18030 "},
    {950, " big5 big5-hkscs cn-big5 csbig5 x-x-big5 "},
    {51932, " cseucpkdfmtjapanese euc-jp x-euc-jp "},
    {50220, " csiso2022jp iso-2022-jp "},
    {932, " csshiftjis ms932 ms_kanji shift-jis shift_jis sjis windows-31j x-sjis "},
    {949, " cseuckr csksc56011987 euc-kr iso-ir-149 korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 "
          "ksc_5601 windows-949 "},
};

} // namespace

int HtmlLabelCodePage(std::string_view label) {
    label = Trim(label);
    constexpr std::size_t maxLabel = 32; // the longest has 20
    if (label.empty() || label.size() > maxLabel || label.find(' ') != label.npos) return 0;
    std::string word = " " + std::string(label) + " ";
    for (char& byte : word)
        if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte | 0x20);
    const auto page = std::ranges::find_if(
        pages, [&](const PageLabels& one) { return one.labels.find(word) != one.labels.npos; });
    return page == std::end(pages) ? 0 : page->page;
}
