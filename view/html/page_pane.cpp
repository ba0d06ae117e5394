#include "view/html/page_pane.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {
constexpr int measuringTime = 8; // milliseconds
// For a place that is asked for or stored; what is above it may take longer to be measured.
constexpr int placeTime = 300, exactTime = 1000;
constexpr double unitsPerInch = 96;
// Of a window that comes up: window managers change its size after it was shown.
constexpr std::chrono::seconds settlingTime(3);

int Rounded(double length) {
    return int(std::lround(std::clamp(length, -1e9, 1e9)));
}
} // namespace

PagePane::PagePane(PaneWindow& window, LineLayout& lines, PictureStore& pictures,
                   const Files& files)
    : window_(window), lines_(lines), store_(pictures), files_(files), drag_(window) {}

PagePane::~PagePane() = default;

void PagePane::Clear() {
    window_.StopTimer(PaneTimer::Measuring);
    window_.OnTextChanging();
    HideScrollLabel();
    headings_.reset();
    ForgetObjects();
    source_.emplace(noText_);
    scroller_.SetPage(nullptr, 1);
    shown_.reset();
    pictures_.reset();
    pageFiles_.reset();
    page_.reset();
    sheets_.clear();
    zoom_ = 100;
    text_.reset();
    background_.reset();
    wantedHeight_.reset();
    topAnchor_.reset();
    newTop_.reset();
    scrollX_ = maxScrollX_ = 0;
    widest_ = 0;
    anchor_ = caret_ = 0;
    pressedLink_ = focusedLink_ = noHtmlNode;
    window_.Redraw();
    window_.OnTextChanged();
}

void PagePane::Show(std::unique_ptr<LoadedPage> page) {
    Clear();
    page_ = std::move(page);
    source_.emplace(page_->Text());
    pageFiles_ = std::make_unique<PageFiles>(files_, *page_);
    pictures_ = std::make_unique<PagePictures>(*page_, *pageFiles_, store_);
    sheets_ = PageSheets(*page_, *pageFiles_);
    UpdateLayout();
    ownText_ = shown_->TextColor();
    ownBackground_ = shown_->CanvasColor();
    bodyBackground_ = shown_->BodyColor();
    window_.OnTextChanged();
}

double PagePane::ScaleOf(int zoomPercent) const {
    return window_.Dpi() / unitsPerInch * zoomPercent / 100;
}

// Called before the layout is used, because a hidden window may not be told of its size.
bool PagePane::UpdateLayout() {
    if (!page_) return false;
    const Size room = window_.Room();
    PageLook look;
    look.dpi = window_.Dpi();
    look.scale = ScaleOf(zoom_);
    look.viewport = {std::max(1, room.width), std::max(1, room.height)};
    look.text = text_;
    look.background = background_;
    // To say what the page says itself would style all of it once more.
    if (text_ == ownText_) look.text.reset();
    if (background_ == bodyBackground_ && background_ == ownBackground_) look.background.reset();
    if (!shown_ || look != look_) LayOutAnew(look);
    return true;
}

void PagePane::LayOutAnew(const PageLook& look) {
    const std::optional<PlaceAtTop> anchor = shown_ ? TopAnchor() : std::nullopt;
    PageLook before = std::exchange(look_, look);
    if (before.scale != look.scale) {
        newTop_.reset();
        wantedHeight_.reset();
    }
    const bool sameHeight = before.viewport.height == look.viewport.height;
    const bool sameWidth = before.viewport.width == look.viewport.width;
    before.viewport = look.viewport;
    const bool newStyles = !shown_ || before != look ||
                           (shown_->Styles().DependsOnViewport() && !(sameWidth && sameHeight));
    if (!newStyles && sameWidth) {
        scroller_.SetPage(shown_.get(), look.viewport.height);
        return scroller_.ScrollBy(0);
    }
    lines_.SetResolution(look.dpi);
    if (newStyles) {
        scroller_.SetPage(nullptr, 1);
        ++timesStyled_;
        shown_ = std::make_unique<ShownPage>(*page_, sheets_, *pictures_, lines_, look);
        ForgetObjects();
    } else {
        shown_->Flow().SetWidth(look.viewport.width);
    }
    scroller_.SetPage(shown_.get(), look.viewport.height);
    widest_ = 0;
    if (newTop_ && (wantedHeight_ || std::chrono::steady_clock::now() < newTopUntil_))
        GoTo(*newTop_);
    else
        RestoreTop(anchor);
    window_.StartTimer(PaneTimer::Measuring, measuringInterval);
    OnScrolled();
}

