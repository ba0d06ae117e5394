#include "app/page_places.h"

#include "app/book_places.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "common/string_text.h"
#include "common/text.h"
#include "reading/page_marks.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {
// Nothing is known of a place that an older version of the program, or a hand, has written.
void ForgetOtherTop(KeptPlaces& kept, int offset) {
    if (kept.position >= 0 && kept.top.offset == offset && !kept.place.words.empty()) return;
    kept.position = -1;
    kept.place = {};
    kept.top = {};
}

bool IsSamePage(const MainForm& form) {
    const TextPlaces& state = form.places;
    if (!state.file || !state.kept.text) return true; // nothing is known
    const TextPos before = state.kept.top.length, now = form.ports.htmlView->Top().length;
    return state.kept.IsOf(*state.file) && (before == 0 || now == 0 || before == now);
}

// The reading place stays at the beginning of a page that was not read on.
KnownPlace KnownTop(const KeptPlaces& kept) {
    return kept.position > 0 ? Known(kept.position, &kept.place) : KnownPlace();
}

KnownPlace Known(const PageTop& top) {
    if (top.start <= 0) return {};
    const std::u16string around = top.before + top.after;
    return {top.start, WordsAround(StringText(around), TextPos(top.before.size()))};
}

// Where links of this very page were followed.
std::vector<PageTop*> Trail(HtmlPage& page) {
    std::vector<PageTop*> tops;
    for (PagePlace& place : page.trail)
        if (place.path == page.path) tops.push_back(&place.top);
    return tops;
}

// Those of the trail come last.
BookPlaces PlacesInPage(MainForm& form, const BookRecord& record) {
    const bool hasLast = !form.bookmarks.last.tag.empty();
    BookPlaces places = PlacesOfBook(form, record, KnownTop(form.places.kept),
                                     hasLast ? Known(form.bookmarks.lastTop) : KnownPlace());
    for (const PageTop* top : Trail(form.page)) {
        places.known.push_back(Known(*top));
        places.hasWords = places.hasWords || !places.known.back().words.IsEmpty();
    }
    return places;
}

// What was not found keeps its words.
void Move(PageTop& top, const TextSource& text, const FoundPlace& found) {
    if (top.start <= 0) return;
    top.start = found.position;
    if (!found.certain) return;
    top.before = text.Range(top.start - PageTop::maxAround, top.start);
    top.after = text.Range(top.start, top.start + PageTop::maxAround);
}

void MovePlaces(MainForm& form, const TextSource& text, const BookPlaces& places,
                BookRecord& record) {
    KeptPlaces& kept = form.places.kept;
    const TextPos length = kept.top.length > 0 ? kept.top.length : text.Length();
    auto found = FindPlaces(text, length, places.known, [] { return true; });
    Move(form.bookmarks.lastTop, text, found[1]);
    const auto trail = Trail(form.page);
    for (auto top = trail.rbegin(); top != trail.rend(); ++top, found.pop_back())
        Move(**top, text, found.back());
    MoveMarksAndSelection(form, text, places, found, record);
    if (kept.position <= 0) return;
    if (places.certainOnly && !found[0].certain) {
        kept.position = -1;
        return;
    }
    kept.position = found[0].position;
    kept.place = WordsNow(text, places.known[0], found[0]);
}

// Without an answer what is kept stays for the next opening, which tries again.
void FindPlacesInPage(MainForm& form, BookRecord& record) {
    TextPlaces& state = form.places;
    if (!PlacesInPage(form, record).hasWords) return;
    const auto texts = form.ports.htmlView->TextsOf({{0, std::numeric_limits<TextPos>::max()}});
    if (texts.empty()) return state.file.reset();
    const StringText text(texts.front());
    const BookPlaces places = PlacesInPage(form, record); // events came while the page was asked
    if (!HasWordsAt(text, places.known)) MovePlaces(form, text, places, record);
    state.kept.top.length = text.Length();
}

