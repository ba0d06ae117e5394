#include "app/text_places.h"

#include "app/book_places.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "common/text.h"

#include <utility>

namespace {
BookPlaces PlacesIn(const MainForm& form, const BookRecord& record) {
    const KeptPlaces& kept = form.places.kept;
    const TextPos top = record.Number(Field::LastPos);
    const std::u16string& last = form.bookmarks.last.tag;
    return PlacesOfBook(form, record, Known(top, top == kept.position ? &kept.place : nullptr),
                        Known(WholeNumber(last), last.empty() ? nullptr : &form.places.last));
}

// Whether the text is the one that the places are in. A long one is sampled by its fingerprint.
bool IsSameText(const TextSource& text, const KeptPlaces& kept,
                const std::vector<KnownPlace>& places) {
    if (text.Length() != kept.text->length || FingerprintOf(text) != *kept.text) return false;
    return text.Length() <= maxHashed || HasWordsAt(text, places);
}

// False when it was given up: nothing has changed then.
bool MovePlaces(MainForm& form, const TextSource& text, const std::function<bool()>& shouldContinue,
                const BookPlaces& places, BookRecord& record) {
    KeptPlaces& kept = form.places.kept;
    bool givenUp = false;
    const auto found = FindPlaces(text, kept.text->length, places.known, [&] {
        givenUp = givenUp || !shouldContinue();
        return !givenUp;
    });
    if (givenUp) return false;
    MoveMarksAndSelection(form, text, places, found, record);
    if (places.certainOnly && !found[0].certain) record[Field::LastPos] = u"0";
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
    state.kept = state.stored = LoadPlaces(SettingsOf(form, record), PlacesOf::Text);
    KeptPlaces& kept = state.kept;
    state.file = file;
    if (!kept.text || !file) return;
    const bool sameFile = kept.IsOf(*file);
    if (sameFile && kept.text->length == form.ports.textView->TextLength()) return;
    const BookPlaces places = PlacesIn(form, record);
    kept.SetFile(*file);
    form.ports.textView->VisitText([&](const TextSource& text, const auto& shouldContinue) {
        if (IsSameText(text, kept, places.known)) return;
        if (!places.hasWords)
            ForgetTextPlaces(form);
        else if (!MovePlaces(form, text, shouldContinue, places, record))
            state.file.reset(); // what is kept stays for the next opening, which tries again
    });
    form.history.SetRecord(0, record);
}

void KeepSelection(MainForm& form) {
    const TextView& view = *form.ports.textView;
    const TextPos start = view.SelStart(), end = start + view.SelLength();
    view.VisitText([&](const TextSource& text, const auto&) {
        form.places.selection = {{start, WordsAround(text, start)}, {end, WordsAround(text, end)}};
    });
}

void SelectKept(MainForm& form) {
    if (const auto selection = std::exchange(form.places.selection, std::nullopt))
        form.ports.textView->Select(selection->start.position,
                                    selection->end.position - selection->start.position);
}

void KeepTextPlaces(MainForm& form, const BookRecord& record, const BookSettings& settings) {
    TextPlaces& state = form.places;
    KeptPlaces& kept = state.kept;
    if (!state.file) return;
    form.ports.textView->VisitText([&](const TextSource& text, const auto&) {
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
    StorePlaces(settings, PlacesOf::Text, kept, state.stored);
}

bool IsUncertainMark(const MainForm& form, TextPos start) {
    const auto mark = form.places.kept.marks.find(start);
    return mark != form.places.kept.marks.end() && mark->second.uncertain;
}

void MakeMarkCertain(MainForm& form, TextPos start) {
    form.places.kept.marks.erase(start);
}
