#include "view/html/pane_html_view.h"

#include "common/file_limits.h"
#include "common/find_text.h"
#include "common/keys.h"
#include "formats/html/html_address.h"
#include "formats/html/html_selection.h"

#include <algorithm>
#include <utility>

namespace {
std::u16string_view NoticeOf(ReadStatus status) {
    return status == ReadStatus::TooLarge ? u"This page is too long to be shown."
                                          : u"This book cannot be loaded.";
}
} // namespace

void PaneHtmlView::Post(std::function<void()> what) {
    posted_.push_back(std::move(what));
    WakeUp();
}

void PaneHtmlView::RunPosted() {
    if (posted_.empty()) return; // of a page that has been left
    const std::function<void()> what = std::move(posted_.front());
    posted_.pop_front();
    what();
}

void PaneHtmlView::Navigate(const std::u16string& path, int page) {
    Clear();
    Post([this, path, page] { Load(path, page); });
}

void PaneHtmlView::Clear() {
    posted_.clear();
    zoomPosted_ = false;
    Pane().Clear();
    zoom_ = shownZoom_ = {};
    requestedTop_.reset();
    text_.reset();
    background_.reset();
    ShowNotice(u"");
}

void PaneHtmlView::Load(const std::u16string& path, int page) {
    std::string bytes;
    const ReadStatus status = files_.Read(path, maxFileInMemory, bytes);
    if (status != ReadStatus::Ok) return ShowNotice(NoticeOf(status));
    zoom_ = {}; // keys pressed while it loaded are of the page before
    posted_.clear();
    Pane().Show(std::make_unique<LoadedPage>(path, std::move(bytes), systemCodePage_));
    if (onLoaded) onLoaded(page, HtmlFileUrl(path));
}

bool PaneHtmlView::Settle() {
    ApplyZoom();
    requestedTop_.reset();
    return HasBody();
}

void PaneHtmlView::ScrollTo(int left, int top) {
    if (!Settle()) return;
    Pane().ScrollTo(std::max(0, left), std::max(0, top));
    Asked({.offset = top});
}

void PaneHtmlView::BringToTop(const PageTop& top) {
    if (!Settle()) return;
    Pane().BringToTop(top);
    Asked(top);
}

void PaneHtmlView::Asked(const PageTop& top) {
    requestedTop_ = top;
    Post([this] { requestedTop_.reset(); });
}

void PaneHtmlView::ScrollSpanToTop(const PageSpan& span) {
    if (Settle()) Pane().ScrollLineToTop(span.start);
}

void PaneHtmlView::Select(const PageSpan& span) {
    if (!Settle()) return;
    Pane().Select(span.start, span.start + span.length);
    Pane().Reveal(span.start);
}

void PaneHtmlView::SelectAll() {
    if (Settle()) Pane().SelectAll();
}

void PaneHtmlView::SetBackColor(Color color) {
    background_ = color;
    ApplyColors();
}

void PaneHtmlView::SetTextColor(std::optional<Color> color) {
    text_ = color;
    ApplyColors();
}

void PaneHtmlView::ApplyColors() {
    if (Settle()) Pane().SetColors(text_, background_);
}

void PaneHtmlView::ScrollDown(int pixels) {
    if (Settle()) Pane().ScrollDown(pixels);
}

void PaneHtmlView::ScrollToPercent(int percent) {
    if (Settle()) Pane().ScrollToPercent(percent);
}

void PaneHtmlView::SendZoomKey(bool larger) {
    Post([this, larger] { ReportZoomKey(larger); });
    Zoom(larger ? 1 : -1);
}

// Keys in a row are one new size.
void PaneHtmlView::Zoom(int steps) {
    zoom_.Move(steps);
    if (!HasBody() || std::exchange(zoomPosted_, true)) return;
    Post([this] {
        zoomPosted_ = false;
        ApplyZoom();
    });
}

void PaneHtmlView::ApplyZoom() {
    if (!HasBody() || zoom_.Steps() == shownZoom_.Steps()) return;
    requestedTop_.reset();
    shownZoom_ = zoom_;
    Pane().SetZoom(zoom_.Percent());
    Post([this] {
        if (onZoomed) onZoomed();
    });
}

bool PaneHtmlView::ZoomByKey(int keyCode) {
    if (keyCode != PlusKey && keyCode != MinusKey && keyCode != '0') return false;
    Zoom(keyCode == '0' ? 0 : keyCode == PlusKey ? 1 : -1);
    return true;
}

