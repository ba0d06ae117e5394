// What the data file keeps of a book's text and of the places in it, beside the numbers of the
// record: by these the places are found again when the text has changed.
#pragma once

#include "books/book_settings.h"
#include "platform/files.h"
#include "reading/place_words.h"
#include "reading/text_fingerprint.h"

#include <map>
#include <optional>
#include <string>

// The words around a place, as they are stored.
struct KeptWords {
    std::u16string words;
    bool uncertain = false; // they were not found in the present text: the place is a guess
    bool operator==(const KeptWords&) const = default;
};

// What else is kept of the reading place in a page, whose `position` is the character at the top.
struct KeptTop {
    int offset = -1;    // that the record had then; of another one the words are not
    int above = 0;      // as in PageTop
    TextPos length = 0; // of the page's text
    // `offset` is not that place but an older one, as this had not been measured: words alone lead
    // there.
    bool byWordsAlone = false;
    bool operator==(const KeptTop&) const = default;
};

struct KeptPlaces {
    std::optional<TextFingerprint> text; // that the positions are in; none: nothing is known
    std::uint64_t fileSize = 0;          // bytes, of the file that this text was read from
    std::int64_t fileTime = 0;           // its last write, nanoseconds
    TextPos position = -1;               // of the reading place; -1 for none
    KeptWords place;
    KeptTop top;                        // of a page
    std::map<TextPos, KeptWords> marks; // by where the bookmark starts
    bool operator==(const KeptPlaces&) const = default;

    bool IsOf(const FileVersion& file) const {
        return fileSize == file.size && fileTime == file.lastWrite;
    }
    // They were carried over from the view that showed the book before.
    bool IsOfOtherView() const { return text && IsOf({}); }
    void SetFile(const FileVersion& file) {
        fileSize = file.size;
        fileTime = file.lastWrite;
    }
};

// A text and a page have keys of their own: what one of them counts means nothing in the other.
enum class PlacesOf { Text, Page };

KeptPlaces LoadPlaces(const BookSettings&, PlacesOf);

// Writes what differs from `stored`, which the data file holds, and makes that the same.
void StorePlaces(const BookSettings&, PlacesOf, const KeptPlaces&, KeptPlaces& stored);

// Text and file alone, without reading the places.
KeptPlaces LoadKeptText(const BookSettings&, PlacesOf);
