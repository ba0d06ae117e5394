// The bookmarks of the shown book: the items of the Bookmark menu, each with its place in its tag.
#pragma once

#include "common/menu_model.h"
#include "platform/html_view.h"
#include "platform/text_view.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

constexpr TextPos maxMarkLength = 80;

struct Bookmarks {
    MenuArray& list;       // ascending; one item without a tag when there are none
    MenuArray& deleteList; // the same captions, in the submenu
    MenuItem& separator;   // above the list
    MenuItem& menu;        // the tag: the index gone to last, "" or "-1" for none
    MenuItem& last;        // the tag: the last unmarked position, "" for none
    PageTop lastTop = {};  // what stands there, on a page
    int defined = -1;      // the index defined just now: stands out when the menu opens next

    bool IsEmpty() const { return list[0].tag.empty(); }
};

// A tag, "start,length", as numbers of at least 0; nothing for any other text.
std::optional<CharSpan> ParseMark(const std::u16string& tag);
std::u16string MarkText(const CharSpan&);

// All marks as a record has them, joined by "|", and back. A list that is filled has no captions
// until it is captioned.
std::u16string MarksText(const Bookmarks&);
void FillBookmarks(Bookmarks&, const std::u16string& marks);

// The marks of a record with others added, by their starts; of two of one start the stored one.
std::u16string JoinedMarks(const std::u16string& stored, const std::u16string& added);

std::vector<std::u16string> MarkTags(const Bookmarks&);
// The marked text for each tag, "" for a tag that is not two numbers.
std::vector<std::u16string> TextExcerpts(const TextView&, const std::vector<std::u16string>& tags);
// Captions of both lists; a mark without an excerpt, or when there are none, keeps its caption. One
// that is not certain to be at its words has a question mark in front.
void CaptionBookmarks(Bookmarks&, std::vector<std::u16string> excerpts,
                      const std::function<bool(TextPos start)>& isUncertain = nullptr);

// The index of the mark at `start`, for which a place is made when it is new.
int PlaceMark(Bookmarks&, TextPos start);
// The marks after it move up. The check stays at its index, as the current one does.
void RemoveMark(Bookmarks&, int index);
void RemoveAllMarks(Bookmarks&);

// The one last gone to; the first when there is none, as in a book just opened.
int CurrentBookmark(const Bookmarks&);
void UncheckBookmarks(Bookmarks&);
void ForgetLastPosition(Bookmarks&);

// What to mark in a text: the selection, or a standard length from the caret; nothing at the
// beginning of the text.
std::optional<CharSpan> MarkInText(const TextView&);
// Goes there and selects it. `charset` is the font's.
void GoToTextMark(TextView&, const CharSpan&, int charset);
