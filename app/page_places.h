// The places of the shown page: kept with the words around them, which find them again in another
// width, size, font or view, and when the page has changed.
#pragma once

#include "platform/html_view.h"

#include <string>
#include <vector>

class BookRecord;
struct BookSettings;
struct MainForm;

// Once the page is there: what is to be at its top. Where its text has changed, reading place and
// bookmarks become where their words are now, for which the page is waited for.
PageTop FollowPage(MainForm&);

// Keeps the words at the top of the page and those around each bookmark. `top` is what the record
// has its place from.
void KeepPagePlaces(MainForm&, const BookRecord&, const PageTop& top, const BookSettings&);
// The text of each bookmark tag ("start,length"), "" for a tag that is not two numbers; an empty
// list when the page does not answer. With them come the words of bookmarks of which none are kept.
std::vector<std::u16string> PageExcerpts(MainForm&, const std::vector<std::u16string>& tags);

// Before the shown page is read again: the selection goes along to its words. And afterwards.
void KeepPageSelection(MainForm&);
void SelectKeptInPage(MainForm&);
