// The places of a book that are found again by their words: what texts and pages have in common.
#pragma once

#include "books/book_record.h"
#include "books/kept_places.h"
#include "common/geometry.h"
#include "reading/find_places.h"

#include <vector>

struct MainForm;

// In the order in which they are looked for: the reading place, the place that Last Unmarked
// Position goes to, the bookmarks, both ends of the selection.
struct BookPlaces {
    std::vector<KnownPlace> known;
    std::vector<CharSpan> marks;
    bool hasWords = false; // the data file has some
    // The other view has them all: here nothing is to stand where its words were not found.
    bool certainOnly = false;
};

KnownPlace Known(TextPos position, const KeptWords* kept); // null for none
BookPlaces PlacesOfBook(const MainForm&, const BookRecord&, KnownPlace top, KnownPlace last);

bool HasWordsAt(const TextSource&, const std::vector<KnownPlace>&); // at all of them
KeptWords WordsIn(const TextSource&, TextPos place);
// What was not found keeps its words: they may come back with the next change.
KeptWords WordsNow(const TextSource&, const KnownPlace& before, const FoundPlace& found);

// The bookmarks in the record and in what is kept, and the selection that is kept, are where they
// were found.
void MoveMarksAndSelection(MainForm&, const TextSource&, const BookPlaces&,
                           const std::vector<FoundPlace>&, BookRecord&);
