// Lines and scrolling of the text view.
#include "platform/windows/text_view/win_text_view.h"

#include <algorithm>
#include <utility>

namespace {
int TwipsOfHeight(HWND window, int pixels) {
    const HDC screen = GetDC(window);
    const int twips = MulDiv(pixels, 1440, GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(window, screen);
    return twips;
}
} // namespace

LineSpan WinTextView::LineAround(TextPos position) const {
    const RichEdit& control = Control();
    const LONG line = control.LineFromChar(map_.ToControl(Clamp(position)));
    const TextPos first = control.LineStart(line), start = Clamp(map_.ToBook(first));
    TextPos end = Clamp(map_.ToBook(control.NextLineStart(line, first)));
    if (end > start && document_.text[static_cast<std::size_t>(end - 1)] == u'\n') --end;
    return {start, end - start};
}

TextPos WinTextView::FirstVisibleChar() const {
    const RichEdit& control = Control();
    if (IsScrollUnchanged() && (top_.requested || top_.reached))
        return LineAround(top_.position).start;
    return Clamp(map_.ToBook(control.LineStart(control.FirstVisibleLine())));
}

void WinTextView::ScrollLineToTop(TextPos position) {
    const RedrawPause pause(Control());
    ShowTop(Clamp(position), true);
}

bool WinTextView::IsScrollUnchanged() const {
    const POINT now = control_->ScrollPoint();
    return now.y == top_.scrolled.y && control_->FirstVisibleLine() == top_.line;
}

WinTextView::Top WinTextView::CurrentTop() const {
    if (IsScrollUnchanged() && (top_.requested || top_.reached)) return top_;
    Top top;
    top.position = FirstVisibleChar();
    top.requested = false;
    return top;
}

// A requested line near the end gets space below the text, so that it can be at the top. A line
// that the user scrolled to does not.
void WinTextView::ShowTop(TextPos position, bool requested) const {
    const auto line = [&] { return control_->LineFromChar(map_.ToControl(position)); };
    if (spaceBelow_ > 0 && !(requested && NeedsSpaceBelow(line()))) SetSpaceBelow(0);
    bool reached = ScrollTo(line());
    if (!reached && requested) {
        SetSpaceBelow(TwipsOfHeight(control_->Handle(), bounds_.height));
        reached = ScrollTo(line());
    }
    top_ = {position, requested, reached, control_->FirstVisibleLine(), control_->ScrollPoint()};
}

// Whether the text from the line to the end is lower than the view.
bool WinTextView::NeedsSpaceBelow(LONG line) const {
    const LONG top = control_->PosFromChar(control_->LineStart(line)).y;
    return control_->PosFromChar(control_->Length()).y - top < bounds_.height;
}

// Repeatedly: some versions estimate line heights until the lines are laid out on the way.
void WinTextView::ScrollLinesTo(LONG line) const {
    constexpr int maxTries = 10;
    for (int i = 0; i < maxTries && control_->FirstVisibleLine() != line; ++i)
        control_->ScrollLines(line - control_->FirstVisibleLine());
}

// To the pixel, where EM_SETSCROLLPOS or ScrollIntoView can.
bool WinTextView::ScrollTo(LONG line) const {
    ScrollLinesTo(line);
    const TextPos start = control_->LineStart(line);
    const auto hidden = [&] { return -control_->PosFromChar(start).y; };
    if (hidden() != 0) {
        const POINT now = control_->ScrollPoint();
        ScrollToPointIn(line, {now.x, now.y - hidden()});
    }
    if (hidden() > 0 && control_->FirstVisibleLine() == line) {
        control_->ScrollIntoView(start);
        ScrollLinesTo(line); // some versions scroll elsewhere
    }
    return control_->FirstVisibleLine() == line;
}

// EM_SETSCROLLPOS is limited to 16 bits: in a long text one step is many lines.
void WinTextView::ScrollToPointIn(LONG line, POINT point) const {
    control_->ScrollToPoint(point);
    ScrollLinesTo(line);
}

void WinTextView::SetSpaceBelow(int twips) const {
    if (twips == spaceBelow_) return;
    spaceBelow_ = twips;
    PARAFORMAT2 format = {};
    format.cbSize = sizeof format;
    format.dwMask = PFM_SPACEAFTER;
    format.dySpaceAfter = twips;
    PreserveScroll([&] {
        const CHARRANGE selection = control_->Selection();
        const TextPos end = control_->Length();
        control_->Select({end, end});
        control_->FormatSelectedParagraphs(format);
        control_->Select(selection);
    });
}

// The control would scroll the caret into view.
void WinTextView::PreserveScroll(const std::function<void()>& change) const {
    const RedrawPause pause(*control_);
    const LONG line = control_->FirstVisibleLine();
    const POINT before = control_->ScrollPoint();
    change();
    ScrollLinesTo(line);
    const POINT after = control_->ScrollPoint();
    if (after.x != before.x || after.y != before.y) ScrollToPointIn(line, before);
}

// Left and right end of the span in the line of `start`, client coordinates.
std::pair<LONG, LONG> WinTextView::SpanInLine(TextPos start, TextPos length) const {
    const LineSpan line = LineAround(start);
    const TextPos last = std::min(start + length, line.start + line.length);
    const POINT from = control_->PosFromChar(map_.ToControl(start));
    POINT to = control_->PosFromChar(map_.ToControl(last));
    if (to.y != from.y)
        to = control_->PosFromChar(map_.ToControl(last) - 1); // the next line's start
    return {from.x, to.x};
}

// EM_SETSCROLLPOS is limited to 16 bits: ScrollIntoView does the rest.
void WinTextView::ScrollIntoViewHorizontally(TextPos start, TextPos length) {
    constexpr LONG maxRoom = 64; // pixels of the line shown beside the span
    const RedrawPause pause(Control());
    const TextPos first = Clamp(start), most = TextLength() - first;
    const auto span = [&] { return SpanInLine(first, std::clamp(length, 0, most)); };
    const LONG width = control_->ClientWidth(), room = std::min(width / 4, maxRoom);
    const auto [from, to] = span();
    const auto [left, right] = std::minmax(from, to);
    if (left >= 0 && right < width) return;
    const Top top = CurrentTop();
    const POINT now = control_->ScrollPoint();
    const bool endsLeft = to < from && right - left > width - 2 * room;
    const LONG by = endsLeft ? right + room - width : std::min(left - room, right + room - width);
    control_->ScrollToPoint({std::max(0L, now.x + by), now.y});
    if (const LONG x = span().first; x < 0 || x >= width)
        control_->ScrollIntoView(map_.ToControl(first));
    ShowTop(top.position, top.requested);
}
