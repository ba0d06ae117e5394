// HTML books: the page of the shown book, from its load to what is kept of it.
#pragma once

#include "books/book_record.h"
#include "common/geometry.h"

#include <optional>
#include <string>
#include <vector>

struct MainForm;

struct PagePlace {
    std::u16string path; // of the page
    int top = 0;         // its vertical offset
};

struct HtmlPage {
    std::u16string path;   // of the shown book; "" while no HTML book is shown
    int load = 0;          // number of its load; one that comes back with another is of a page left
    bool restored = false; // loaded and brought to its place: only then its place can be kept
    int pendingZoomKeys = 0;      // sent to the view and not yet seen to arrive
    std::vector<PagePlace> trail; // where links were followed that led here, the last at the end

    // What happened to the page while a command ran, for when that is done.
    std::optional<std::u16string> arrivedUrl;
    bool gone = false, zoomed = false;
};

bool CanShowPages(const MainForm&); // this front has an HTML view that works
bool IsPageShown(const MainForm&);  // the shown book is an HTML book, loaded or not
bool HasPageBody(const MainForm&);  // and its document is there

// Shows the view and starts to load the book. The rest follows when the document is complete.
void ShowInHtmlView(MainForm&, const BookRecord&, Color backColor);
void LeavePage(MainForm&); // another view, or no book, is shown from now on

// Place and zoom, as the page has settled both, and charset go into the record of history item 0,
// without a wait. Nothing changes while the page has not been brought to its place, or is that of
// another book. A record just made (`takesPlace` false) gets the zoom asked for last and the
// charset but no place.
void TakePageState(const MainForm&, BookRecord&, bool takesPlace);

void wbMain_DocumentComplete(MainForm&, const std::u16string& url);
void wbMain_Gone(MainForm&);
