#include "reading/charset_change.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/book_script.h"
#include "books/charsets.h"
#include "common/text.h"
#include "formats/plain_text_source.h"
#include "reading/bookmarks.h"
#include "reading/caret.h"

#include <algorithm>
#include <memory>
#include <vector>

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
    if (form.shownCodePage == 0 || form.shownPath.empty()) return;
    const auto content = ReadBookFile(form, form.shownPath);
    if (!content || !content->plainText) return;
    ChooseCodePage(form, CharsetToCodePage(form.viewFont.charset));
    auto text = std::make_shared<PlainTextSource>(content->plainText, form.chosenCodePage,
                                                  form.ports.locale->AnsiCodePage());
    if (text->CodePage() == form.shownCodePage || text->CodePage() == 0) return;

    TextView& view = *form.ports.textView;
    std::vector<TextPos> places = BookmarkPlaces(form.menu.mBookmarkList);
    places.insert(places.begin(), {FirstVisibleChar(view), view.SelStart()});
    const PlainTextSource shown(content->plainText,
                                PlainTextForm{TextEncoding::CodePage, form.shownCodePage});
    for (TextPos& place : places)
        place = text->PositionOf(shown.ByteOf(place));
    form.shownCodePage = text->CodePage();
    view.LoadText(std::move(text));
    view.Select(places[1], 0);
    view.ScrollLineToTop(places[0]);
    MoveBookmarks(form.menu.mBookmarkList, places.data() + 2);
    RefreshBookmarkMenu(form, -1, true);
}