bool PaneHtmlView::HandleOtherKey(int keyCode, bool shift) {
    if (!Settle()) return false;
    if (keyCode == '\t') return Pane().FocusLink(!shift);
    return keyCode == '\r' && Pane().FollowFocusedLink();
}

std::string PaneHtmlView::Charset() const {
    return HasBody() ? HtmlCharsetName(Page()->CodePage()) : "";
}

std::u16string PaneHtmlView::Title() const {
    return HasBody() ? Page()->Title() : u"";
}

PageColors PaneHtmlView::OwnColors() const {
    if (!HasBody()) return {};
    return {Pane().OwnText(), Pane().OwnBackground()};
}

int PaneHtmlView::ScrollTop() const {
    if (requestedTop_ && requestedTop_->offset >= 0) return requestedTop_->offset;
    return HasBody() ? Pane().ScrollTop() : 0;
}

PageTop PaneHtmlView::Top() const {
    if (!HasBody()) return {};
    return requestedTop_ ? *requestedTop_ : Pane().Top();
}

PageSelection PaneHtmlView::Selection() const {
    if (!HasBody()) return {};
    const TextPos start = Pane().SelStart();
    return {{start, Pane().SelEnd() - start}, Pane().LineTop(start)};
}

void PaneHtmlView::SettleTop() {
    if (Settle()) Pane().SettleTop();
}

std::vector<std::u16string> PaneHtmlView::TextsOf(const std::vector<PageSpan>& spans) {
    if (!Settle()) return {};
    std::vector<std::u16string> texts;
    const std::u16string& text = Page()->Text();
    for (const PageSpan& span : spans) {
        const auto start = std::size_t(std::clamp(span.start, 0, Page()->Length()));
        texts.push_back(text.substr(start, std::size_t(std::max(0, span.length))));
    }
    return texts;
}

std::u16string PaneHtmlView::SelectedText() {
    const auto texts = TextsOf({Selection().span});
    return texts.empty() ? u"" : texts[0];
}

std::u16string PaneHtmlView::SelectionAsHtml() {
    if (!Settle()) return {};
    const LoadedPage& page = *Page();
    return HtmlSourceOf(page.Tree(), page.Counted(), Pane().SelStart(), Pane().SelEnd());
}

std::optional<PageMatch> PaneHtmlView::FindAfterSelection(std::u16string_view what,
                                                          FindOptions options) {
    if (!Settle()) return std::nullopt;
    const TextPos from = Pane().SelEnd();
    const std::size_t found = FindText(Page()->Text(), what, std::size_t(from), options);
    if (found == std::u16string::npos) return std::nullopt;
    const auto start = TextPos(found);
    return PageMatch{{start, TextPos(what.size())},
                     Pane().CharacterLeft(start),
                     Pane().LineTop(start),
                     Pane().LineTop(from)};
}

TextPos PaneHtmlView::StartAtTop() {
    return Settle() ? Pane().StartAtTop() : -1;
}

std::vector<Heading> PaneHtmlView::Headings() {
    return Settle() ? Page()->Headings() : std::vector<Heading>{};
}

// A link into the page itself scrolls; an address that would run something is none.
void PaneHtmlView::FollowLink(HtmlNodeId link) {
    const LoadedPage& page = *Page();
    const HtmlAttribute* reference = page.Tree()[link].Attribute(HtmlName::Href);
    const HtmlAddress address =
        ResolveHtmlAddress(page.Path(), page.BaseAddress(), reference->Value());
    if (address.path == page.Path() && (address.hasFragment || reference->length == 0)) {
        const auto element = page.Anchor(address.fragment);
        const bool toTop = address.fragment.empty() || address.fragment == u"top";
        if (!element && !toTop) return;
        if (!Top().LeadsSomewhere()) SettleTop();
        const PageTop from = Top();
        const auto piece = element ? page.PieceFrom(*element) : std::nullopt;
        Pane().ScrollLineToTop(piece   ? page.Counted().pieces[*piece].start
                               : toTop ? 0
                                       : page.Length());
        return Post([this, from] {
            if (onJump) onJump(from);
        });
    }
    if (address.url.starts_with(u"javascript:")) return;
    Post([this, address] {
        if (onLink) onLink(address.url, address.path);
    });
}
