#include "platform/none/none_html_view.h"

#include "common/find_text.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

void NoneHtmlView::Navigate(const std::u16string& path, int page) {
    Forget();
    engine_ = hasBrowser ? wanted_ : PageEngine::Own;
    navigations.push_back(path);
    loads.push_back(page);
}

void NoneHtmlView::Clear() {
    Forget();
    ++clears;
}

void NoneHtmlView::Forget() {
    document_ = {};
    loaded_ = dead_ = false;
    scrollTop_ = zoomSteps_ = orderedSteps_ = 0;
    selection_ = {};
}

void NoneHtmlView::ShowPage() {
    document_ = pages[navigations.back()];
    loaded_ = true;
}

void NoneHtmlView::FinishLoading() {
    ShowPage();
    onLoaded(loads.back(), u"file://" + navigations.back());
}

PrintAnswer NoneHtmlView::Print(const std::u16string& title) {
    printedTitles.push_back(title);
    return engine_ == PageEngine::Own ? printAnswer : PrintAnswer{};
}

void NoneHtmlView::Die() {
    dead_ = true;
    onGone();
}

void NoneHtmlView::SendZoomKey(bool larger) {
    zoomKeys.push_back(larger);
    ZoomByHand(larger ? 1 : -1);
}

void NoneHtmlView::ZoomByHand(int steps) {
    orderedSteps_ = steps == 0 ? 0 : orderedSteps_ + steps;
    if (zoomsAtOnce) zoomSteps_ = orderedSteps_;
}

void NoneHtmlView::FinishZoom(int scrollTop) {
    scrollTop_ = scrollTop;
    zoomSteps_ = orderedSteps_;
    onZoomed();
}

bool NoneHtmlView::Ask() {
    ++questions;
    if (whileWaiting) whileWaiting();
    return answers && !dead_ && HasBody();
}

PageSpan NoneHtmlView::Inside(const PageSpan& span) const {
    const TextPos start = std::clamp(span.start, 0, Length());
    return {start, std::clamp(span.length, 0, Length() - start)};
}

std::u16string NoneHtmlView::TextOf(const PageSpan& span) const {
    const PageSpan inside = Inside(span);
    return document_.text.substr(inside.start, inside.length);
}

int NoneHtmlView::LineOf(TextPos position) const {
    const auto end = document_.text.begin() + std::clamp(position, 0, Length());
    return static_cast<int>(std::count(document_.text.begin(), end, u'\n'));
}

int NoneHtmlView::TopOf(TextPos position) const {
    return Margin + LineOf(position) * lineHeight;
}

int NoneHtmlView::MaxTop() const {
    return std::max(TopOf(Length()) + lineHeight + Margin - ViewHeight(), 0);
}

int NoneHtmlView::Within(int top) const {
    return std::clamp(top, 0, MaxTop());
}

int NoneHtmlView::Percent() const {
    return MaxTop() == 0 ? 100 : 100 * scrollTop_ / MaxTop();
}

void NoneHtmlView::ScrollToPercent(int percent) {
    ScrollTo(0, MaxTop() * percent / 100);
}

std::vector<Heading> NoneHtmlView::Headings() {
    return Ask() ? document_.headings : std::vector<Heading>{};
}

void NoneHtmlView::ScrollTo(int left, int top) {
    scrolls.emplace_back(left, top);
    scrollTop_ = Within(top);
    zoomSteps_ = orderedSteps_;
}

void NoneHtmlView::ScrollSpanToTop(const PageSpan& span) {
    ScrollTo(0, TopOf(span.start) - Margin);
}

void NoneHtmlView::Select(const PageSpan& span) {
    selection_ = Inside(span);
    const int top = TopOf(selection_.start);
    if (top < scrollTop_) scrollTop_ = Within(top);
    if (top + lineHeight > scrollTop_ + ViewHeight())
        scrollTop_ = Within(top + lineHeight - ViewHeight());
}

void NoneHtmlView::SelectAll() {
    selection_ = {0, Length()};
}

PageSelection NoneHtmlView::Selection() const {
    return {selection_, TopOf(selection_.start) - scrollTop_};
}

void NoneHtmlView::PrepareToClose() {
    if (!std::exchange(closing, true) && whileWaiting) whileWaiting();
}

void NoneHtmlView::SettleTop() {
    if (!isMeasured && Ask()) isMeasured = !isTooLong;
}

std::vector<std::u16string> NoneHtmlView::TextsOf(const std::vector<PageSpan>& spans) {
    std::vector<std::u16string> texts;
    if (!Ask()) return texts;
    for (const PageSpan& span : spans)
        texts.push_back(TextOf(span));
    return texts;
}

std::u16string NoneHtmlView::SelectedText() {
    return Ask() ? TextOf(selection_) : u"";
}

std::u16string NoneHtmlView::SelectionAsHtml() {
    return Ask() ? u"<p>" + TextOf(selection_) + u"</p>" : u"";
}

std::optional<PageMatch> NoneHtmlView::FindAfterSelection(std::u16string_view what,
                                                          FindOptions options) {
    if (!Ask()) return std::nullopt;
    const TextPos start = selection_.start + selection_.length;
    const auto found = FindText(document_.text, what, static_cast<std::size_t>(start), options);
    if (found == std::u16string::npos) return std::nullopt;
    const auto position = static_cast<TextPos>(found);
    const auto lineStart = document_.text.rfind(u'\n', found) + 1; // 0 on the first line
    PageMatch match;
    match.span = {position, static_cast<TextPos>(what.size())};
    match.left = Margin + static_cast<int>(found - lineStart) * CellWidth;
    match.top = TopOf(position) - scrollTop_;
    match.searchTop = TopOf(start) - scrollTop_;
    return match;
}

TextPos NoneHtmlView::StartAtTop() {
    if (!Ask()) return -1;
    TextPos start = 0;
    while (start < Length() && TopOf(start) < scrollTop_ + Margin)
        ++start;
    return start;
}

// Of the first line that is not above the view as a whole.
TextPos NoneHtmlView::FirstAtTop() const {
    std::size_t start = 0;
    for (int line = scrollTop_ / lineHeight; line > 0; --line)
        start = std::min(document_.text.find(u'\n', start), document_.text.size() - 1) + 1;
    return static_cast<TextPos>(start);
}

void NoneHtmlView::BringToTop(const PageTop& top) {
    if (top.start <= 0) return ScrollTo(0, std::max(top.offset, 0));
    ScrollTo(0, top.OffsetAt(TopOf(top.start) - Margin, lineHeight));
}

PageTop NoneHtmlView::Top() const {
    PageTop top;
    top.offset = isMeasured ? scrollTop_ : -1;
    top.length = Length();
    top.start = HasBody() && scrollTop_ > 0 ? FirstAtTop() : 0;
    if (top.start > 0) top.above = scrollTop_ - (TopOf(top.start) - Margin);
    const TextPos first = std::max(0, top.start - PageTop::maxAround);
    top.before = document_.text.substr(first, top.start - first);
    top.after = document_.text.substr(top.start, PageTop::maxAround);
    return top;
}
