#include "app/text_places.h"

#include "app/main_form.h"
#include "app/shown_book.h"
#include "common/text.h"
#include "reading/find_places.h"

#include <algorithm>
#include <utility>

namespace {
// A book's places in the order in which they are looked for: the reading place, the place that Last
// Unmarked Position goes to, the bookmarks, both ends of the selection.
struct BookPlaces {
    std::vector<KnownPlace> known;
    std::vector<CharSpan> marks;
    bool hasWords = false; // the data file has some
};

KnownPlace Known(TextPos position, const KeptWords* kept) {
    KnownPlace place{position, {}};
    if (kept) place.words = ParseWords(kept->words).value_or(PlaceWords());
    return place;
}

BookPlaces PlacesIn(const MainForm& form, const BookRecord& record) {
    const KeptPlaces& kept = form.places.kept;
    BookPlaces places;
    const TextPos top = record.Number(Field::LastPos);
    places.known.push_back(Known(top, top == kept.position ? &kept.place : nullptr));
    const std::u16string& last = form.bookmarks.last.tag;
    places.known.push_back(Known(WholeNumber(last), last.empty() ? nullptr : &form.places.last));
    for (const std::u16string& tag : Split(record[Field::Marks], u"|")) {
        const auto mark = ParseMark(tag);
        if (!mark) continue;
        const auto words = kept.marks.find(mark->start);
        places.known.push_back(
            Known(mark->start, words == kept.marks.end() ? nullptr : &words->second));
        places.marks.push_back(*mark);
    }
    places.hasWords = std::ranges::any_of(
        places.known, [](const KnownPlace& each) { return !each.words.IsEmpty(); });
    if (const auto& selection = form.places.selection) {
        places.known.push_back(selection->start);
        places.known.push_back(selection->end);
    }
    return places;
}

bool WordsStand(const TextSource& text, const std::vector<KnownPlace>& places) {
    return std::ranges::all_of(places, [&](const KnownPlace& place) {
        return place.words.IsEmpty() || WordsAround(text, place.position) == place.words;
    });
}

// Whether the text is the one that the places are in. A long one is sampled by its fingerprint.
bool IsSameText(const TextSource& text, const KeptPlaces& kept,
                const std::vector<KnownPlace>& places) {
    if (text.Length() != kept.text->length || FingerprintOf(text) != *kept.text) return false;
    return text.Length() <= maxHashed || WordsStand(text, places);
}

KeptWords WordsIn(const TextSource& text, TextPos place) {
    return {StoredWords(WordsAround(text, place)), false};
}

// What was not found keeps its words: they may come back with the next change.
KeptWords WordsNow(const TextSource& text, const KnownPlace& before, const FoundPlace& found) {
    if (found.certain || before.words.IsEmpty()) return WordsIn(text, found.position);
    return {StoredWords(before.words), true};
}

// Bookmarks in the order of the text, no two of them at one place.
void MoveMarks(const TextSource& text, const BookPlaces& places,
               const std::vector<FoundPlace>& found, BookRecord& record, KeptPlaces& kept) {
    constexpr std::size_t firstMark = 2;
    std::map<TextPos, std::u16string> tags;
    kept.marks.clear();
    for (std::size_t i = 0; i < places.marks.size(); ++i) {
        const FoundPlace& place = found[firstMark + i];
        TextPos start = std::max(place.position, 1); // there is none at the beginning of a text
        while (tags.contains(start))
            ++start;
        tags[start] = MarkText({start, places.marks[i].length});
        kept.marks[start] = WordsNow(text, places.known[firstMark + i], place);
    }
    std::vector<std::u16string> inOrder;
    for (const auto& [start, tag] : tags)
        inOrder.push_back(tag);
    record[Field::Marks] = Join(inOrder, u"|");
}

// Of a selection that is not whole any more a caret is left.
void MoveSelection(const std::vector<FoundPlace>& found, KeptSelection& selection) {
    const FoundPlace &start = found.end()[-2], &end = found.end()[-1];
    const bool isWhole = start.certain && end.certain && end.position > start.position;
    selection.start.position = start.position;
    selection.end.position = isWhole ? end.position : start.position;
}

// False when it was given up: nothing has changed then.
bool MovePlaces(MainForm& form, const TextSource& text, const std::function<bool()>& goesOn,
                const BookPlaces& places, BookRecord& record) {
    KeptPlaces& kept = form.places.kept;
    bool givenUp = false;
    const auto found = FindPlaces(text, kept.text->length, places.known, [&] {
        givenUp = givenUp || !goesOn();
        return !givenUp;
    });
    if (givenUp) return false;
    MoveMarks(text, places, found, record, kept);
    if (form.places.selection) MoveSelection(found, *form.places.selection);
    // Who has not begun to read stays at the beginning.
    if (record.Number(Field::LastPos) > 0) {
        record[Field::LastPos] = NumberText(found[0].position);
        kept.position = found[0].position;
        kept.place = WordsNow(text, places.known[0], found[0]);
    }
    std::u16string& last = form.bookmarks.last.tag;
    if (!last.empty()) last = NumberText(found[1].position);
    kept.text = FingerprintOf(text);
    return true;
}
} // namespace

