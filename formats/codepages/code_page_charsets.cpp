#include "formats/codepages/code_pages.h"

#include <algorithm>
#include <iterator>

namespace {

// RTF 1.9.1, \fcharset. For a Macintosh set whose own page we do not have: the Windows page of its
// script, when that gives the same characters for the letters (Hangul, Chinese, Thai).
constexpr struct {
    int charset, page;
} charsetPages[] = {
    {0, 1252},   {77, 10000}, {78, 10001}, {79, 949},   {80, 936},   {81, 950},
    {85, 10006}, {86, 10081}, {87, 874},   {88, 10029}, {89, 10007}, {128, 932},
    {129, 949},  {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
    {163, 1258}, {177, 1255}, {178, 1256}, {179, 1256}, {180, 1256}, {181, 1255},
    {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

} // namespace

int CodePageOfFontCharset(int charset) {
    const auto* const found =
        std::find_if(std::begin(charsetPages), std::end(charsetPages),
                     [=](const auto& entry) { return entry.charset == charset; });
    return found == std::end(charsetPages) ? 0 : found->page;
}
