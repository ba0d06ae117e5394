#include "platform/qt/html_view/qt_html_view.h"

#include "platform/qt/html_view/html_module.h"
#include "platform/qt/html_view/html_panel.h"
#include "platform/qt/html_view/undeclared_page.h"
#include "platform/qt/system/qt_locale.h"
#include "platform/qt/window/qt_window.h"
#include "platform/shared/call_handler.h"

QtHtmlView::QtHtmlView(QtWindow& window)
    : window_(window), panel_(new HtmlPanel(window.ViewArea())) {
    window.AddPageWidget(panel_);
    panel_->onFilesDropped = [this](const auto& paths) { CallHandler(onFilesDropped, paths); };
}

QtHtmlView::~QtHtmlView() = default;

bool QtHtmlView::IsAvailable() const {
    return engine_ || (!failed_ && IsHtmlModuleAvailable());
}

bool QtHtmlView::LoadEngine() {
    if (engine_) return true;
    if (const auto make = LoadHtmlModule()) engine_.reset(make(panel_, QtLocale().AnsiCodePage()));
    if (!engine_) return false;
    ConnectEngine();
    engine_->SetBounds({0, 0, panel_->width(), panel_->height()});
    engine_->SetVisible(true);
    engine_->OfferEngineChange(offersEngineChange_);
    return true;
}

void QtHtmlView::ConnectEngine() {
    engine_->readUndeclared = [](const std::string& path) {
        return ReadUndeclaredPage(path, QtLocale().AnsiCodePage());
    };
    engine_->onLoaded = [this](int page, const std::u16string& url) {
        CallHandler(onLoaded, page, url);
    };
    engine_->onGone = [this] {
        panel_->ShowNotice(HtmlPanel::tr("This page can no longer be shown."));
        CallHandler(onGone);
    };
    engine_->onZoomed = [this] { CallHandler(onZoomed); };
    engine_->onResponsiveChanged = [this](bool responsive) { OnResponsiveChanged(responsive); };
    engine_->onCommand = [this](PageCommand command) { CallHandler(onCommand, command); };
    engine_->onJump = [this](const PageTop& from) { CallHandler(onJump, from); };
    engine_->onLink = [this](const std::u16string& url, const std::u16string& path) {
        CallHandler(onLink, url, path);
    };
}

void QtHtmlView::OnResponsiveChanged(bool responsive) {
    if (responsive)
        panel_->HideNotice();
    else
        panel_->ShowNotice(HtmlPanel::tr(
            "This page does not answer. It comes back when it does.\nRefresh (F5) loads it anew."));
}

void QtHtmlView::Navigate(const std::u16string& path, int page) {
    load_ = page;
    failed_ = !LoadEngine();
    if (failed_) {
        panel_->ShowNotice(HtmlPanel::tr("HTML books cannot be shown: the engine is missing."));
        QMetaObject::invokeMethod(
            panel_, [this] { CallHandler(onGone); }, Qt::QueuedConnection);
        return;
    }
    panel_->HideNotice();
    engine_->ExpectPlace(placeExpected_);
    if (backColorExpected_) engine_->ExpectBackColor(*backColorExpected_);
    engine_->Navigate(path, page);
    if (focused_) engine_->FocusView();
}

void QtHtmlView::OfferEngineChange(bool offered) {
    offersEngineChange_ = offered;
    if (engine_) engine_->OfferEngineChange(offered);
}

void QtHtmlView::Clear() {
    ++load_;
    if (engine_) engine_->Clear();
}

void QtHtmlView::SendZoomKey(bool larger) {
    if (engine_) engine_->SendZoomKey(larger);
    const int code = larger ? PlusKey : MinusKey;
    QMetaObject::invokeMethod(
        panel_,
        [this, code, load = load_] {
            if (load == load_) window_.SendKeyDown(code, CtrlKey);
        },
        Qt::QueuedConnection);
}

void QtHtmlView::ScrollTo(int left, int top) {
    if (engine_) engine_->ScrollTo(left, top);
}

void QtHtmlView::ScrollSpanToTop(const PageSpan& span) {
    if (engine_) engine_->ScrollSpanToTop(span);
}

void QtHtmlView::BringToTop(const PageTop& top) {
    if (engine_) engine_->BringToTop(top);
}

void QtHtmlView::Select(const PageSpan& span) {
    if (engine_) engine_->Select(span);
}

void QtHtmlView::SelectAll() {
    if (engine_) engine_->SelectAll();
}

void QtHtmlView::SetBackColor(Color color) {
    if (engine_) engine_->SetBackColor(color);
}

void QtHtmlView::SetTextColor(std::optional<Color> color) {
    if (engine_) engine_->SetTextColor(color);
}

bool QtHtmlView::HasBody() const {
    return engine_ && engine_->HasBody();
}

bool QtHtmlView::HasText() const {
    return engine_ && engine_->HasText();
}

std::string QtHtmlView::Charset() const {
    return engine_ ? engine_->Charset() : "";
}

std::u16string QtHtmlView::Title() const {
    return engine_ ? engine_->Title() : u"";
}

PageColors QtHtmlView::OwnColors() const {
    return engine_ ? engine_->OwnColors() : PageColors{};
}

int QtHtmlView::ScrollTop() const {
    return engine_ ? engine_->ScrollTop() : 0;
}

PageTop QtHtmlView::Top() const {
    return engine_ ? engine_->Top() : PageTop{};
}

int QtHtmlView::ZoomSteps() const {
    return engine_ ? engine_->ZoomSteps() : 0;
}

int QtHtmlView::ViewHeight() const {
    return engine_ ? engine_->ViewHeight() : 0;
}

int QtHtmlView::TopMargin() const {
    return engine_ ? engine_->TopMargin() : 0;
}

PageSelection QtHtmlView::Selection() const {
    return engine_ ? engine_->Selection() : PageSelection{};
}

void QtHtmlView::PrepareToClose() {
    if (engine_) engine_->PrepareToClose();
}

std::vector<std::u16string> QtHtmlView::TextsOf(const std::vector<PageSpan>& spans) {
    return engine_ ? engine_->TextsOf(spans) : std::vector<std::u16string>{};
}

std::u16string QtHtmlView::SelectedText() {
    return engine_ ? engine_->SelectedText() : u"";
}

std::u16string QtHtmlView::SelectionAsHtml() {
    return engine_ ? engine_->SelectionAsHtml() : u"";
}

std::optional<PageMatch> QtHtmlView::FindAfterSelection(std::u16string_view what,
                                                        FindOptions options) {
    return engine_ ? engine_->FindAfterSelection(what, options) : std::nullopt;
}

TextPos QtHtmlView::StartAtTop() {
    return engine_ ? engine_->StartAtTop() : -1;
}

void QtHtmlView::SetBounds(const Rect& bounds) {
    panel_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
    if (engine_) engine_->SetBounds({0, 0, bounds.width, bounds.height});
}

void QtHtmlView::SetVisible(bool visible) {
    panel_->setVisible(visible);
}

void QtHtmlView::FocusView() {
    focused_ = true;
    if (engine_) engine_->FocusView();
}

void QtHtmlView::ScrollToPercent(int percent) {
    if (engine_) engine_->ScrollToPercent(percent);
}

PrintAnswer QtHtmlView::Print(const std::u16string& title) {
    return engine_ ? engine_->Print(title) : PrintAnswer{};
}

int QtHtmlView::Percent() const {
    return engine_ ? engine_->Percent() : 0;
}

std::vector<Heading> QtHtmlView::Headings() {
    return engine_ ? engine_->Headings() : std::vector<Heading>{};
}
