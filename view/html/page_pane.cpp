#include "view/html/page_pane.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double unitsPerInch = 96;
constexpr int measuringInterval = 10; // milliseconds
} // namespace

PagePane::PagePane(PaneWindow& window, LineLayout& lines, PictureStore& pictures,
                   const Files& files)
    : window_(window), lines_(lines), store_(pictures), files_(files), drag_(window) {}

PagePane::~PagePane() = default;

void PagePane::Clear() {
    window_.StopTimer(PaneTimer::Measuring);
    window_.OnTextChanging();
    label_.Forget();
    ForgetObjects();
    ForgetSource();
    scroller_.SetPage(nullptr, 1);
    shown_.reset();
    pictures_.reset();
    pageFiles_.reset();
    page_.reset();
    sheets_.clear();
    zoom_ = 100;
    text_.reset();
    background_.reset();
    top_.Release();
    scrollX_ = maxScrollX_ = 0;
    widest_ = 0;
    anchor_ = caret_ = 0;
    links_.Forget();
    window_.Redraw();
    window_.OnTextChanged();
}

void PagePane::Show(std::unique_ptr<LoadedPage> page) {
    Clear();
    page_ = std::move(page);
    ForgetSource();
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

PageViewport PagePane::CurrentViewport() {
    return {*page_, *shown_, scroller_, scrollX_, options_.viewport};
}

std::optional<PageViewport> PagePane::Viewport() {
    if (!UpdateLayout()) return std::nullopt;
    return CurrentViewport();
}

// Called before the layout is used, because a hidden window may not be told of its size.
bool PagePane::UpdateLayout() {
    if (!page_) return false;
    const Size room = window_.Room();
    PageRenderOptions options;
    options.dpi = window_.Dpi();
    options.scale = ScaleOf(zoom_);
    options.viewport = {std::max(1, room.width), std::max(1, room.height)};
    options.text = text_;
    options.background = background_;
    // To say what the page says itself would style all of it once more.
    if (text_ == ownText_) options.text.reset();
    if (background_ == bodyBackground_ && background_ == ownBackground_) options.background.reset();
    if (!shown_ || options != options_) LayOutAnew(options);
    return true;
}

// Where nothing else has changed and the page can do so. Its letters stay where they are.
bool PagePane::ChangeBackground(const PageRenderOptions& options) {
    PageRenderOptions changed = options_;
    changed.background = options.background;
    if (!shown_ || changed != options || !options.background) return false;
    if (!shown_->SetBackground(*options.background)) return false;
    options_ = options;
    return true;
}

void PagePane::LayOutAnew(const PageRenderOptions& options) {
    if (ChangeBackground(options)) return;
    std::optional<PageTopKeeper::Anchor> anchor;
    if (shown_) anchor = top_.AnchorOf(CurrentViewport());
    PageRenderOptions before = std::exchange(options_, options);
    if (before.scale != options.scale) top_.OnNewScale();
    const bool sameHeight = before.viewport.height == options.viewport.height;
    const bool sameWidth = before.viewport.width == options.viewport.width;
    before.viewport = options.viewport;
    const bool newStyles = !shown_ || before != options ||
                           (shown_->Styles().DependsOnViewport() && !(sameWidth && sameHeight));
    if (!newStyles && sameWidth) {
        scroller_.SetPage(shown_.get(), options.viewport.height);
        return scroller_.ScrollBy(0);
    }
    lines_.SetResolution(options.dpi);
    if (newStyles) {
        scroller_.SetPage(nullptr, 1);
        shown_ = std::make_unique<ShownPage>(*page_, sheets_, *pictures_, lines_, options);
        ForgetObjects();
    } else {
        shown_->Flow().SetWidth(options.viewport.width);
    }
    scroller_.SetPage(shown_.get(), options.viewport.height);
    widest_ = 0;
    top_.Restore(CurrentViewport(), anchor);
    StartMeasuring();
    OnScrolled();
}

void PagePane::StartMeasuring() {
    window_.StartTimer(PaneTimer::Measuring, measuringInterval);
}

void PagePane::MeasureMore() {
    if (!UpdateLayout()) return;
    if (pictures_->ResetLeftOut()) window_.Redraw();
    if (top_.IsOnItsWay()) {
        if (top_.GoOn(CurrentViewport())) OnScrolled();
        return;
    }
    if (measurer_.MeasureAll(shown_->Flow(), PageMeasurer::backgroundStep))
        window_.StopTimer(PaneTimer::Measuring);
    UpdateScrollBars();
}

void PagePane::SetZoom(int percent) {
    zoom_ = percent;
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

int PagePane::ViewHeight() const {
    return Rounded(window_.Room().height / ScaleOf(zoom_));
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
