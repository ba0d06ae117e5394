#include "text_samples.h"

std::string Wide(std::u16string_view text, int unitBytes, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text)
        for (int i = 0; i < unitBytes; ++i) {
            const int place = bigEndian ? unitBytes - 1 - i : i;
            bytes += place == 0 ? char(unit & 0xFF) : place == 1 ? char(unit >> 8) : '\0';
        }
    return bytes;
}

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples{
        {"ASCII", 0, {"word ", "\r\n", "\r", "\n", "a"}},
        {"ASCII with NUL",
         0,
         {"plain words without a wide look ", "\r\n", std::string(1, '\0'), "x"}},
        {"UTF-8", 0, {"a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9D\x84\x9E", "\r\n", "\r", "\n"}},
        {"UTF-8 with a mark, broken",
         0,
         {"a", "\xC3", "\x80", "\xE2\x82", "\xF0\x9D\x84", "\xF0\x9D\x84\x9E", "\r\n", "\xFF",
          "\r"},
         "\xEF\xBB\xBF"},
        {"1252", 1252, {"caf\xE9 ", "\x80", "\x81", "\r\n", "\r", "\n"}},
        {"1251, unknown page as 1252", 99, {"\xCF\xF0\xE8\xE2\xE5\xF2", "\r\n", "\r"}},
        {"KOI8 said to be 1251", 1251, {"\xF0\xD2\xC9\xD7\xC5\xD4 ", "\xCF\xCF\xC5 ", "\r\n"}},
        {"932", 932, {"\x93\xFA", "\x96\x7B", "a", "\x93", "\r\n", "\xB1", "\r", "\x81\x20"}},
        {"936",
         936,
         {"\xC4\xE3", "\x81\x30\x81\x30", "\x90\x30\x81\x30", "\x81\x30", "\r\n", "a", "\xFF"}},
        {"949", 949, {"\xB0\xA1", "b", "\xB0", "\r\n", "\n"}},
        {"950", 950, {"\xA4\xA4", "\xA4", "c", "\r\n"}},
        {"ISO 8859-8 in visual order",
         28598,
         {"\xED\xE5\xEC\xF9 ", "\xE1\xE0", "12.5", "word ", "(", "\x80", "\r\n", "\r", "\n"}},
        {"UTF-8 page",
         65001,
         {"\xC3\xA9", "\x80", "\xFF", "\r\n", "\xE2\x82\xAC", "\x80\x80\x80\x80"}},
    };
    return samples;
}

std::string Drawn(const Sample& sample, std::mt19937& random, std::size_t length) {
    std::string bytes = sample.mark;
    while (bytes.size() < length)
        bytes += sample.parts[random() % sample.parts.size()];
    return bytes;
}
