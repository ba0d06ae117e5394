// The HTML view on Windows: the system's browser control.
#pragma once

#include "platform/html_view.h"
#include "platform/windows/html_view/browser/browser_control.h"
#include "platform/windows/html_view/browser/engine_settings.h"
#include "platform/windows/html_view/browser/inner_window.h"
#include "platform/windows/html_view/browser/page_window.h"
#include "platform/windows/html_view/page/page_document.h"
#include "platform/windows/html_view/page/page_text.h"
#include "platform/windows/html_view/page/scroll_anchor.h"
#include "platform/windows/html_view/safety/remote_blocker.h"
#include "platform/windows/portable/page_zoom.h"
#include "platform/windows/window/win_drops.h"

#include <deque>

// The engine runs in this process and on this thread, so no question waits. What the engine tells
// is passed on by a posted message: no handler runs inside a call of the engine's, and it may
// navigate or clear.
class WinHtmlView final : public HtmlView, BrowserOwner, InnerWindow::Owner {
  public:
    explicit WinHtmlView(HWND parent, BrowserFactory = CreateSystemBrowser);
    ~WinHtmlView() override;

    // For the program's message loop. `Normalize` comes first: with Ctrl held, a key of the numeric
    // keypad becomes that of the main block. Then the window tells the form, and `TranslateKey`
    // carries out what is the view's; true when the message is done with.
    void Normalize(MSG&) const;
    bool TranslateKey(const MSG&);
    // The keystroke of `SendZoomKey`, for the window's `onKeyDown`.
    std::function<void(int keyCode, int shift)> onZoomKey;

    bool IsAvailable() const override;
    void Navigate(const std::u16string& path, int page) override;
    void Clear() override;
    void ScrollTo(int left, int top) override;
    void ScrollSpanToTop(const PageSpan&) override;
    void Select(const PageSpan&) override;
    void SelectAll() override;
    void SetBackColor(std::uint32_t redGreenBlue) override;
    void SetTextColor(std::optional<std::uint32_t> redGreenBlue) override;
    void SendZoomKey(bool larger) override;

    bool HasBody() const override { return snapshot_.hasBody; }
    bool HasText() const override;
    std::string Charset() const override;
    std::u16string Title() const override;
    PageColors OwnColors() const override { return snapshot_.colors; }
    int ScrollTop() const override;
    int ZoomSteps() const override { return snapshot_.zoomSteps; }
    int ViewHeight() const override;
    int TopMargin() const override;
    PageSelection Selection() const override;

    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>&) override;
    std::u16string SelectedText() override;
    std::u16string SelectionAsHtml() override;
    std::optional<PageMatch> FindBehindSelection(std::u16string_view what, FindOptions) override;
    TextPos StartAtTop() override;

    void SetBounds(const Rect&) override;
    void SetVisible(bool) override;
    void FocusView() override;

  private:
    enum class Load { None, Requested, Loading, Complete };

    // The last answers of the page, for when it gives none.
    struct PageSnapshot {
        bool hasBody = false, hasText = false;
        std::string charset;
        std::u16string title;
        PageColors colors;
        int scrollTop = 0, zoomSteps = 0, viewHeight = 0, topMargin = 0;
        PageSelection selection;
        PageRange measured; // the selection that `selection.span` was counted for
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
    void ShowLoadError(); // which cannot be loaded
    bool OpenControl();
    void ReleaseControl();
    void FocusPage();
    void RelayoutAtAnchor(const std::function<void()>& change); // the line at the top stays there
    void FitWindow();
    void ScrollIntoView(TextPos start);
    void ApplyLoadedPage(const std::wstring& url);
    void ShowContextMenu(POINT);
    void ReportLink(const std::wstring& url);
    void Zoom(int steps); // 0: back to normal
    void ApplyZoom();     // before whatever depends on the page's size
    int ZoomPercent() const;
    bool IsOfView(HWND) const;

    void Post(std::function<void()>); // not when the page is left before
    void RunPostedTask();

    BrowserFactory createBrowser_;
    std::deque<std::function<void()>> posted_;
    WinDrops drops_{onFilesDropped};
    PageWindow window_;
    InnerWindow inner_;
    std::unique_ptr<DocumentMode> mode_;     // from the first page on
    std::unique_ptr<RemoteBlocker> blocker_; // while there is a control
    std::unique_ptr<BrowserControl> control_;

    std::wstring url_;  // of the page, as we asked for it
    BookFolder folder_; // of the page's book
    std::wstring bookHost_;
    int page_ = 0;
    Load load_ = Load::None;
    PageZoom zoom_;            // asked for
    bool zoomPending_ = false; // and not yet carried out
    int zoomPercent_ = 0;      // that the control was given last
    PageDocument document_;
    ScrollAnchor scrollAnchor_;
    mutable PageSnapshot snapshot_;
};
