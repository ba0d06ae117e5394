// The port of the HTML view on a page pane: all but the window.
#pragma once

#include "common/page_zoom.h"
#include "platform/html_view.h"
#include "view/html/page_pane.h"

#include <deque>

class PaneHtmlView : public HtmlView {
  public:
    // Of charsets, for pages that do not say theirs; of pages, what they may read. The files must
    // outlive this object.
    PaneHtmlView(const Files& files, int systemCodePage)
        : files_(files), systemCodePage_(systemCodePage) {}

    void Navigate(const std::u16string& path, int page) override;
    void Clear() override;
    void ScrollTo(int left, int top) override;
    void ScrollSpanToTop(const PageSpan& span) override;
    void BringToTop(const PageTop& top) override;
    void Select(const PageSpan& span) override;
    void SelectAll() override;
    void SetBackColor(Color) override;
    void SetTextColor(std::optional<Color>) override;
    void SendZoomKey(bool larger) override;
    void ScrollDown(int pixels) override;
    void ScrollToPercent(int percent) override;

    PageEngine Engine() const override { return PageEngine::Own; }
    bool HasBody() const override { return Page() != nullptr; }
    bool HasText() const override { return HasBody() && Page()->Length() > 0; }
    std::string Charset() const override;
    std::u16string Title() const override;
    PageColors OwnColors() const override;
    int ScrollTop() const override;
    PageTop Top() const override;
    int ZoomSteps() const override { return shownZoom_.Steps(); }
    int ViewHeight() const override { return HasBody() ? Pane().ViewHeight() : 0; }
    int Percent() const override { return HasBody() ? Pane().Percent() : 0; }
    int TopMargin() const override { return HasBody() ? Pane().TopMargin() : 0; }
    PageSelection Selection() const override;

    void SettleTop() override;
    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>& spans) override;
    std::u16string SelectedText() override;
    std::u16string SelectionAsHtml() override;
    std::optional<PageMatch> FindAfterSelection(std::u16string_view what,
                                                FindOptions options) override;
    TextPos StartAtTop() override;
    std::vector<Heading> Headings() override;

  protected:
    virtual PagePane& Pane() const = 0;
    // Lets RunPosted be called soon, from the message loop.
    virtual void WakeUp() = 0;
    // Over the place of the page; "" for none.
    virtual void ShowNotice(std::u16string_view text) = 0;
    // The keystroke of SendZoomKey, for the window's `onKeyDown`.
    virtual void ReportZoomKey(bool larger) = 0;

    void RunPosted();                             // one event or load
    bool ZoomByKey(int keyCode);                  // with Ctrl; whether it is one of the view's keys
    bool HandleOtherKey(int keyCode, bool shift); // Tab and Return
    void FollowLink(HtmlNodeId link);             // to be the pane's `onLink`

  private:
    const LoadedPage* Page() const { return Pane().Page(); }
    void Post(std::function<void()> what);
    void Load(const std::u16string& path, int page);
    void Zoom(int steps);
    void ApplyZoom();
    void Asked(const PageTop& top);
    bool Settle(); // before an order or a question; false without a page
    void ApplyColors();

    const Files& files_;
    const int systemCodePage_;
    std::deque<std::function<void()>> posted_; // of the page asked for last
    PageZoom zoom_, shownZoom_;
    bool zoomPosted_ = false;
    std::optional<PageTop> requestedTop_; // until the page says how far it went
    std::optional<Color> text_, background_;
};
