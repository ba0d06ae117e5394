#include "platform/shared/either_html_view.h"

EitherHtmlView::EitherHtmlView(std::unique_ptr<HtmlView> browser, std::unique_ptr<HtmlView> own)
    : browser_(std::move(browser)), own_(std::move(own)), shown_(own_.get()) {
    Connect(*browser_);
    Connect(*own_);
}

// No event comes of a view that shows nothing.
void EitherHtmlView::Connect(HtmlView& view) {
    view.onLoaded = [this](int page, const std::u16string& url) {
        if (onLoaded) onLoaded(page, url);
    };
    view.onZoomed = [this] {
        if (onZoomed) onZoomed();
    };
    view.onGone = [this] {
        if (onGone) onGone();
    };
    view.onCommand = [this](PageCommand command) {
        if (onCommand) onCommand(command);
    };
    view.onLink = [this](const std::u16string& url, const std::u16string& path) {
        if (onLink) onLink(url, path);
    };
    view.onJump = [this](int fromTop) {
        if (onJump) onJump(fromTop);
    };
    view.onFilesDropped = [this](const std::vector<std::u16string>& paths) {
        if (onFilesDropped) onFilesDropped(paths);
    };
}

void EitherHtmlView::Show(HtmlView& view) {
    if (shown_ == &view) return;
    shown_->Clear();
    shown_->SetVisible(false);
    shown_ = &view;
    shown_->SetVisible(visible_);
}

void EitherHtmlView::Navigate(const std::u16string& path, int page) {
    Show(browser_->IsAvailable() ? *browser_ : *own_);
    shown_->Navigate(path, page);
}

void EitherHtmlView::SetBounds(const Rect& bounds) {
    browser_->SetBounds(bounds);
    own_->SetBounds(bounds);
}

void EitherHtmlView::SetVisible(bool visible) {
    visible_ = visible;
    shown_->SetVisible(visible);
}
