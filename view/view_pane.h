// What a window shows and the user's input goes to: a text or a page. Lengths are device pixels
// from the window's top left corner.
#pragma once

#include "view/pane_window.h"
#include "view/view_style.h"

#include <optional>

enum class PaneKey { Left, Right, Up, Down, PageUp, PageDown, Home, End, Space };

class ViewPane {
  public:
    virtual ~ViewPane() = default;

    virtual void SetSystemStyle(const SystemStyle& style) = 0;
    virtual Color BackColor() const = 0; // that the window is filled with before it is painted
    // `clip` is what is to be drawn.
    virtual void Paint(Canvas& canvas, const Rect& clip) = 0;
    virtual int LineHeight() = 0;                // of the usual text
    virtual std::optional<Rect> CaretRect() = 0; // none if it is out of view

    // What the user does. `extend` keeps the selection's other end.
    virtual bool Press(PaneKey key, bool extend,
                       bool control) = 0; // whether the key means something
    // Of the main button: by a character (1), a word (2) or a paragraph (3).
    virtual void Click(Point point, int count, bool extend) = 0;
    virtual void DragTo(Point point) = 0;
    virtual void EndDrag() = 0;
    virtual bool IsLink(Point point) = 0;
    // Outside the selection it moves the caret there first.
    virtual void PrepareContextMenu(Point point) = 0;
    virtual void SelectAll() = 0;

    virtual void ScrollLines(int lines) = 0;
    virtual void ScrollPage(bool down) = 0;
    void PageUp() { ScrollPage(false); }
    void PageDown() { ScrollPage(true); }
    virtual void ScrollBy(Point pixels) = 0;
    // By the scroll bars, in the units of their ranges.
    virtual int VerticalValue() = 0;
    virtual void ScrollToValue(int value) = 0;
    virtual void ScrollToX(int x) = 0;
    // For a moment beside the scroll bar: while that is dragged or the wheel turns.
    virtual void ShowScrollLabel() = 0;

    virtual void OnTimer(PaneTimer timer) = 0;
    virtual void OnFocusChanged() = 0;
    virtual void OnResized() = 0;
};
