// The places of the shown text: kept with the words around them, and found again by these when the
// text has changed.
#pragma once

#include "common/geometry.h"
#include "platform/files.h"

#include <optional>
#include <string>

class BookRecord;
struct BookSettings;
struct MainForm;

// What the data file keeps of the book, whose text the view has now, and whose file was `file` when
// that was read. Of a text that has changed, reading place and bookmarks in the record become
// where their words are now.
void FollowText(MainForm&, BookRecord&, const std::optional<FileVersion>& file);

// Nothing is known of the view's text any more, or it is shown by other characters from now on:
// words are taken again.
void ForgetTextPlaces(MainForm&);

// Before the shown text is read again: caret and selection go along to its words. And afterwards.
void KeepSelection(MainForm&);
void SelectKept(MainForm&);

// Keeps the words around the reading place, which the record has, and around each bookmark.
void KeepTextPlaces(MainForm&, const BookRecord&, const BookSettings&);

// Whether a bookmark that starts there is where its words were not found.
bool IsUncertainMark(const MainForm&, TextPos start);
// The reader put it there just now.
void MakeMarkCertain(MainForm&, TextPos start);
