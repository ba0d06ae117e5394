#include "formats/html_charset.h"

#include <doctest/doctest.h>

TEST_CASE("html charset: of a page that declares none the guess, by the name that browsers know") {
    const struct {
        std::string bytes;
        const char* charset;
    } rows[] = {
        {"<html><p>\xC3\xEB\xE0\xE2\xE0 \xEF\xE5\xF0\xE2\xE0\xFF. \xCC\xE5\xEB\xFC\xED\xE8\xEA "
         "\xF1\xF7\xE8\xF2\xE0\xEB \xF4\xEE\xED\xE0\xF0\xE8.",
         "windows-1251"},
        {"<p>\xE2\xEB\xA0\xAF \xE0\xAE\xE1\xE1\xA8\xEF, \xAC\xA5\xAB\xEC\xAD\xA8\xAA "
         "\xE1\xE7\xA8\xE2\xA0\xAB",
         "IBM866"},
        {"<p>"
         "\xA4\xB3\xA4\xF3\xA4\xCB\xA4\xC1\xA4\xCF\xA1\xA3\xA4\xB5\xA4\xE8\xA4\xA6\xA4\xCA\xA4\xE9",
         "EUC-JP"},
        {"<p>caf\xE9 d\xE9j\xE0", "windows-1252"},
        {"<p>caf\xC3\xA9", "UTF-8"},
        {"<p>\x1B$B$3$s\x1B(B", "ISO-2022-JP"},
        {"<p>ASCII alone", ""},
        {"", ""},
        {"\xFF\xFE<\0p\0", ""},
    };
    for (const auto& row : rows)
        CHECK(GuessedPageCharset(row.bytes, 1252) == row.charset);
}