std::optional<CharacterPlace> PagePane::PlaceOf(TextPos position) {
    return PagePlaces(*page_, *shown_).PlaceOf(position);
}

// At the page's start there is none: what is above the first line stays in view.
std::optional<PagePane::PlaceAtTop> PagePane::TopAnchor() {
    if (scroller_.IsAtStart()) return std::nullopt;
    if (topAnchor_) return topAnchor_;
    const double margin = shown_->TopMargin();
    const auto line = LineAt({0, Rounded(margin) + 1}, true);
    if (!line) return std::nullopt;
    const PagePlaces places(*page_, *shown_);
    const TextPos position = places.PositionOf(line->block.Content(), line->unit);
    const auto place = PlaceOf(position);
    if (!place) return std::nullopt;
    return PlaceAtTop{position, scroller_.InView(place->block.zone, place->top) / place->height};
}

void PagePane::RestoreTop(const std::optional<PlaceAtTop>& anchor) {
    topAnchor_ = anchor;
    if (!anchor) return scroller_.ScrollTo({});
    if (const auto place = PlaceOf(anchor->position))
        scroller_.ScrollTo({place->block.zone, place->top - anchor->lines * place->height});
}

void PagePane::SetZoom(int percent) {
    zoom_ = percent;
    wantedHeight_.reset();
    UpdateLayout();
}

void PagePane::SetColors(std::optional<Color> text, std::optional<Color> background) {
    text_ = text;
    background_ = background;
    UpdateLayout();
    window_.Redraw();
}

void PagePane::SetSystemStyle(const SystemStyle& style) {
    system_ = style;
    window_.Redraw();
}

// Measures zones from the first on, until `isEnough` or all are; false when the time was over
// before.
bool PagePane::MeasureUntil(const std::function<bool(std::size_t)>& isEnough, int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    PageFlow& flow = shown_->Flow();
    while (flow.FirstNotMeasured() < flow.ZoneCount()) {
        if (isEnough(flow.FirstNotMeasured())) return true;
        if (std::chrono::steady_clock::now() > end) return false;
        flow.MeasureSome(8);
    }
    return true;
}

bool PagePane::MeasureHeight(double height, int milliseconds) {
    const HeightIndex& heights = shown_->Flow().Heights();
    return MeasureUntil([&](std::size_t zone) { return heights.Top(zone) > height; }, milliseconds);
}

bool PagePane::MeasureAbove(std::size_t zone, int milliseconds) {
    return MeasureUntil([&](std::size_t first) { return first >= zone; }, milliseconds);
}

// Whether the heights down to it are exact now.
bool PagePane::ReachWantedHeight(int milliseconds) {
    if (!MeasureHeight(*wantedHeight_ + look_.viewport.height, milliseconds)) return false;
    scroller_.LayoutsChanged();
    GoToMeasured(*std::exchange(wantedHeight_, {}));
    OnScrolled();
    return true;
}

// Words that are elsewhere in this layout stay at the top, and their line is seen as a whole.
void PagePane::GoToMeasured(double height) {
    constexpr double slack = 2; // CSS pixels, of what was rounded
    const bool hasWords = newTop_ && newTop_->start > 0;
    if (!hasWords || std::abs(scroller_.Height() - height) <= slack * look_.scale)
        scroller_.ScrollToHeight(height);
    else if (newTop_->above > 0)
        GoToLine({.start = newTop_->start});
}

