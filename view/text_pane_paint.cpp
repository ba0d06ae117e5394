// Painting, the blinking caret and the scroll bars of a text pane.
#include "common/contrast.h"
#include "view/text_painter.h"
#include "view/text_pane.h"

#include <algorithm>
#include <utility>
#include <vector>

void TextPane::Paint(Canvas& canvas, const Rect& clip) {
    const VerticalPos top = Scroller().Top();
    const SelectionColors& selection =
        window_.HasFocus() ? system_.selection : system_.inactiveSelection;
    const TextPaint paint{context_,       PlainTextColor(viewStyle_, system_),
                          selection.text, selection.background,
                          SelStart(),     SelEnd()};
    std::vector<std::pair<TextLayouts::Layout, int>> shown;
    auto layout = layouts_.At(top.block);
    for (int y = -top.y; layout && y < Bottom(clip); layout = layouts_.After(layout)) {
        if (y + layout->height >= clip.top) shown.emplace_back(layout, y);
        y += layout->height;
    }
    UpdateScrollBars(); // the lines that determine the horizontal range are laid out now
    for (const auto& [block, y] : shown)
        PaintBackground(canvas, *block, {-ToTextX(0), y});
    for (const auto& [block, y] : shown)
        PaintBlock(canvas, paint, *block, {-ToTextX(0), y}, clip);
    if (text_->Length() == 0 && !placeholder_.text.empty())
        placeholderLink_ = PaintPlaceholder(canvas, lines_, placeholder_, system_,
                                            {window_.Room(), margin_, viewStyle_.backColor, clip});
    else
        PaintCaret(canvas);
    if (labelShown_) PaintLabel(canvas);
}

void TextPane::SetPlaceholder(const Placeholder& placeholder) {
    placeholder_ = placeholder;
    placeholderLink_ = {};
    window_.Redraw();
}

bool TextPane::IsPlaceholderLink(Point point) const {
    return text_->Length() == 0 && Intersect(placeholderLink_, {point.x, point.y, 1, 1});
}

void TextPane::PaintCaret(Canvas& canvas) {
    if (!caretOn_ || !window_.HasFocus()) return;
    const auto caret = CaretRect();
    if (!caret) return;
    const Color text = PlainTextColor(viewStyle_, system_), back = viewStyle_.backColor;
    canvas.FillRect(*caret, CanBeSeen(text, back) ? text : LegibleOn(back));
}

// Called when painting, because then the visible blocks are laid out anyway: a book that is opened
// and scrolled to a position is laid out once.
void TextPane::UpdateScrollBars() {
    const TextPos value = scroller_.TopAsPosition();
    const TextPos page = scroller_.BottomAsPosition() - value;
    window_.ShowVertical(
        {value, std::max(value, scroller_.MaxTopAsPosition()), std::max(1, page), 1});
    maxScrollX_ = std::max(0, layouts_.Width() + 2 * margin_ - width_);
    scrollX_ = std::min(scrollX_, maxScrollX_);
    ShowHorizontal();
}

void TextPane::ShowHorizontal() {
    window_.ShowHorizontal({scrollX_, maxScrollX_, width_, LineHeight()});
}

void TextPane::ScrollLines(int lines) {
    Scroller().ScrollLines(lines, LineHeight());
    OnScrolled();
}

void TextPane::ScrollPage(bool down) {
    Scroller().ScrollPage(down, LineHeight());
    OnScrolled();
}

void TextPane::ScrollTo(TextPos position) {
    Scroller().ScrollToPosition(position);
    OnScrolled();
}

void TextPane::ScrollBy(Point pixels) {
    if (pixels.y != 0) Scroller().ScrollBy(pixels.y);
    scrollX_ = std::clamp(scrollX_ + pixels.x, 0, maxScrollX_);
    if (pixels.x != 0) ShowHorizontal();
    OnScrolled();
}

void TextPane::ScrollToX(int x) {
    const int target = std::clamp(x, 0, maxScrollX_);
    if (std::exchange(scrollX_, target) != target) OnScrolled();
}

void TextPane::RestartBlinking() {
    caretOn_ = true;
    const int interval = window_.BlinkInterval();
    if (window_.HasFocus() && interval > 0)
        window_.StartTimer(PaneTimer::CaretBlink, interval);
    else
        window_.StopTimer(PaneTimer::CaretBlink);
}

void TextPane::OnFocusChanged() {
    RestartBlinking();
    window_.Redraw();
}

void TextPane::OnTimer(PaneTimer timer) {
    if (timer == PaneTimer::AutoScroll) return AutoScroll();
    if (timer == PaneTimer::ScrollLabel) return HideScrollLabel();
    if (timer == PaneTimer::Headings) return FindMoreHeadings();
    caretOn_ = !caretOn_;
    if (const auto caret = CaretRect()) window_.RedrawPart(*caret);
}
