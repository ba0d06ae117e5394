#include "platform/shared/either_html_view.h"

EitherHtmlView::EitherHtmlView(std::unique_ptr<HtmlView> browser, std::unique_ptr<HtmlView> own)
    : browser_(std::move(browser)), own_(std::move(own)), shown_(own_.get()) {
    Connect(*browser_);
    Connect(*own_);
}

// Events of the view that does not show the page are none of the page's.
void EitherHtmlView::Connect(HtmlView& view) {
    const auto forward = [this, &view](auto& from, auto& to) {
        from = [this, &view, &to](const auto&... arguments) {
            if (shown_ == &view && to) to(arguments...);
        };
    };
    forward(view.onLoaded, onLoaded);
    forward(view.onZoomed, onZoomed);
    forward(view.onGone, onGone);
    forward(view.onCommand, onCommand);
    forward(view.onLink, onLink);
    forward(view.onJump, onJump);
    forward(view.onFilesDropped, onFilesDropped);
}

void EitherHtmlView::Show(HtmlView& view) {
    if (shown_ == &view) return;
    shown_->Clear();
    shown_->SetVisible(false);
    shown_ = &view;
    shown_->SetVisible(visible_);
}

void EitherHtmlView::Navigate(const std::u16string& path, int page) {
    if (wanted_ == PageEngine::Browser && browser_->IsAvailable()) {
        Show(*browser_);
        browser_->Navigate(path, page);
        if (browser_->IsAvailable()) return;
    }
    Show(*own_);
    own_->Navigate(path, page);
}

void EitherHtmlView::OfferEngineChange(bool offered) {
    browser_->OfferEngineChange(offered);
    own_->OfferEngineChange(offered);
}

void EitherHtmlView::ExpectPlace(bool expected) {
    browser_->ExpectPlace(expected);
    own_->ExpectPlace(expected);
}

void EitherHtmlView::ExpectBackColor(Color color) {
    browser_->ExpectBackColor(color);
    own_->ExpectBackColor(color);
}

void EitherHtmlView::SetBounds(const Rect& bounds) {
    browser_->SetBounds(bounds);
    own_->SetBounds(bounds);
}

void EitherHtmlView::SetVisible(bool visible) {
    visible_ = visible;
    shown_->SetVisible(visible);
}
