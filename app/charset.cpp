#include "app/charset.h"

#include "app/bookmark_menu.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "app/text_places.h"
#include "books/book_file.h"
#include "formats/codepages/charsets.h"
#include "formats/codepages/code_pages.h"
#include "reading/caret.h"
#include "reading/charset_change.h"

#include <algorithm>

namespace {
constexpr std::size_t placesOfMark = 3;

// Starts, last characters and ends of the bookmarks, and back; entries of another form stay.
std::vector<TextPos> BookmarkPlaces(const Bookmarks& bookmarks) {
    constexpr TextPos maxLength = 1 << 20; // of an edited record
    std::vector<TextPos> places;
    for (const MenuItem& item : bookmarks.list.items)
        if (const auto mark = ParseMark(item.tag)) {
            const TextPos end = mark->start + std::min(mark->length, maxLength);
            places.insert(places.end(), {mark->start, std::max(end - 1, mark->start), end});
        }
    return places;
}

void MoveBookmarks(Bookmarks& bookmarks, const TextPos* places) {
    for (MenuItem& item : bookmarks.list.items) {
        if (!ParseMark(item.tag)) continue;
        const TextPos start = places[0], last = places[1], end = places[2];
        const bool turned = last < start; // to or from visual order
        item.tag = turned ? MarkText({last, start - last + 1})
                          : MarkText({start, std::max(end - start, 1)});
        places += placesOfMark;
    }
}

// The settings are those of item 0, which may be another book's by now.
void KeepChoice(MainForm& form, int codePage) {
    form.book.chosen = {codePage, true};
    if (!IsShownBookListed(form)) return;
    StoreChosenCodePage(SettingsOf(form, form.history.Record(0)), codePage);
}

void ShowIn(MainForm& form, ChosenCharset wanted) {
    ShownBook& book = form.book;
    const auto file = ReadBookFile(*form.ports.files, book.path, MaxPlainText(form));
    if (file.problem) return ShowBookMessage(form.messages, file.problem.text);
    const auto& plainText = file.content->plainText;
    if (!plainText) return;
    auto text = DecodeBook(plainText, wanted, form.ports.locale->AnsiCodePage());
    const bool found = wanted.codePage != 0 && text->CodePage() != 0;
    KeepChoice(form, found ? text->CodePage() : wanted.codePage);
    if (text->CodePage() == book.codePage) return;

    TextView& view = *form.ports.textView;
    std::vector<TextPos> places = BookmarkPlaces(form.bookmarks);
    places.insert(places.begin(), {FirstVisibleChar(view), view.SelStart()});
    MovePlaces(places, plainText, FormOfPage(book.codePage), *text);
    book.codePage = text->CodePage();
    view.LoadText(std::move(text));
    view.Select(places[1], 0);
    view.ScrollLineToTop(places[0]);
    MoveBookmarks(form.bookmarks, places.data() + 2);
    ForgetTextPlaces(form);
    RefreshBookmarkMenu(form);
}
} // namespace

std::shared_ptr<PlainTextSource> DecodeBook(std::shared_ptr<const FileReader> file,
                                            ChosenCharset chosen, int ansiCodePage) {
    if (chosen.exact && chosen.codePage != 0 && !HasMarkedForm(*file))
        return std::make_shared<PlainTextSource>(std::move(file), FormOfPage(chosen.codePage));
    return std::make_shared<PlainTextSource>(std::move(file), chosen.codePage, ansiCodePage);
}

std::vector<CharsetReading> ReadingsOfBook(const MainForm& form) {
    if (IsPageShown(form) || form.book.path.empty()) return {};
    const auto file = ReadBookFile(*form.ports.files, form.book.path, MaxPlainText(form));
    if (file.problem || !file.content->plainText) return {};
    return CharsetReadings(*file.content->plainText, form.ports.locale->AnsiCodePage(),
                           PresentCodePage(form));
}

int PresentCodePage(const MainForm& form) {
    return form.book.codePage != 0 ? form.book.codePage : utf8Page;
}

void ReadInCodePage(MainForm& form, int codePage) {
    if (!form.book.path.empty()) ShowIn(form, {codePage, true});
}

void ReadInScriptOfFont(MainForm& form) {
    if (form.book.codePage == 0 || form.book.path.empty()) return;
    ShowIn(form, {CharsetToCodePage(form.format.font.charset), false});
}
