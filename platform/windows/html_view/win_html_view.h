// The HTML view on Windows: the system's browser control.
#pragma once

#include "common/page_zoom.h"
#include "platform/html_view.h"
#include "platform/windows/html_view/browser/browser_control.h"
#include "platform/windows/html_view/browser/engine_settings.h"
#include "platform/windows/html_view/browser/inner_window.h"
#include "platform/windows/html_view/browser/page_window.h"
#include "platform/windows/html_view/page/page_document.h"
#include "platform/windows/html_view/page/page_text.h"
#include "platform/windows/html_view/page/scroll_anchor.h"
#include "platform/windows/html_view/safety/remote_blocker.h"
#include "platform/windows/window/win_drops.h"

#include <deque>
#include <string>

// The engine is in-process and on this thread, so queries do not wait. Its events are posted: the
// form's handlers never run inside a call of the engine, and may navigate or clear.
class WinHtmlView final : public HtmlView, BrowserOwner, InnerWindow::Owner {
  public:
    explicit WinHtmlView(HWND parent, BrowserFactory = CreateSystemBrowser);
    ~WinHtmlView() override;

    // For the message loop. `Normalize` comes first: with Ctrl, it replaces a key of the numeric
    // keypad by that of the main block. After the form's key events, `TranslateKey` handles the
    // view's own keys; true when the message was handled.
    void Normalize(MSG&) const;
    bool TranslateKey(const MSG&);
    // The keystroke of `SendZoomKey`, for the window's `onKeyDown`.
    std::function<void(int keyCode, int shift)> onZoomKey;

    bool IsAvailable() const override;
    void Navigate(const std::u16string& path, int page) override;
    void OfferEngineChange(bool offered) override { offersEngineChange_ = offered; }
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

    bool HasBody() const override { return snapshot_.hasBody; }
    bool HasText() const override;
    std::string Charset() const override;
    std::u16string Title() const override;
    PageColors OwnColors() const override { return snapshot_.colors; }
    int ScrollTop() const override;
    PageTop Top() const override;
    int ZoomSteps() const override { return snapshot_.zoomSteps; }
    int ViewHeight() const override;
    int TopMargin() const override;
    int Percent() const override;
    PageSelection Selection() const override;

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
    enum class Load { None, Requested, Loading, Complete };

    // The last values read from the page, for when the engine fails.
    struct PageSnapshot {
        bool hasBody = false, hasText = false;
        std::string charset;
        std::u16string title;
        PageColors colors;
        int scrollTop = 0, zoomSteps = 0, viewHeight = 0, topMargin = 0, percent = 0;
        PageSelection selection;
        PageRange measured; // the range that `selection.span` belongs to
        PageTop top;
        PageRange topLine; // that its characters were counted to
    };

    bool AllowNavigation(const std::wstring& url, Target, bool sends) override;
    void OnPageComplete(const std::wstring& url) override;
    void OnPageFailed() override;
    void OnEngineQuit() override;
    void OnContextMenu(POINT) override;
    void OnFilesDropped(const std::vector<std::u16string>& paths) override;
    void OnCommand(PageCommand) override;
    bool IsInSelection(POINT pixels) const override;

    void ResetPage();
    void ShowLoadError();
    bool OpenControl();
    void ReleaseControl();
    void FocusPage();
    void RelayoutAtAnchor(const std::function<void()>& change); // keeps the top line
    void FitWindow();
    void ScrollIntoView(TextPos start);
    void ReadTopLine(const PageRange& line) const;
    void ApplyLoadedPage(const std::wstring& url);
    void ShowContextMenu(POINT);
    void ReportLink(const std::wstring& url);
    void Zoom(int steps); // 0 resets
    void ApplyZoom();     // before anything that depends on the layout
    int ZoomPercent() const;
    bool IsOfView(HWND) const;

    void Post(std::function<void()>); // dropped when the page is left first
    void RunPostedTask();

    BrowserFactory createBrowser_;
    std::deque<std::function<void()>> posted_;
    WinDrops drops_{onFilesDropped};
    InnerWindow inner_{*this};
    std::unique_ptr<DocumentMode> mode_;     // set from the first page on
    std::unique_ptr<RemoteBlocker> blocker_; // while there is a control
    std::unique_ptr<BrowserControl> control_;

    std::wstring url_;  // as passed to Load
    BookFolder folder_; // of the page's book
    std::wstring bookHost_;
    int page_ = 0;
    bool failed_ = false; // to start the control
    bool offersEngineChange_ = false;
    Load load_ = Load::None;
    PageZoom zoom_;            // requested
    bool zoomPending_ = false; // not yet applied
    int zoomPercent_ = 0;      // last passed to the control
    PageDocument document_;
    ScrollAnchor scrollAnchor_;
    mutable PageSnapshot snapshot_;
    PageWindow window_; // made last, destroyed first: its messages use the other members
};