void PagePane::MeasureMore() {
    if (!UpdateLayout()) return;
    if (pictures_->TakeLeftOut()) window_.Redraw();
    if (wantedHeight_) {
        ReachWantedHeight(measuringTime);
        return;
    }
    if (MeasureAll(measuringTime)) window_.StopTimer(PaneTimer::Measuring);
    UpdateScrollBars();
}

void PagePane::ScrollTo(int left, int top) {
    BringToTop({.offset = top});
    if (page_) scrollX_ = std::max(0, Rounded(left * look_.scale));
}

void PagePane::BringToTop(const PageTop& top) {
    if (!UpdateLayout()) return;
    scrollX_ = 0;
    newTop_ = top;
    newTopUntil_ = std::chrono::steady_clock::now() + settlingTime;
    GoTo(top);
    OnScrolled();
}

// To words at once; to a pixel when all above has been measured.
void PagePane::GoTo(const PageTop& top) {
    wantedHeight_.reset();
    topAnchor_.reset();
    const bool hasWords = GoToLine(top);
    if (hasWords && top.offset < 0) return;
    const double height = std::max(0, top.offset) * look_.scale;
    if (MeasureHeight(height + look_.viewport.height, hasWords ? measuringTime : placeTime))
        return GoToMeasured(height);
    wantedHeight_ = height;
    window_.StartTimer(PaneTimer::Measuring, measuringInterval);
    if (!hasWords) scroller_.ScrollToHeight(height);
}

bool PagePane::GoToLine(const PageTop& top) {
    const auto place = top.start > 0 ? PlaceOf(top.start) : std::nullopt;
    if (!place) return false;
    const double above = std::min(top.above * look_.scale, place->height - 1);
    scroller_.ScrollTo({place->block.zone, place->top - std::round(shown_->TopMargin()) + above});
    const double inView = scroller_.InView(place->block.zone, place->top);
    topAnchor_ = PlaceAtTop{top.start, inView / place->height};
    return true;
}

PageTop PagePane::Top() {
    if (!UpdateLayout()) return {};
    PageTop top;
    if (wantedHeight_ && !ReachWantedHeight(exactTime)) {
        top = *newTop_;
    } else {
        if (MeasureAbove(scroller_.Position().zone, exactTime))
            top.offset = Rounded(scroller_.Height() / look_.scale);
        const auto anchor = TopAnchor();
        top.start = anchor ? anchor->position : 0;
        const auto place = anchor ? PlaceOf(anchor->position) : std::nullopt;
        if (place)
            top.above = Rounded((std::round(shown_->TopMargin()) -
                                 scroller_.InView(place->block.zone, place->top)) /
                                look_.scale);
    }
    const std::u16string& text = page_->Text();
    top.length = page_->Length();
    if (top.start < 0) return top;
    const TextPos start = std::min(top.start, top.length);
    const TextPos first = std::max(0, start - PageTop::maxAround);
    top.before = text.substr(std::size_t(first), std::size_t(start - first));
    top.after = text.substr(std::size_t(start), PageTop::maxAround);
    return top;
}

int PagePane::ScrollTop() {
    if (!UpdateLayout()) return 0;
    if (wantedHeight_ && !ReachWantedHeight(exactTime))
        return Rounded(*wantedHeight_ / look_.scale);
    MeasureAbove(scroller_.Position().zone, exactTime);
    return Rounded(scroller_.Height() / look_.scale);
}

int PagePane::ViewHeight() const {
    return Rounded(window_.Room().height / ScaleOf(zoom_));
}

int PagePane::TopMargin() {
    return UpdateLayout() ? Rounded(shown_->TopMargin() / look_.scale) : 0;
}

void PagePane::ScrollLineToTop(TextPos position) {
    if (!UpdateLayout()) return;
    scrollX_ = 0;
    const auto place = position > 0 ? PlaceOf(position) : std::nullopt;
    scroller_.ScrollTo(
        place ? PageScroller::Top{place->block.zone, place->top - std::round(shown_->TopMargin())}
              : PageScroller::Top{});
    OnUserScrolled();
}

