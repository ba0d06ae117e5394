#include "view/text_pane.h"

#include "common/string_text.h"
#include "view/column.h"
#include "view/unwrapped_text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int minMargin = 6, marginDivisor = 40; // 1/96 inch; a share of the width
constexpr int maxLineWidth = 1 << 24;            // pixels
constexpr double twipsPerInch = 1440, unitsPerInch = 96;
} // namespace

TextPane::TextPane(PaneWindow& window, LineLayout& lines, PictureStore& pictures)
    : window_(window), lines_(lines), pictures_(pictures),
      text_(std::make_shared<StringText>(document_.text)),
      styles_(document_, viewStyle_, system_, lines_), context_{document_, viewStyle_, styles_,
                                                                pictures_, lines_},
      layouts_(context_), scroller_(layouts_), drag_(window) {
    context_.text = text_.get();
    headings_.Reset(*text_, document_, context_.plain);
    context_.pixelsPerTwip = 0; // unknown until the first layout
}

void TextPane::ShowText(Document document, bool plain) {
    window_.OnTextChanging();
    document_ = std::move(document);
    text_ = std::make_shared<StringText>(document_.text);
    context_.plain = plain;
    ResetView();
}

void TextPane::ShowText(std::shared_ptr<const TextSource> text) {
    window_.OnTextChanging();
    document_ = Document();
    text_ = std::move(text);
    context_.plain = true;
    ResetView();
}

void TextPane::ResetView() {
    unwrapped_.reset();
    pageLines_.reset();
    ChooseShownText();
    const TextPos anchorBefore = std::exchange(anchor_, 0), caretBefore = std::exchange(caret_, 0);
    preferredX_.reset();
    headings_.Reset(*text_, document_, context_.plain);
    pictures_.Clear();
    styles_.ClearFonts();
    scroller_.ScrollLineToTop(0);
    scrollX_ = 0;
    Relayout();
    window_.OnTextChanged();
    window_.OnSelectionChanged(anchorBefore, caretBefore);
}

// Where lines do not wrap each is as long as the file made it.
void TextPane::ChooseShownText() {
    const bool unwraps = viewStyle_.unwrapped && context_.plain && viewStyle_.rightMargin <= 0;
    if (unwraps != (unwrapped_ != nullptr)) pageLines_.reset();
    if (!unwraps)
        unwrapped_.reset();
    else if (!unwrapped_)
        unwrapped_ = std::make_shared<UnwrappedText>(text_);
    context_.text = unwraps ? unwrapped_.get() : text_.get();
}

void TextPane::SetStyle(const ViewStyle& style) {
    viewStyle_ = style;
    ChooseShownText();
    Relayout();
}

void TextPane::SetSystemStyle(const SystemStyle& style) {
    system_ = style;
    Relayout();
}

void TextPane::Relayout() {
    styles_.Reset();
    fullColumn_.reset();
    layouts_.Clear();
    scroller_.LayoutsChanged();
    OnScrolled();
}

void TextPane::OnScrolled() {
    visibleSpan_.reset();
    window_.Redraw();
    window_.OnVisibleTextChanged();
}

int TextPane::BreakWidth(int room) const {
    if (viewStyle_.rightMargin <= 0) return room;
    return int(
        std::clamp(viewStyle_.rightMargin * context_.pixelsPerTwip, 1.0, double(maxLineWidth)));
}

int TextPane::ColumnWidth(int room) {
    if (viewStyle_.maxLineLength <= 0 || viewStyle_.rightMargin > 0) return room;
    if (!pageLines_) {
        pageLines_.emplace();
        if (context_.plain && !unwrapped_) pageLines_ = PageLines(*text_);
    }
    if (!fullColumn_) fullColumn_ = ::ColumnWidth(context_, viewStyle_.maxLineLength, *pageLines_);
    return std::min(room, *fullColumn_);
}

// Returns whether the resolution has changed.
bool TextPane::UpdateResolution() {
    const double dpi = window_.Dpi(), pixelsPerTwip = dpi / twipsPerInch;
    if (std::exchange(context_.pixelsPerTwip, pixelsPerTwip) == pixelsPerTwip) return false;
    lines_.SetResolution(dpi);
    styles_.Reset();
    fullColumn_.reset();
    return true;
}

