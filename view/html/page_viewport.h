// A page in its window, laid out and scrolled: what is where in the view, in device pixels.
#pragma once

#include "view/html/page_scroller.h"

// For one question: made again whenever the page may have been laid out or scrolled.
struct PageViewport {
    const LoadedPage& page;
    ShownPage& shown;
    const PageScroller& scroller;
    int scrollX = 0;
    Size size;

    double Scale() const { return shown.Options().scale; }
    PagePlaces Places() const { return {page, shown}; }
    std::optional<CharacterPlace> PlaceOf(TextPos position) const {
        return Places().PlaceOf(position);
    }
    // See PagePlaces::NearestLine.
    std::optional<CharacterPlace> LineAt(Point point,
                                         LineChoice choice = LineChoice::Nearest) const {
        const PageScroller::Top at = scroller.At(point.y);
        return Places().NearestLine(at.zone, point.x + scrollX, at.y, choice);
    }
    // The first one that is read; nothing where there is no text near.
    std::optional<CharacterPlace> FirstLine() const;
    TextPos StartAtTop() const; // of that line; 0 without one
    TextPos PositionOf(const CharacterPlace& place) const {
        return Places().PositionOf(place.block.Content(), place.unit);
    }
    // From the top of the view.
    double TopOf(const CharacterPlace& place) const {
        return scroller.InView(place.block.zone, place.top);
    }
};
