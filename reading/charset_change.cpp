#include "reading/charset_change.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/charsets.h"
#include "books/history_list.h"
#include "common/text.h"
#include "formats/code_pages.h"
#include "formats/plain_text.h"
#include "reading/bookmarks.h"
#include "reading/caret.h"

#include <algorithm>
#include <numeric>

namespace {
TextPos DecodedLength(int page, std::string_view bytes) {
    std::u16string text;
    DecodeCodePage(page, bytes, text);
    return static_cast<TextPos>(text.size());
}

// The byte at which the character of this index begins.
std::size_t ByteOfCharacter(int page, std::string_view line, TextPos index) {
    std::size_t at = 0;
    while (at < line.size() && index > 0) {
        const bool twoBytes =
            IsLeadByte(page, static_cast<unsigned char>(line[at])) && at + 1 < line.size();
        const std::size_t length = twoBytes ? 2 : 1;
        index -= DecodedLength(page, line.substr(at, length));
        at += length;
    }
    return at;
}

// The line at the start of the bytes, without its line end, and the length with it.
struct Line {
    std::string_view text;
    std::size_t whole;
};

Line FirstLine(std::string_view bytes) {
    const auto end = bytes.find_first_of("\r\n");
    if (end == std::string_view::npos) return {bytes, bytes.size()};
    const bool two = bytes.substr(end, 2) == "\r\n";
    return {bytes.substr(0, end), end + (two ? 2 : 1)};
}
} // namespace

std::vector<TextPos> PositionsInCodePage(std::string_view bytes, int fromPage, int toPage,
                                         const std::vector<TextPos>& positions) {
    std::vector<std::size_t> order(positions.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) { return positions[i]; });
    std::vector<TextPos> moved(positions.size());
    std::size_t next = 0;
    TextPos fromStart = 0, toStart = 0; // of the line
    while (!bytes.empty() && next < order.size()) {
        const Line line = FirstLine(bytes);
        const TextPos length = DecodedLength(fromPage, line.text);
        for (; next < order.size() && positions[order[next]] <= fromStart + length; ++next) {
            const TextPos inLine = std::max(positions[order[next]] - fromStart, 0);
            const std::size_t byte = ByteOfCharacter(fromPage, line.text, inLine);
            moved[order[next]] = toStart + DecodedLength(toPage, line.text.substr(0, byte));
        }
        const TextPos lineEnd = line.whole > line.text.size() ? 1 : 0;
        fromStart += length + lineEnd;
        toStart += DecodedLength(toPage, line.text) + lineEnd;
        bytes.remove_prefix(line.whole);
    }
    for (; next < order.size(); ++next)
        moved[order[next]] = toStart;
    return moved;
}

namespace {
// Starts and ends of the bookmarks, and back; entries of another form stay.
std::vector<TextPos> BookmarkPlaces(const MenuArray& list) {
    std::vector<TextPos> places;
    for (const MenuItem& item : list.items) {
        const auto parts = Split(item.tag, u",");
        if (parts.size() != 2) continue;
        places.push_back(WholeNumber(parts[0]));
        places.push_back(WholeNumber(parts[0]) + std::clamp(WholeNumber(parts[1]), 0, 1 << 20));
    }
    return places;
}

void MoveBookmarks(MenuArray& list, const TextPos* places) {
    for (MenuItem& item : list.items) {
        if (Split(item.tag, u",").size() != 2) continue;
        item.tag = NumberText(places[0]) + u',' + NumberText(std::max(places[1] - places[0], 1));
        places += 2;
    }
}
} // namespace

void ReadInCharset(MainForm& form) {
    if (form.shownCodePage == 0 || !IsBookShown(form)) return;
    const auto bytes = ReadBookFile(form, GetBookPath(form, 0));
    if (!bytes) return;
    TextView& view = *form.ports.textView;
    const int bookPage = CharsetToCodePage(form.viewFont.charset);
    DecodedText decoded = DecodePlainText(*bytes, bookPage, form.ports.locale->AnsiCodePage());
    if (decoded.codePage == form.shownCodePage || decoded.codePage == 0) return;

    std::vector<TextPos> places = BookmarkPlaces(form.menu.mBookmarkList);
    places.insert(places.begin(), {FirstVisibleChar(view), view.SelStart()});
    places = PositionsInCodePage(*bytes, form.shownCodePage, decoded.codePage, places);
    form.shownCodePage = decoded.codePage;
    view.LoadPlainText(std::move(decoded.text));
    view.Select(places[1], 0);
    view.ScrollLineToTop(places[0]);
    MoveBookmarks(form.menu.mBookmarkList, places.data() + 2);
    RefreshBookmarkMenu(form, -1, true);
}
