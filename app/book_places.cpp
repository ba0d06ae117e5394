#include "app/book_places.h"

#include "app/main_form.h"
#include "common/text.h"

#include <algorithm>
#include <utility>

KnownPlace Known(TextPos position, const KeptWords* kept) {
    KnownPlace place{position, {}};
    if (kept) place.words = ParseWords(kept->words).value_or(PlaceWords());
    return place;
}

BookPlaces PlacesOfBook(const MainForm& form, const BookRecord& record, KnownPlace top,
                        KnownPlace last) {
    const KeptPlaces& kept = form.places.kept;
    BookPlaces places;
    places.known = {std::move(top), std::move(last)};
    places.certainOnly = kept.IsOfOtherView();
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

bool HasWordsAt(const TextSource& text, const std::vector<KnownPlace>& places) {
    return std::ranges::all_of(places, [&](const KnownPlace& place) {
        return place.words.IsEmpty() || WordsAround(text, place.position) == place.words;
    });
}

KeptWords WordsIn(const TextSource& text, TextPos place) {
    return {StoredWords(WordsAround(text, place)), false};
}

KeptWords WordsNow(const TextSource& text, const KnownPlace& before, const FoundPlace& found) {
    if (found.certain || before.words.IsEmpty()) return WordsIn(text, found.position);
    return {StoredWords(before.words), true};
}

namespace {
// Bookmarks in the order of the text, no two of them at one place.
void MoveMarks(const TextSource& text, const BookPlaces& places,
               const std::vector<FoundPlace>& found, BookRecord& record, KeptPlaces& kept) {
    constexpr std::size_t firstMark = 2;
    std::map<TextPos, std::u16string> tags;
    kept.marks.clear();
    for (std::size_t i = 0; i < places.marks.size(); ++i) {
        const FoundPlace& place = found[firstMark + i];
        if (places.certainOnly && !place.certain) continue;
        TextPos start = std::max(place.position, 1); // there is none at the beginning of a text
        while (tags.contains(start))
            ++start;
        tags[start] = MarkText({start, places.marks[i].length});
        kept.marks[start] = WordsNow(text, places.known[firstMark + i], place);
    }
    std::vector<std::u16string> inOrder;
    inOrder.reserve(tags.size());
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
} // namespace

void MoveMarksAndSelection(MainForm& form, const TextSource& text, const BookPlaces& places,
                           const std::vector<FoundPlace>& found, BookRecord& record) {
    MoveMarks(text, places, found, record, form.places.kept);
    if (form.places.selection) MoveSelection(found, *form.places.selection);
}
