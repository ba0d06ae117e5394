// Selecting with the mouse held down: by the unit that the press began with, and beyond the
// window's edges, towards which the text then scrolls by itself.
#pragma once

#include "view/caret_moves.h"
#include "view/pane_window.h"

class DragSelection {
  public:
    enum class Unit { Character, Word, Paragraph };
    struct Ends {
        TextPos anchor = 0, caret = 0;
    };

    // The window must outlive this object.
    explicit DragSelection(PaneWindow& window) : window_(window) {}

    // By a character for one click, a word for two, a paragraph for three.
    void Press(Point point, int clicks);
    Unit By() const { return unit_; }
    void KeepSelected(TextSpan first) { first_ = first; } // during the drag
    Ends ExtendedTo(TextSpan unit) const;                 // that the mouse is on now

    void MoveTo(Point point);
    void Finish();
    Point Mouse() const { return mouse_; }
    // How far the mouse is outside of the window, with signs; the text scrolls by so much.
    Point Overshoot() const;

  private:
    PaneWindow& window_;
    Unit unit_ = Unit::Character;
    TextSpan first_;
    Point mouse_;
    bool autoScrolls_ = false;
};