int PagePane::Percent() {
    if (!UpdateLayout()) return 0;
    const double height = scroller_.Height(), max = scroller_.MaxHeight();
    if (height >= max - 1) return 100;
    return int(100 * height / max + 0.01);
}

void PagePane::ScrollToPercent(int percent) {
    if (!UpdateLayout()) return;
    MeasureAll(placeTime);
    scroller_.ScrollToHeight(std::ceil(scroller_.MaxHeight() * percent / 100));
    OnUserScrolled();
}

bool PagePane::ScrollDown(double pixels) {
    if (!UpdateLayout()) return false;
    const PageScroller::Top before = scroller_.Position();
    scroller_.ScrollBy(pixels * look_.scale);
    OnUserScrolled();
    return scroller_.Position() != before;
}

int PagePane::LineTop(TextPos position) {
    if (!UpdateLayout()) return 0;
    const auto place = position > 0 ? PlaceOf(position) : std::nullopt;
    if (!place) return Rounded((shown_->TopMargin() - scroller_.Height()) / look_.scale);
    // What lies between it and the view is to be exact.
    MeasureAbove(std::max(place->block.zone, scroller_.Position().zone), placeTime);
    return Rounded(scroller_.InView(place->block.zone, place->top) / look_.scale);
}

int PagePane::CharacterLeft(TextPos position) {
    const auto place = UpdateLayout() ? PlaceOf(position) : std::nullopt;
    return place ? Rounded((place->x - scrollX_) / look_.scale) : 0;
}

TextPos PagePane::StartAtTop() {
    if (!UpdateLayout()) return -1;
    const auto line = LineAt({0, Rounded(shown_->TopMargin()) + 1}, true);
    if (!line) return 0;
    return PagePlaces(*page_, *shown_).PositionOf(line->block.Content(), line->unit);
}

void PagePane::Select(TextPos anchor, TextPos caret) {
    if (!page_) return;
    const TextPos anchorBefore = std::exchange(anchor_, std::clamp(anchor, 0, page_->Length()));
    const TextPos caretBefore = std::exchange(caret_, std::clamp(caret, 0, page_->Length()));
    window_.Redraw();
    window_.OnSelectionChanged(anchorBefore, caretBefore);
}

void PagePane::SelectAll() {
    if (page_) Select(0, page_->Length());
}

void PagePane::Reveal(TextPos position) {
    const auto place = UpdateLayout() ? PlaceOf(position) : std::nullopt;
    if (!place) return;
    const double height = look_.viewport.height;
    const double top = scroller_.InView(place->block.zone, place->top);
    if (top < 0 || place->height > height)
        scroller_.ScrollTo({place->block.zone, place->top});
    else if (top + place->height > height)
        scroller_.ScrollTo({place->block.zone, place->top + place->height - height});
    OnUserScrolled();
    const int x = Rounded(place->x) - scrollX_, margin = Rounded(shown_->TopMargin());
    if (x >= 0 && x < look_.viewport.width) return;
    maxScrollX_ = std::max(maxScrollX_, Rounded(place->x) + margin - look_.viewport.width);
    ScrollToX(scrollX_ + (x < 0 ? x - margin : x + margin - look_.viewport.width));
}

// Of the place where the next keys extend the selection.
std::optional<Rect> PagePane::CaretRect() {
    const auto place = UpdateLayout() ? PlaceOf(caret_) : std::nullopt;
    if (!place) return std::nullopt;
    const Rect box{Rounded(place->x) - scrollX_,
                   Rounded(scroller_.InView(place->block.zone, place->top)), 1,
                   Rounded(place->height)};
    const Rect view{0, 0, look_.viewport.width, look_.viewport.height};
    return Intersect(box, view) ? std::optional(box) : std::nullopt;
}
