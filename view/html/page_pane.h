// A page on the screen: what is shown of it, its selection, and what keys and mouse do to them. The
// window around it is the front's.
//
// Layout and scrolling are in device pixels; what the port counts in CSS pixels is converted here.
#pragma once

#include "platform/html_view.h"
#include "view/drag_selection.h"
#include "view/html/page_links.h"
#include "view/html/page_scroll_label.h"
#include "view/html/page_top_keeper.h"
#include "view/html/readable_page.h"
#include "view/print_flow.h"

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
    PrintEnd Print(const std::u16string& title, const PageRanges& pageRanges, LineLayout& lines,
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
    int ScrollTop();  // at once: by estimates where what is above has not been measured
    PageTop Top();    // at once, too
    void SettleTop(); // what it takes to make both exact, a second at most
    int ViewHeight() const;
    int TopMargin();
    void ScrollLineToTop(TextPos position) override;
    void ScrollToPercent(int percent);
    int Percent();
    bool ScrollDown(double pixels); // false at the page's end
    // Of the line of a position, from the view's edges; by estimates where it is far from them.
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
    bool IsLink(Point point) override;
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

    void FollowObject(std::size_t index) override;
    std::size_t FocusedObject() override;
    int LayoutsMade() const { return shown_ ? shown_->Flow().LayoutsMade() : 0; } // zones so far

  private:
    std::optional<PageViewport> Viewport() override;
    const std::u16string* CountedText() const override { return page_ ? &page_->Text() : nullptr; }
    PageViewport CurrentViewport(); // without asking the window; there must be a page
    bool UpdateLayout();            // false without a page
    void LayOutAnew(const PageRenderOptions& options);
    bool ChangeBackground(const PageRenderOptions& options);
    double ScaleOf(int zoomPercent) const;
    std::optional<CharacterPlace> PlaceOf(TextPos position);
    void Arrive(); // at what was asked for, before it is seen or scrolled on from
    void MeasureBriefly(std::size_t zone); // above it and above the view
    void ArriveAndMeasure();
    void OnScrolled();
    void OnUserScrolled();
    void UpdateScrollBars();
    void StartMeasuring();
    void MeasureMore();

    TextPos PositionAtPoint(Point point);
    TextSpan UnitAround(TextPos position);
    void ExtendTo(Point point);
    void AutoScroll();

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
    PageTopKeeper top_{scroller_, window_};
    PageMeasurer measurer_{window_};
    int scrollX_ = 0, maxScrollX_ = 0;
    double widest_ = 0; // of what has been shown

    TextPos anchor_ = 0, caret_ = 0;
    DragSelection drag_;
    PageLinks links_;
    PageScrollLabel label_{window_};
};
