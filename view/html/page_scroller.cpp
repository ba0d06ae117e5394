#include "view/html/page_scroller.h"

#include <algorithm>

void PageScroller::SetPage(ShownPage* page, int viewHeight) {
    if (!page || page != page_) top_ = {};
    page_ = page;
    viewHeight_ = std::max(1, viewHeight);
    maxTop_.reset();
}

// By the exact heights of the zones on the way.
void PageScroller::Normalize(Top& top) const {
    PageFlow& flow = page_->Flow();
    top.zone = std::min(top.zone, flow.ZoneCount() - 1);
    while (top.y < 0 && top.zone > 0)
        top.y += flow.HeightOf(--top.zone);
    top.y = std::max(top.y, 0.0);
    while (top.zone + 1 < flow.ZoneCount()) {
        const double height = flow.HeightOf(top.zone);
        if (top.y < height) return;
        top.y -= height;
        ++top.zone;
    }
}

const PageScroller::Top& PageScroller::MaxTop() {
    if (maxTop_) return *maxTop_;
    PageFlow& flow = page_->Flow();
    Top top{flow.ZoneCount() - 1, 0};
    double height = flow.HeightOf(top.zone);
    while (height < viewHeight_ && top.zone > 0)
        height += flow.HeightOf(--top.zone);
    top.y = std::max(0.0, height - viewHeight_);
    return maxTop_.emplace(top);
}

void PageScroller::ScrollTo(Top top) {
    if (!page_) return;
    Normalize(top);
    top_ = std::min(top, MaxTop());
}

void PageScroller::ScrollToEnd() {
    if (page_) top_ = MaxTop();
}

void PageScroller::ScrollToHeight(double pixels) {
    if (!page_) return;
    PageFlow& flow = page_->Flow();
    const std::size_t zone = flow.Heights().BlockAt(pixels);
    ScrollTo({zone, pixels - flow.Heights().Top(zone)});
}

double PageScroller::Height() const {
    return page_ ? page_->Flow().Heights().Top(top_.zone) + top_.y : 0;
}

double PageScroller::MaxHeight() {
    if (!page_) return 0;
    const Top top = MaxTop();
    return page_->Flow().Heights().Top(top.zone) + top.y;
}

int PageScroller::Percent() {
    const double height = Height(), max = MaxHeight();
    if (height >= max - 1) return 100;
    return int(100 * height / max + 0.01);
}

double PageScroller::InView(std::size_t zone, double y) const {
    const HeightIndex& heights = page_->Flow().Heights();
    return heights.Top(zone) - heights.Top(top_.zone) + y - top_.y;
}

PageScroller::Top PageScroller::At(double inView) const {
    return Moved(top_, inView);
}

PageScroller::Top PageScroller::Moved(Top top, double pixels) const {
    top.y += pixels;
    Normalize(top);
    return top;
}
