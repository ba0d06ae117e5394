// What a text pane needs of the window that it is shown in. All lengths are device pixels.
#pragma once

#include "common/geometry.h"
#include "view/geometry.h"

#include <chrono>

enum class PaneTimer { CaretBlink, AutoScroll, ScrollLabel, Headings, Measuring };
constexpr int paneTimers = 5;

// Vertically in positions of the text, because a text of any length has no height in pixels;
// horizontally in pixels.
struct ScrollRange {
    int value = 0, max = 0, page = 1;
    int step = 1; // of the arrows
};

class PaneWindow {
  public:
    virtual ~PaneWindow() = default;

    // The room for the text, beside the vertical scroll bar, which is always there, and above the
    // horizontal one as it was last shown or hidden. Known for a hidden window, too.
    virtual Size Room() const = 0;
    virtual double Dpi() const = 0;
    virtual bool HasFocus() const = 0;
    virtual int BlinkInterval() const = 0; // milliseconds; 0: the caret does not blink

    virtual void Redraw() = 0;                     // soon, all of it
    virtual void RedrawPart(const Rect& part) = 0; // likewise
    virtual void SetHorizontalBar(bool shown) = 0;
    // A thumb that is being dragged stays where it is.
    virtual void ShowVertical(const ScrollRange& range) = 0;
    virtual void ShowHorizontal(const ScrollRange& range) = 0;
    virtual void StartTimer(PaneTimer timer, int milliseconds) = 0; // until it is stopped
    virtual void StopTimer(PaneTimer timer) = 0;
    // Of a clock that is never set, since some moment.
    virtual std::chrono::milliseconds SteadyTime() const = 0;

    // For assistive technology, after the change but for the first.
    virtual void OnTextChanging() = 0;
    virtual void OnTextChanged() = 0;
    virtual void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) = 0;
    virtual void OnVisibleTextChanged() = 0; // often while scrolling
    virtual void OnObjectFocused() {}        // a link, by the keyboard; see ReadablePane
};
