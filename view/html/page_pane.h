// A page on the screen: what is shown of it, its selection, and what keys and mouse do to them. The
// window around it is the front's.
//
// Layout and scrolling are in device pixels; what the port counts in CSS pixels is converted here.
#pragma once

#include "platform/html_view.h"
#include "view/caret_moves.h"
#include "view/drag_selection.h"
#include "view/html/readable_page.h"
#include "view/print_flow.h"

#include <chrono>
#include <functional>
#include <memory>

class PagePane : public ReadablePage {
  public:
    // The arguments must outlive this object.
    PagePane(PaneWindow& window, LineLayout& lines, PictureStore& pictures, const Files& files);
    ~PagePane() override;

    // At normal size, in its own colours, scrolled to the start, with the caret at 0.
    void Show(std::unique_ptr<LoadedPage> page);
    void Clear();
    const LoadedPage* Page() const { return page_.get(); } // null without one
    Color OwnText() const { return ownText_; }             // as the page was loaded
    Color OwnBackground() const { return ownBackground_; }

    // There must be a page. In its present zoom.
    PrintEnd Print(const std::u16string& title, const WantedPages& wanted, LineLayout& lines,
                   PictureStore& pictures, PrintDevice& device) const;

    void SetZoom(int percent); // the line at the top stays there
    void SetColors(std::optional<Color> text, std::optional<Color> background);

    void Select(TextPos anchor, TextPos caret) override;
    TextPos Anchor() const override { return anchor_; }
    TextPos Caret() const override { return caret_; }
    void Reveal(TextPos position) override;

    // CSS pixels.
    void ScrollTo(int left, int top);
    void BringToTop(const PageTop& top);
    int ScrollTop(); // exact, unless that would take long
    PageTop Top();
    int ViewHeight() const;
    int TopMargin();
    void ScrollLineToTop(TextPos position) override;
    void ScrollToPercent(int percent);
    int Percent();
    bool ScrollDown(double pixels); // false at the page's end
    // Of the line of a position, from the view's edges.
    int LineTop(TextPos position);
    int CharacterLeft(TextPos position);
    TextPos StartAtTop();

    std::function<void(HtmlNodeId link)> onLink; // that the user followed

    void SetSystemStyle(const SystemStyle& style) override;
    Color BackColor() const override;
    void Paint(Canvas& canvas, const Rect& clip) override;
    int LineHeight() override;
    std::optional<Rect> CaretRect() override;
    bool Press(PaneKey key, bool extend, bool control) override;
    bool FocusLink(bool forward); // the next one; false where there is none
    bool FollowFocusedLink();
    void Click(Point point, int count, bool extend) override;
    void DragTo(Point point) override;
    void EndDrag() override;
    bool IsLink(Point point) override { return LinkAt(point) != noHtmlNode; }
    void PrepareContextMenu(Point point) override;
    void SelectAll() override;
    void ScrollLines(int lines) override;
    void ScrollPage(bool down) override;
    void ScrollBy(Point pixels) override;
    int VerticalValue() override;
    void ScrollToValue(int value) override;
    void ScrollToX(int x) override;
    void ShowScrollLabel() override;
    void OnTimer(PaneTimer timer) override;
    void OnFocusChanged() override { window_.Redraw(); }
    void OnResized() override { UpdateLayout(); }

    void FollowObject(std::size_t object) override;
    std::size_t FocusedObject() override;
    int LayoutsMade() const { return shown_ ? shown_->Flow().LayoutsMade() : 0; } // zones so far

  private:
    // Where a character was, to be brought there again in another layout. Among pictures alone
    // there is none near: what share of a zone was above the view.
    struct PlaceAtTop {
        TextPos position = 0; // -1 for none
        double lines = 0;     // of its letters' top in the view, in heights of them
        std::size_t zone = 0;
        double share = 0;
    };
    static constexpr int measuringInterval = 10; // milliseconds
    // For a place that is asked for; what is above it may take longer to be measured.
    static constexpr int placeTime = 300;

    std::optional<PageViewport> Viewport() override;
    const std::u16string* CountedText() const override { return page_ ? &page_->Text() : nullptr; }
    PageViewport CurrentViewport(); // without asking the window; there must be a page
    bool UpdateLayout();            // false without a page
    void LayOutAnew(const PageRenderOptions& options);
    bool ChangeBackground(const PageRenderOptions& options);
    std::optional<PlaceAtTop> TopAnchor();
    PlaceAtTop ZoneAtTop();
    void RestoreTop(const std::optional<PlaceAtTop>& anchor);
    double ScaleOf(int zoomPercent) const;
    std::optional<CharacterPlace> PlaceOf(TextPos position);
    void GoTo(const PageTop& top);
    bool GoToLine(const PageTop& top); // false where there is none
    void GoToMeasured(double height);
    void OnScrolled();
    void OnUserScrolled();
    void UpdateScrollBars();
    // Make heights exact: down to one, above a zone, or all; false when the time was over before.
    bool MeasureHeight(double height, int milliseconds);
    bool MeasureAbove(std::size_t zone, int milliseconds);
    bool MeasureAll(int milliseconds) { return MeasureAbove(std::size_t(-1), milliseconds); }
    bool MeasureUntil(const std::function<bool(std::size_t)>& isEnough, int milliseconds);
    bool ReachWantedHeight(int milliseconds);
    void MeasureMore();

    std::optional<CharacterPlace> LineAt(Point point, bool below);
    std::optional<CharacterPlace> FirstLine();
    TextPos PositionAtPoint(Point point);
    HtmlNodeId LinkAt(Point point);
    TextSpan UnitAround(TextPos position);
    void ExtendTo(Point point);
    void AutoScroll();
    std::optional<TextPos> KeyTarget(PaneKey key, bool control);
    TextPos NextCharacter(TextPos position, bool forward) const;
    TextPos NextWord(TextPos position, bool forward) const;
    std::optional<TextSpan> LinkSpan(HtmlNodeId link) const;
    HtmlNodeId NextLink(bool forward);
    void PaintFocus(Canvas& canvas);
    void PaintLabel(Canvas& canvas);
    void HideScrollLabel();
    const std::vector<Heading>& Headings();

    PaneWindow& window_;
    LineLayout& lines_;
    PictureStore& store_;
    const Files& files_;
    SystemStyle system_;

    std::unique_ptr<LoadedPage> page_;
    std::unique_ptr<PageFiles> pageFiles_;
    std::unique_ptr<PagePictures> pictures_;
    std::vector<std::u16string> sheets_;
    std::unique_ptr<ShownPage> shown_;
    PageRenderOptions options_;
    int zoom_ = 100; // per cent
    std::optional<Color> text_, background_;
    Color ownText_ = 0, ownBackground_ = 0xFFFFFF, bodyBackground_ = 0xFFFFFF;

    PageScroller scroller_;
    std::optional<double> wantedHeight_;  // asked for, while what is above is not measured
    std::optional<PlaceAtTop> topAnchor_; // of the last layout, until the page is scrolled
    // Asked for, and since then the page has not been scrolled; just now, so that the window may
    // still get its size from the desktop.
    std::optional<PageTop> newTop_;
    std::chrono::steady_clock::time_point newTopUntil_;
    int scrollX_ = 0, maxScrollX_ = 0;
    double widest_ = 0; // of what has been shown

    TextPos anchor_ = 0, caret_ = 0;
    DragSelection drag_;
    HtmlNodeId pressedLink_ = noHtmlNode, focusedLink_ = noHtmlNode;

    std::optional<std::vector<Heading>> headings_; // read when they are asked for first
    bool labelShown_ = false;
};
