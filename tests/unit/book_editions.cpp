#include "tests/unit/book_editions.h"

#include "common/char_refs.h"
#include "common/line_ends.h"
#include "common/string_text.h"
#include "common/utf.h"
#include "formats/plain/plain_text.h"
#include "formats/rtf/rtf_reader.h"
#include "reading/find_places.h"
#include "reading/text_letters.h"

#include <fstream>
#include <iterator>
#include <random>

namespace {
std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::u16string Replaced(std::u16string text) {
    static const std::pair<std::u16string_view, std::u16string_view> named[] = {
        {u"&mdash;", u"\u2014"}, {u"&ldquo;", u"\u201C"}, {u"&rdquo;", u"\u201D"},
        {u"&lsquo;", u"\u2018"}, {u"&rsquo;", u"\u2019"}, {u"&nbsp;", u"\u00A0"},
        {u"&lt;", u"<"},         {u"&gt;", u">"},         {u"&amp;", u"&"},
    };
    for (const auto& [from, to] : named)
        for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
            text.replace(at, from.size(), to);
    return DecodeCharRefs(text);
}
} // namespace

std::u16string TextOfPage(const std::string& bytes) {
    const std::u16string source = DecodePlainText(bytes, 0, 1252).text;
    std::u16string text;
    std::size_t at = std::min(source.find(u"<body"), source.size());
    while (at < source.size()) {
        const std::size_t tag = std::min(source.find(u'<', at), source.size());
        for (const char16_t unit : Replaced(source.substr(at, tag - at))) {
            const bool blank = unit == u' ' || (unit >= u'\t' && unit <= u'\r');
            if (!blank)
                text += unit;
            else if (!text.empty() && text.back() != u' ' && text.back() != u'\n')
                text += u' ';
        }
        const std::u16string_view name = std::u16string_view(source).substr(tag).substr(0, 3);
        const bool block = name == u"<p " || name == u"<p>" || name == u"<br" || name == u"<di" ||
                           name.starts_with(u"<h");
        if (block && !text.empty() && text.back() != u'\n') text += u'\n';
        const std::size_t end = source.find(u'>', tag);
        at = end == source.npos ? source.size() : end + 1;
    }
    return text;
}

std::map<std::string, std::u16string> Editions(const std::filesystem::path& books) {
    std::map<std::string, std::u16string> editions;
    const std::string plain = BytesOf(books / "txt/War and Peace.txt"),
                      rich = BytesOf(books / "rtf/War and Peace (word processor).rtf"),
                      page = BytesOf(books / "htm/War and Peace.htm");
    if (!plain.empty()) {
        editions["text"] = DecodePlainText(plain, 0, 1252).text;
        UnifyLineEnds(editions["text"]);
    }
    if (!rich.empty()) editions["rich text"] = ReadRtf(rich, 1252).text;
    if (!page.empty()) editions["page"] = TextOfPage(page);
    return editions;
}

int PlacesFound(const std::u16string& from, const std::u16string& to, int count) {
    constexpr std::size_t beside = 12; // letters on each side, by which a place is the same one
    std::mt19937 random(1869);
    const StringText source(from), target(to);
    std::vector<KnownPlace> known;
    for (int i = 0; i < count; ++i) {
        const auto place = static_cast<TextPos>(random() % from.size());
        known.push_back({place, WordsAround(source, place)});
    }
    const auto found = FindPlaces(target, source.Length(), known, [] { return true; });
    int right = 0;
    for (std::size_t i = 0; i < known.size(); ++i) {
        std::size_t split = 0, splitFound = 0;
        const auto words = LettersAround(source, known[i].position, beside, beside, split);
        const auto there = LettersAround(target, found[i].position, beside, beside, splitFound);
        right += found[i].certain && words.letters == there.letters && split == splitFound;
    }
    return right;
}
