// The HTML view of a program that has two: a browser's, where the system has one, and our own.
#pragma once

#include "platform/html_view.h"

#include <memory>

class EitherHtmlView final : public HtmlView {
  public:
    EitherHtmlView(std::unique_ptr<HtmlView> browser, std::unique_ptr<HtmlView> own);

    bool HasBothEngines() const override { return browser_->IsAvailable(); }
    void Navigate(const std::u16string& path, int page) override;
    void SetEngine(PageEngine engine) override { wanted_ = engine; }
    void OfferEngineChange(bool offered) override;
    void ExpectPlace(bool) override;
    void ExpectBackColor(Color) override;
    void Clear() override { shown_->Clear(); }
    void ScrollTo(int left, int top) override { shown_->ScrollTo(left, top); }
    void ScrollDown(int pixels) override { shown_->ScrollDown(pixels); }
    void ScrollSpanToTop(const PageSpan& span) override { shown_->ScrollSpanToTop(span); }
    void BringToTop(const PageTop& top) override { shown_->BringToTop(top); }
    void Select(const PageSpan& span) override { shown_->Select(span); }
    void SelectAll() override { shown_->SelectAll(); }
    void SetBackColor(Color color) override { shown_->SetBackColor(color); }
    void SetTextColor(std::optional<Color> color) override { shown_->SetTextColor(color); }
    void SendZoomKey(bool larger) override { shown_->SendZoomKey(larger); }
    void ScrollToPercent(int percent) override { shown_->ScrollToPercent(percent); }
    PrintAnswer Print(const std::u16string& title) override { return shown_->Print(title); }

    PageEngine Engine() const override { return shown_->Engine(); }
    bool HasBody() const override { return shown_->HasBody(); }
    bool HasText() const override { return shown_->HasText(); }
    std::string Charset() const override { return shown_->Charset(); }
    std::u16string Title() const override { return shown_->Title(); }
    PageColors OwnColors() const override { return shown_->OwnColors(); }
    int ScrollTop() const override { return shown_->ScrollTop(); }
    PageTop Top() const override { return shown_->Top(); }
    int ZoomSteps() const override { return shown_->ZoomSteps(); }
    int ViewHeight() const override { return shown_->ViewHeight(); }
    int Percent() const override { return shown_->Percent(); }
    int TopMargin() const override { return shown_->TopMargin(); }
    PageSelection Selection() const override { return shown_->Selection(); }

    void PrepareToClose() override { shown_->PrepareToClose(); }
    void SettleTop() override { shown_->SettleTop(); }
    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>& spans) override {
        return shown_->TextsOf(spans);
    }
    std::u16string SelectedText() override { return shown_->SelectedText(); }
    std::u16string SelectionAsHtml() override { return shown_->SelectionAsHtml(); }
    std::optional<PageMatch> FindAfterSelection(std::u16string_view what,
                                                FindOptions options) override {
        return shown_->FindAfterSelection(what, options);
    }
    TextPos StartAtTop() override { return shown_->StartAtTop(); }
    std::vector<Heading> Headings() override { return shown_->Headings(); }

    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void FocusView() override { shown_->FocusView(); }
    void Announce(std::u16string_view text) override { shown_->Announce(text); }

  private:
    void Show(HtmlView& view);
    void Connect(HtmlView& view);

    std::unique_ptr<HtmlView> browser_, own_;
    HtmlView* shown_;
    PageEngine wanted_ = PageEngine::Browser;
    bool visible_ = false;
};
