#include "books/book_kind.h"

#include "common/text.h"
#include "formats/html_start.h"
#include "formats/rtf/rtf_reader.h"

#include <algorithm>

const std::u16string_view bookFilter = u"Text Files (*.txt)|*.txt|Rich Text Files (*.rtf)|*.rtf|"
                                       u"HTML Files (*.htm)|*.htm|All Files (*.*)|*.*|";

std::vector<std::u16string> GetFilterPatterns(std::u16string_view filter) {
    std::vector<std::u16string> patterns;
    const auto pieces = Split(filter, u"|");
    for (std::size_t i = 1; i < pieces.size(); i += 2)
        patterns.push_back(pieces[i]);
    return patterns;
}

bool MatchesPattern(std::u16string_view text, std::u16string_view pattern) {
    if (pattern == u"*.*") return true; // means any name, also one without a dot
    std::size_t t = 0, p = 0, star = std::u16string_view::npos, resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || FoldCase(pattern[p]) == FoldCase(text[t]))) {
            ++p, ++t;
        } else if (star != std::u16string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    return std::ranges::all_of(pattern.substr(p), [](char16_t unit) { return unit == u'*'; });
}

std::vector<std::u16string> ListedPatterns() {
    auto patterns = GetFilterPatterns(bookFilter);
    patterns[static_cast<std::size_t>(BookKind::Html)] += u";*.html;*.xhtml";
    return patterns;
}

BookKind KindOfName(std::u16string_view path) {
    const auto lists = ListedPatterns();
    const auto match = std::ranges::find_if(lists, [&](const std::u16string& list) {
        return std::ranges::any_of(Split(list, u";"), [&](const std::u16string& pattern) {
            return MatchesPattern(path, pattern);
        });
    });
    return static_cast<BookKind>(match - lists.begin());
}

BookKind KindOfBook(std::u16string_view path, std::string_view firstBytes) {
    return LooksLikeRtf(firstBytes) ? BookKind::RichText : KindOfName(path);
}

RequestedKind KindOfChoice(std::u16string_view path, int filterIndex) {
    const int type = filterIndex - 1;
    if (!InRange(type, 0, static_cast<int>(BookKind::Other) - 1, true)) return std::nullopt;
    const BookKind named = KindOfName(path);
    return named == BookKind::Other ? static_cast<BookKind>(type) : named;
}

BookKind KindOfListedBook(BookKind listed, RequestedKind asked, std::u16string_view path,
                          std::string_view firstBytes) {
    if (asked) return *asked;
    if (listed == BookKind::RichText || listed == BookKind::Html) return listed;
    const BookKind named = KindOfName(path);
    const bool certain = (named == BookKind::RichText && LooksLikeRtf(firstBytes)) ||
                         (named == BookKind::Html && LooksLikeHtml(firstBytes));
    return certain ? named : listed;
}
