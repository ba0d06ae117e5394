#include "platform/windows/html_view/win_html_view.h"

#include "platform/windows/base/text.h"
#include "platform/windows/html_view/page/page_colors.h"
#include "platform/windows/html_view/page/page_menu.h"
#include "platform/windows/html_view/safety/addresses.h"

#include <utility>

namespace {

constexpr wchar_t noEngine[] =
    L"This book cannot be shown: the browser control of Windows is missing or switched off.";
constexpr wchar_t notLoaded[] = L"This book cannot be loaded.";

} // namespace

WinHtmlView::WinHtmlView(HWND parent, BrowserFactory make)
    : createBrowser_(std::move(make)),
      window_(parent,
              {[this] { FitWindow(); }, [this] { FocusPage(); }, [this] { ReleaseControl(); },
               [this] { RunPostedTask(); }, [this] { ApplyZoom(); }}) {}

WinHtmlView::~WinHtmlView() {
    ResetPage();
    ReleaseControl();
}

bool WinHtmlView::IsAvailable() const {
    return control_ || (!failed_ && IsEngineInstalled());
}

void WinHtmlView::Navigate(const std::u16string& path, int page) {
    ResetPage();
    page_ = page;
    const std::wstring file = ToWide(path);
    url_ = UrlOfPath(file);
    bookHost_ = HostOfPath(file);
    const BookFolder before = std::exchange(folder_, BookFolder(file));
    if (!blocker_ || folder_ != before) {
        blocker_.reset();
        blocker_ = std::make_unique<RemoteBlocker>(folder_);
    }
    failed_ = !OpenControl();
    if (failed_) return window_.SetNotice(noEngine);
    load_ = Load::Requested;
    if (!url_.empty() && control_->Load(url_)) return window_.SetNotice(L"");
    ShowLoadError();
}

void WinHtmlView::ShowLoadError() {
    Clear();
    window_.SetNotice(notLoaded);
}

void WinHtmlView::Clear() {
    ResetPage();
    ReleaseControl();
    blocker_.reset();
    window_.SetNotice(L"");
}

// Drops everything that belongs to the page, pending events included.
void WinHtmlView::ResetPage() {
    posted_.clear();
    load_ = Load::None;
    inner_.Detach();
    document_ = {};
    scrollAnchor_ = {};
    snapshot_ = {};
    zoomPending_ = false;
    url_.clear();
}

bool WinHtmlView::OpenControl() {
    if (control_) return true;
    if (!window_.Handle()) return false;
    if (!mode_) {
        mode_ = std::make_unique<DocumentMode>();
        LockDownEngine();
    }
    control_ = BrowserControl::Open(createBrowser_, window_.Handle(), *this);
    return control_ != nullptr;
}

// The snapshot of the page survives.
void WinHtmlView::ReleaseControl() {
    load_ = Load::None;
    inner_.Detach();
    document_ = {};
    scrollAnchor_ = {};
    snapshot_.measured.Reset();
    snapshot_.topLine.Reset();
    control_.reset();
}

bool WinHtmlView::AllowNavigation(const std::wstring& url, Target target, bool sends) {
    if (sends) return false;
    if (load_ == Load::Requested && target == Target::Page) {
        load_ = Load::Loading;
        return true;
    }
    if (load_ == Load::Loading && target == Target::Frame) return folder_.Allows(url);
    if (load_ != Load::Complete) return false; // a redirection
    if (target == Target::Page && IsAnchorInPage(url, url_)) {
        Post([this, top = Top()] {
            if (onJump) onJump(top);
        });
        return true;
    }
    Post([this, url] { ReportLink(url); });
    return false;
}

void WinHtmlView::OnPageComplete(const std::wstring& url) {
    if (load_ == Load::Loading) Post([this, url] { ApplyLoadedPage(url); });
}

void WinHtmlView::OnPageFailed() {
    if (load_ == Load::Complete) return;
    load_ = Load::None;
    Post([this] { ShowLoadError(); });
}

void WinHtmlView::OnEngineQuit() {
    Post([this] {
        ReleaseControl();
        if (onGone) onGone();
    });
}

void WinHtmlView::ApplyLoadedPage(const std::wstring& url) {
    if (load_ != Load::Loading) return;
    document_ = PageDocument(control_->Document().Get());
    if (!document_) return ShowLoadError();
    load_ = Load::Complete;
    inner_.Attach(window_.Handle());
    snapshot_.hasBody = document_.HasBody();
    snapshot_.colors = ColorsOf(document_);
    Zoom(0); // the control keeps the zoom of the previous page
    ApplyZoom();
    if (GetFocus() == window_.Handle()) FocusPage();
    if (onLoaded) onLoaded(page_, FromWide(url));
}

void WinHtmlView::ReportLink(const std::wstring& url) {
    const std::wstring path = IsLocal(url, bookHost_) ? PathOfUrl(url) : L"";
    if (onLink) onLink(FromWide(url), FromWide(path));
}

void WinHtmlView::OnFilesDropped(const std::vector<std::u16string>& paths) {
    drops_.Add(window_.Handle(), paths);
}

void WinHtmlView::OnContextMenu(POINT place) {
    Post([this, place] { ShowContextMenu(place); });
}

// As the engine's own menu sends it.
void WinHtmlView::ShowContextMenu(POINT place) {
    PageMenu menu{HasText(), !SelectedText().empty(), {}};
    if (offersEngineChange_) menu.engine = PageEngine::Browser;
    const auto command = TrackPageMenu(window_.Handle(), place, menu);
    if (command == PageCommand::ChangeEngine) return OnCommand(*command);
    if (command && inner_.Handle())
        SendMessageW(inner_.Handle(), WM_COMMAND, static_cast<WPARAM>(CommandId(*command)), 0);
}

void WinHtmlView::OnCommand(PageCommand command) {
    Post([this, command] {
        if (onCommand) onCommand(command);
    });
}

void WinHtmlView::Post(std::function<void()> what) {
    posted_.push_back(std::move(what));
    window_.Post();
}

void WinHtmlView::RunPostedTask() {
    if (posted_.empty()) return; // of a page that has been left
    const std::function<void()> what = std::move(posted_.front());
    posted_.pop_front();
    what();
}
