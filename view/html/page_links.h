// The links of a page: under the mouse, and by Tab and Return.
#pragma once

#include "view/html/page_viewport.h"
#include "view/pane_window.h"
#include "view/reading_object.h"
#include "view/view_style.h"

HtmlNodeId LinkAt(const PageViewport& view, Point point); // noHtmlNode for none

// One link at most has the focus, and one is held down by the mouse.
class PageLinks {
  public:
    void Forget() { focused_ = pressed_ = noHtmlNode; } // before another page is shown

    HtmlNodeId Focused() const { return focused_; }
    // To the link after or before, from the view's top when none has the focus. Where its text
    // starts; nothing where there is no such link.
    std::optional<TextPos> FocusNext(const PageViewport& view, bool forward);
    std::size_t FocusedIn(const ReadingObjects& objects) const; // noReadingObject for none
    void PaintFocus(Canvas& canvas, const PageViewport& view, Color color) const;

    // The mouse takes the focus away.
    void Press(HtmlNodeId link);
    // Whether it is still on the link that was pressed, which is none any longer elsewhere.
    bool KeepPressed(const PageViewport& view, Point point);
    HtmlNodeId LetGo(); // the link that is followed by it

  private:
    HtmlNodeId Next(const PageViewport& view, bool forward) const;

    HtmlNodeId focused_ = noHtmlNode, pressed_ = noHtmlNode;
};
