// A page in its window, laid out and scrolled: what is where in the view, in device pixels.
#pragma once

#include "view/html/page_scroller.h"

// For one question: made anew whenever the page may have been laid out or scrolled.
struct PageViewport {
    const LoadedPage& page;
    ShownPage& shown;
    const PageScroller& scroller;
    int scrollX = 0;
    Size size;

    PagePlaces Places() const { return {page, shown}; }
    std::optional<CharacterPlace> PlaceOf(TextPos position) const {
        return Places().PlaceOf(position);
    }
    // See PagePlaces::NearestLine.
    std::optional<CharacterPlace> LineAt(Point point, bool below = false) const {
        const PageScroller::Top at = scroller.At(point.y);
        return Places().NearestLine(at.zone, point.x + scrollX, at.y, below);
    }
    // From the top of the view.
    double TopOf(const CharacterPlace& place) const {
        return scroller.InView(place.block.zone, place.top);
    }
};
