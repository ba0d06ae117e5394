#include "formats/codepages/charsets.h"

#include <algorithm>

namespace {
struct NamedPage {
    std::string_view name;
    int codePage;
};

constexpr NamedPage namedPages[] = {
    {"pc437", 437},         {"windows-874", 874},   {"shift_jis", 932},     {"euc-cn", 936},
    {"euc-kr", 949},        {"big5", 950},          {"windows-1250", 1250}, {"windows-1251", 1251},
    {"windows-1252", 1252}, {"windows-1253", 1253}, {"windows-1254", 1254}, {"windows-1255", 1255},
    {"windows-1256", 1256}, {"windows-1257", 1257}, {"windows-1258", 1258}, {"johab", 1361},
};
constexpr int unicodePage = 1200;

struct Pair {
    int codePage, charset;
};

constexpr Pair pairs[] = {
    {1252, 0},   {932, 128},  {949, 129},  {1361, 130}, {936, 134},
    {950, 136},  {1253, 161}, {1254, 162}, {1258, 163}, {1255, 177},
    {1256, 178}, {1257, 186}, {1251, 204}, {874, 222},  {1250, 238},
};
} // namespace

int CharsetCodePage(std::string_view name) {
    const auto page = std::ranges::find(namedPages, name, &NamedPage::name);
    return page == std::end(namedPages) ? unicodePage : page->codePage;
}

namespace {
struct Alias {
    std::string_view name, tableName;
};

// Names that mean a page of the table, or one that its characters are the most part of.
constexpr Alias aliases[] = {
    {"gbk", "euc-cn"},
    {"gb2312", "euc-cn"},
    {"gb18030", "euc-cn"},
    {"x-gbk", "euc-cn"},
    {"hz-gb-2312", "euc-cn"},
    {"windows-31j", "shift_jis"},
    {"shift-jis", "shift_jis"},
    {"x-sjis", "shift_jis"},
    {"ks_c_5601-1987", "euc-kr"},
    {"windows-949", "euc-kr"},
    {"big5-hkscs", "big5"},
    {"tis-620", "windows-874"},
    {"iso-8859-11", "windows-874"},
    {"ibm437", "pc437"},
};
} // namespace

std::string CharsetTableName(std::string_view engineName) {
    std::string name(engineName);
    for (char& letter : name)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    const auto alias = std::ranges::find(aliases, name, &Alias::name);
    return alias == std::end(aliases) ? name : std::string(alias->tableName);
}

int CodePageToCharset(int codePage) {
    const auto pair = std::ranges::find(pairs, codePage, &Pair::codePage);
    return pair == std::end(pairs) ? 0 : pair->charset;
}

int CharsetToCodePage(int charset) {
    constexpr int oemCharset = 254;
    if (charset == oemCharset) return 437;
    const auto pair = std::ranges::find(pairs, charset, &Pair::charset);
    return pair == std::end(pairs) ? 0 : pair->codePage;
}
