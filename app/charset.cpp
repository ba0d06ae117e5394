#include "app/charset.h"

#include "app/bookmark_menu.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "books/book_file.h"
#include "books/book_script.h"
#include "formats/codepages/charsets.h"
#include "reading/caret.h"
#include "reading/charset_change.h"

#include <algorithm>

namespace {
// Starts and ends of the bookmarks, and back; entries of another form stay.
std::vector<TextPos> BookmarkPlaces(const Bookmarks& bookmarks) {
    constexpr TextPos maxLength = 1 << 20; // of an edited record
    std::vector<TextPos> places;
    for (const MenuItem& item : bookmarks.list.items)
        if (const auto mark = ParseMark(item.tag)) {
            places.push_back(mark->start);
            places.push_back(mark->start + std::min(mark->length, maxLength));
        }
    return places;
}

void MoveBookmarks(Bookmarks& bookmarks, const TextPos* places) {
    for (MenuItem& item : bookmarks.list.items) {
        if (!ParseMark(item.tag)) continue;
        item.tag = MarkText({places[0], std::max(places[1] - places[0], 1)});
        places += 2;
    }
}

void ChooseCodePage(MainForm& form, int codePage) {
    form.book.chosenCodePage = codePage;
    const std::u16string key(RecordKey(form.menu.mFileList[0].tag));
    StoreChosenCodePage(*form.dataFile, BookSection(CurrentProfile(form), key), codePage);
}
} // namespace

void ReadInCharset(MainForm& form) {
    ShownBook& book = form.book;
    if (book.codePage == 0 || book.path.empty()) return;
    const auto content = ReadBookFile(*form.ports.files, book.path, MaxPlainText(form));
    if (content.problem) return ShowBookMessage(form.messages, content.problem.text);
    if (!content.plainText) return;
    ChooseCodePage(form, CharsetToCodePage(form.format.font.charset));
    auto text = std::make_shared<PlainTextSource>(content.plainText, book.chosenCodePage,
                                                  form.ports.locale->AnsiCodePage());
    if (text->CodePage() == book.codePage || text->CodePage() == 0) return;

    TextView& view = *form.ports.textView;
    std::vector<TextPos> places = BookmarkPlaces(form.bookmarks);
    places.insert(places.begin(), {FirstVisibleChar(view), view.SelStart()});
    MovePlaces(places, content.plainText, book.codePage, *text);
    book.codePage = text->CodePage();
    view.LoadText(std::move(text));
    view.Select(places[1], 0);
    view.ScrollLineToTop(places[0]);
    MoveBookmarks(form.bookmarks, places.data() + 2);
    RefreshBookmarkMenu(form);
}