// What words are taken from.
PageSpan Around(TextPos place) {
    const TextPos first = std::max(0, place - PageTop::maxAround);
    return {first, place - first + PageTop::maxAround};
}
} // namespace

PageTop FollowPage(MainForm& form) {
    if (!IsShownBookListed(form)) return {.offset = 0};
    BookRecord record = form.history.Record(0);
    KeptPlaces& kept = form.places.kept;
    const int offset = std::max(record.Number(Field::LastPos), 0);
    ForgetOtherTop(kept, offset);
    const TextPos before = kept.position;
    if (!IsSamePage(form)) {
        FindPlacesInPage(form, record);
        form.history.SetRecord(0, record);
    }
    if (!form.places.file) return {.offset = offset}; // positions are those of another text
    const bool hasMoved = kept.position >= 0 && kept.position != before;
    const bool byWords = hasMoved || kept.top.byWordsAlone;
    return {.offset = byWords ? -1 : offset, .start = kept.position, .above = kept.top.above};
}

std::vector<std::u16string> PageExcerpts(MainForm& form, const std::vector<std::u16string>& tags) {
    auto& kept = form.places.kept.marks;
    std::vector<PageSpan> asked = MarkedSpans(tags);
    const std::size_t excerpts = asked.size();
    std::vector<TextPos> starts;
    for (std::size_t i = 0; i < excerpts; ++i)
        if (const auto mark = ParseMark(tags[i]); mark && !kept.contains(mark->start)) {
            starts.push_back(mark->start);
            asked.push_back(Around(mark->start));
        }
    if (asked.empty()) return {};
    auto texts = form.ports.htmlView->TextsOf(asked);
    if (texts.size() != asked.size()) return {};
    for (std::size_t i = 0; i < starts.size(); ++i)
        kept[starts[i]] =
            WordsIn(StringText(texts[excerpts + i]), starts[i] - asked[excerpts + i].start);
    texts.resize(excerpts);
    return texts;
}

void KeepPagePlaces(MainForm& form, const BookRecord& record, const PageTop& top,
                    const BookSettings& settings) {
    TextPlaces& state = form.places;
    KeptPlaces& kept = state.kept;
    if (!state.file) return;
    if (!kept.text || !kept.IsOf(*state.file)) { // changed since, so that nobody can tell its text
        kept.text = TextFingerprint();
        kept.SetFile(*state.file);
    }
    if (top.start >= 0) {
        const TextPos length = top.length > 0 ? top.length : kept.top.length;
        kept.top = {record.Number(Field::LastPos), top.above, length, top.offset < 0};
        if (top.start != kept.position || kept.place.words.empty()) {
            const std::u16string around = top.before + top.after;
            kept.position = top.start;
            kept.place = WordsIn(StringText(around), static_cast<TextPos>(top.before.size()));
        }
    }
    std::map<TextPos, KeptWords> marks;
    for (const MenuItem& item : form.bookmarks.list.items)
        if (const auto mark = ParseMark(item.tag))
            if (const auto known = kept.marks.find(mark->start); known != kept.marks.end())
                marks.insert(*known);
    kept.marks = std::move(marks);
    StorePlaces(settings, PlacesOf::Page, kept, state.stored);
}

void KeepPageSelection(MainForm& form) {
    HtmlView& html = *form.ports.htmlView;
    const PageSpan span = html.Selection().span;
    const TextPos start = span.start, end = span.start + span.length;
    if (!HasPageBody(form) || (start == 0 && end == 0)) return;
    const PageSpan first = Around(start), last = Around(end);
    const auto texts = html.TextsOf({first, last});
    if (texts.size() != 2) return;
    form.places.selection = {{start, WordsAround(StringText(texts[0]), start - first.start)},
                             {end, WordsAround(StringText(texts[1]), end - last.start)}};
}

void SelectKeptInPage(MainForm& form) {
    if (const auto selection = std::exchange(form.places.selection, std::nullopt))
        form.ports.htmlView->Select(
            {selection->start.position, selection->end.position - selection->start.position});
}
