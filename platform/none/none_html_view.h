// The headless HTML view: pages of plain lines that a test puts under their paths, and a memory of
// what it was asked.
#pragma once

#include "platform/html_view.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

struct NonePage {
    std::u16string text; // by the count of html_view.h; each line of it is one line of the page
    std::u16string title;
    std::string charset = "UTF-8";
    bool hasBody = true;
    PageColors colors;
    std::vector<Heading> headings = {};
};

class NoneHtmlView : public HtmlView {
  public:
    static constexpr int LineHeight = 16, CellWidth = 8, Margin = 8; // CSS pixels

    // What a test sets up and does.
    std::map<std::u16string, NonePage> pages; // by path
    int lineHeight = LineHeight;              // in another font
    bool hasBrowser = true, hasBothEngines = false;
    PrintAnswer printAnswer;            // of a page that is not shown by the browser's engine
    bool answers = true;                // false: every question runs out of time
    std::function<void()> whileWaiting; // what happens around while a question or the end waits
    void ShowPage();                    // the one navigated to last; it can be scrolled
    void FinishLoading();               // of it, which is shown by then at the latest
    void Die();
    bool isMeasured = true;         // false: where the page is is not exact until `SettleTop`
    bool isTooLong = false;         // and not after it either
    bool zoomsAtOnce = true;        // false: a new size takes until `FinishZoom`
    void ZoomByHand(int steps);     // 0: back to normal
    void FinishZoom(int scrollTop); // the page is laid out, and its line at the top is there now
    void ScrollByHand(int top) { scrollTop_ = Within(top); }

    bool HasBothEngines() const override { return hasBothEngines; }
    void SetEngine(PageEngine engine) override { wanted_ = engine; }
    void OfferEngineChange(bool offered) override { offersEngineChange = offered; }
    void ExpectPlace(bool expected) override { placeExpected = expected; }
    void ExpectBackColor(Color color) override { backColorExpected = color; }
    void Navigate(const std::u16string& path, int page) override;
    void Clear() override;
    void ScrollTo(int left, int top) override;
    void ScrollSpanToTop(const PageSpan&) override;
    void BringToTop(const PageTop& top) override;
    void Select(const PageSpan&) override;
    void SelectAll() override;
    void SetBackColor(Color color) override { backColors.push_back(color); }
    void SetTextColor(std::optional<Color> color) override { textColor = color; }
    void ScrollToPercent(int percent) override;
    PrintAnswer Print(const std::u16string& title) override;
    void SendZoomKey(bool larger) override;

    PageEngine Engine() const override { return engine_; }
    bool HasBody() const override { return loaded_ && document_.hasBody; }
    bool HasText() const override { return HasBody() && !document_.text.empty(); }
    std::string Charset() const override { return loaded_ ? document_.charset : ""; }
    std::u16string Title() const override { return loaded_ ? document_.title : u""; }
    PageColors OwnColors() const override { return document_.colors; }
    int ScrollTop() const override { return scrollTop_; }
    PageTop Top() const override;
    int ZoomSteps() const override { return zoomSteps_; }
    int ViewHeight() const override { return bounds.height; }
    int TopMargin() const override { return Margin; }
    int Percent() const override;
    PageSelection Selection() const override;

    void PrepareToClose() override;
    void SettleTop() override;
    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>&) override;
    std::u16string SelectedText() override;
    std::u16string SelectionAsHtml() override;
    std::optional<PageMatch> FindAfterSelection(std::u16string_view what, FindOptions) override;
    TextPos StartAtTop() override;
    std::vector<Heading> Headings() override;

    void SetBounds(const Rect& given) override { bounds = given; }
    void SetVisible(bool given) override { visible = given; }
    void FocusView() override { ++focused; }

    // What was asked, in order.
    std::vector<std::u16string> navigations;
    std::vector<int> loads; // their numbers
    std::vector<bool> zoomKeys;
    std::vector<Color> backColors;
    std::optional<Color> textColor;           // the last one
    std::vector<std::pair<int, int>> scrolls; // left, top
    std::vector<std::u16string> printedTitles;
    bool offersEngineChange = false, placeExpected = true;
    std::optional<Color> backColorExpected;
    int questions = 0, focused = 0, clears = 0;
    bool visible = false, closing = false;
    Rect bounds{0, 0, 640, 400};

  private:
    bool Ask(); // false when the page does not answer
    TextPos FirstAtTop() const;
    TextPos Length() const { return static_cast<TextPos>(document_.text.size()); }
    PageSpan Inside(const PageSpan&) const;
    std::u16string TextOf(const PageSpan&) const;
    int LineOf(TextPos position) const;
    int TopOf(TextPos position) const; // from the page's top edge
    int Within(int top) const;
    int MaxTop() const;
    void Forget();

    PageEngine wanted_ = PageEngine::Browser, engine_ = PageEngine::Browser;
    NonePage document_;
    bool loaded_ = false, dead_ = false;
    int scrollTop_ = 0, zoomSteps_ = 0;
    int orderedSteps_ = 0; // by zoom keys so far
    PageSpan selection_;
};