void ForgetTextPlaces(MainForm& form) {
    KeptPlaces& kept = form.places.kept;
    kept.text.reset();
    kept.marks.clear();
    kept.position = -1;
    kept.place = {};
}

void FollowText(MainForm& form, BookRecord& record, const std::optional<FileVersion>& file) {
    TextPlaces& state = form.places;
    state.kept = state.stored = LoadPlaces(*form.dataFile, SectionOf(form, record), PlacesOf::Text);
    KeptPlaces& kept = state.kept;
    state.file = file;
    if (!kept.text || !file) return;
    const bool sameFile = kept.IsOf(*file);
    kept.SetFile(*file);
    if (sameFile && kept.text->length == form.ports.textView->TextLength()) return;
    const BookPlaces places = PlacesIn(form, record);
    form.ports.textView->LookThrough([&](const TextSource& text, const auto& goesOn) {
        if (IsSameText(text, kept, places.known)) return;
        if (!places.hasWords)
            ForgetTextPlaces(form);
        else if (!MovePlaces(form, text, goesOn, places, record))
            state.file.reset(); // what is kept stays for the next opening, which tries again
    });
    form.history.SetRecord(0, record);
}

void KeepSelection(MainForm& form) {
    const TextView& view = *form.ports.textView;
    const TextPos start = view.SelStart(), end = start + view.SelLength();
    view.LookThrough([&](const TextSource& text, const auto&) {
        form.places.selection = {{start, WordsAround(text, start)}, {end, WordsAround(text, end)}};
    });
}

void SelectKept(MainForm& form) {
    if (const auto selection = std::exchange(form.places.selection, std::nullopt))
        form.ports.textView->Select(selection->start.position,
                                    selection->end.position - selection->start.position);
}

void KeepTextPlaces(MainForm& form, const BookRecord& record, const std::u16string& section) {
    TextPlaces& state = form.places;
    KeptPlaces& kept = state.kept;
    if (!state.file) return;
    form.ports.textView->LookThrough([&](const TextSource& text, const auto&) {
        if (!kept.text) {
            kept.text = FingerprintOf(text);
            kept.SetFile(*state.file);
        }
        const TextPos top = record.Number(Field::LastPos);
        if (top != kept.position || kept.place.words.empty()) {
            kept.position = top;
            kept.place = WordsIn(text, top);
        }
        std::map<TextPos, KeptWords> marks;
        for (const MenuItem& item : form.bookmarks.list.items)
            if (const auto mark = ParseMark(item.tag)) {
                const auto known = kept.marks.find(mark->start);
                marks[mark->start] =
                    known != kept.marks.end() ? known->second : WordsIn(text, mark->start);
            }
        kept.marks = std::move(marks);
        const std::u16string& last = form.bookmarks.last.tag;
        if (!last.empty()) state.last = WordsIn(text, WholeNumber(last));
    });
    StorePlaces(*form.dataFile, section, PlacesOf::Text, kept, state.stored);
}

bool IsUncertainMark(const MainForm& form, TextPos start) {
    if (IsPageShown(form)) return false;
    const auto mark = form.places.kept.marks.find(start);
    return mark != form.places.kept.marks.end() && mark->second.uncertain;
}

void MakeMarkCertain(MainForm& form, TextPos start) {
    form.places.kept.marks.erase(start);
}
