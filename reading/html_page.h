// The page of the shown HTML book: what the program knows of it beside the view.
#pragma once

#include "platform/html_view.h"

#include <optional>
#include <string>
#include <vector>

struct PagePlace {
    std::u16string path; // of the page
    PageTop top;
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

    bool IsShown() const { return !path.empty(); } // loaded or not
    // And its document is there. `view` is null where there is no HTML view.
    bool HasBody(const HtmlView* view) const { return IsShown() && restored && view->HasBody(); }
};

// Another page takes the place of this one, or none. Numbers of loads are not used again.
void ResetPage(HtmlPage&);

// Of a place that is kept while the program runs. Its words lead there, so the page is laid out as
// far as that, which takes time, only where there are none.
PageTop PlaceToReturnTo(HtmlView&);

// Remembers the place, from which a link is followed, at the end of the trail. The oldest is
// dropped from a long one.
void PushPlace(HtmlPage&, const PageTop& top);
