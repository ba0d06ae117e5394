// The HTML view on Qt: a panel in the window, and in it the view of the engine's module, which is
// loaded by the first page.
#pragma once

#include "platform/html_view.h"

#include <memory>

class EngineView;
class HtmlPanel;
class QtWindow;

class QtHtmlView final : public HtmlView {
  public:
    explicit QtHtmlView(QtWindow&); // must outlive this object
    ~QtHtmlView() override;

    bool IsAvailable() const override;
    void Navigate(const std::u16string& path, int page) override;
    void OfferEngineChange(bool offered) override;
    void ExpectPlace(bool expected) override { placeExpected_ = expected; }
    void ExpectBackColor(Color color) override { backColorExpected_ = color; }
    void Clear() override;
    void ScrollTo(int left, int top) override;
    void ScrollSpanToTop(const PageSpan&) override;
    void BringToTop(const PageTop&) override;
    void Select(const PageSpan&) override;
    void SelectAll() override;
    void SetBackColor(Color) override;
    void SetTextColor(std::optional<Color>) override;
    void SendZoomKey(bool larger) override;
    void ScrollToPercent(int percent) override;
    PrintAnswer Print(const std::u16string& title) override;

    bool HasBody() const override;
    bool HasText() const override;
    std::string Charset() const override;
    std::u16string Title() const override;
    PageColors OwnColors() const override;
    int ScrollTop() const override;
    PageTop Top() const override;
    int ZoomSteps() const override;
    int ViewHeight() const override;
    int TopMargin() const override;
    int Percent() const override;
    PageSelection Selection() const override;

    void PrepareToClose() override;
    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>&) override;
    std::u16string SelectedText() override;
    std::u16string SelectionAsHtml() override;
    std::optional<PageMatch> FindAfterSelection(std::u16string_view what, FindOptions) override;
    TextPos StartAtTop() override;
    std::vector<Heading> Headings() override;

    void SetBounds(const Rect&) override;
    void SetVisible(bool) override;
    void FocusView() override;

  private:
    bool LoadEngine();
    void ConnectEngine();
    void OnResponsiveChanged(bool responsive);

    QtWindow& window_;
    HtmlPanel* panel_; // owned by the window
    std::unique_ptr<EngineView> engine_;
    int load_ = 0; // caller's number of the last load
    bool focused_ = false, offersEngineChange_ = false;
    bool placeExpected_ = true;
    std::optional<Color> backColorExpected_;
    bool failed_ = false; // to load the engine
};