// Called before the layout is used, because a hidden window may not be told of its size.
void TextPane::UpdateLayoutSize() {
    const bool sameScreen = !UpdateResolution();
    width_ = window_.Room().width;
    const int minWidth = int(minMargin * context_.pixelsPerTwip * twipsPerInch / unitsPerInch);
    margin_ = std::max(minWidth, width_ / marginDivisor);
    const int room = std::max(1, width_ - 2 * margin_);
    const int breakWidth = BreakWidth(room), viewWidth = std::min(room, breakWidth);
    const int columnWidth = ColumnWidth(viewWidth);
    horizontalBar_ = breakWidth > room;
    window_.SetHorizontalBar(horizontalBar_);
    const int height = std::max(1, window_.Room().height);
    const bool sameHeight = height == scroller_.ViewHeight();
    if (!sameHeight) {
        scroller_.SetViewHeight(height);
        scroller_.LayoutsChanged();
        visibleSpan_.reset();
    }
    const bool sameWidth = breakWidth == context_.breakWidth && viewWidth == context_.viewWidth &&
                           columnWidth == context_.columnWidth;
    if (sameScreen && sameWidth && sameHeight) return;
    if (!sameScreen || !sameWidth) {
        context_.breakWidth = breakWidth;
        context_.viewWidth = viewWidth;
        context_.columnWidth = columnWidth;
        context_.wraps = breakWidth <= room;
        Relayout();
    }
    scroller_.KeepEndAtBottom();
}

TextScroller& TextPane::Scroller() {
    UpdateLayoutSize();
    return scroller_;
}

TextLayouts& TextPane::Layouts() {
    UpdateLayoutSize();
    return layouts_;
}

void TextPane::Select(TextPos anchor, TextPos caret) {
    const TextPos size = text_->Length();
    const TextPos anchorBefore = std::exchange(anchor_, std::clamp(anchor, 0, size));
    const TextPos caretBefore = std::exchange(caret_, std::clamp(caret, 0, size));
    preferredX_.reset();
    RestartBlinking();
    window_.Redraw();
    window_.OnSelectionChanged(anchorBefore, caretBefore);
}

int TextPane::LineHeight() {
    UpdateLayoutSize();
    const FontMetrics metrics = lines_.Metrics(*styles_.Plain().handle);
    return std::max(1, int(std::lround(metrics.ascent) + std::lround(metrics.descent)));
}

TextPos TextPane::PositionAtPoint(Point point) {
    const VerticalPos height = Scroller().Moved(scroller_.Top(), point.y);
    return PositionAt(*layouts_.At(height.block), {ToTextX(point.x), height.y});
}

TextPos TextPane::CharacterAtPoint(Point point) {
    const VerticalPos height = Scroller().Moved(scroller_.Top(), point.y);
    return PositionAt(*layouts_.At(height.block), {ToTextX(point.x), height.y}, HitTest::Character);
}

std::optional<Rect> TextPane::CaretRect() {
    const auto top = Scroller().BlockTopInView(caret_);
    if (!top) return std::nullopt;
    Rect box = Moved(CaretBox(*layouts_.At(caret_), caret_), {-ToTextX(0), *top});
    box.width = context_.Hairline();
    return box;
}

// From the first visible block's start to the last one's end. Cached, because some screen readers
// query the characters of a long text one by one.
const TextSpan& TextPane::VisibleSpan() {
    const VerticalPos top = Scroller().Top();
    if (visibleSpan_) return *visibleSpan_;
    auto layout = layouts_.At(top.block);
    TextSpan visible{layout->block.start, layout->block.end};
    for (int y = layout->height - top.y; y < scroller_.ViewHeight(); y += layout->height) {
        const auto after = layouts_.After(layout);
        if (!after) {
            ++visible.end; // the position after the last character
            break;
        }
        layout = after;
        visible.end = layout->block.end;
    }
    return visibleSpan_.emplace(visible);
}

Rect TextPane::CharacterRect(TextPos position) {
    const TextSpan& visible = VisibleSpan();
    const int lineHeight = LineHeight();
    if (position < visible.start) return {0, -2 * lineHeight, 1, lineHeight};
    const auto top = position < visible.end ? scroller_.BlockTopInView(position) : std::nullopt;
    if (!top) return {0, scroller_.ViewHeight() + lineHeight, 1, lineHeight};
    return Moved(CharacterBox(*layouts_.At(position), position), {-ToTextX(0), *top});
}
