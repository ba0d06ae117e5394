#include "platform/windows/html_view/win_html_view.h"

#include "platform/windows/base/text.h"
#include "platform/windows/html_view/page/own_colors.h"
#include "platform/windows/html_view/page/page_menu.h"
#include "platform/windows/html_view/safety/addresses.h"

#include <utility>

namespace {

constexpr wchar_t noEngine[] =
    L"This book cannot be shown: the browser control of Windows is missing or switched off.";
constexpr wchar_t notLoaded[] = L"This book cannot be loaded.";

} // namespace

WinHtmlView::WinHtmlView(HWND parent, BrowserFactory make)
    : make_(std::move(make)), window_(parent, {[this] { FitWindow(); }, [this] { TakeKeyboard(); },
                                               [this] { LoseControl(); }, [this] { RunPosted(); },
                                               [this] { SettleZoom(); }}),
      inner_(*this) {}

WinHtmlView::~WinHtmlView() {
    LeavePage();
    LoseControl();
}

bool WinHtmlView::IsAvailable() const {
    return control_ || IsEngineInstalled();
}

void WinHtmlView::Navigate(const std::u16string& path, int page) {
    LeavePage();
    page_ = page;
    const std::wstring file = ToWide(path);
    url_ = UrlOfPath(file);
    bookHost_ = HostOfPath(file);
    const BookFolder before = std::exchange(folder_, BookFolder(file));
    if (!refusal_ || folder_ != before) {
        refusal_.reset();
        refusal_ = std::make_unique<RemoteRefusal>(folder_);
    }
    if (!OpenControl()) return window_.SetNotice(noEngine);
    load_ = Load::Asked;
    if (!url_.empty() && control_->Load(url_)) return window_.SetNotice(L"");
    GiveUpPage();
}

void WinHtmlView::GiveUpPage() {
    Clear();
    window_.SetNotice(notLoaded);
}

void WinHtmlView::Clear() {
    LeavePage();
    LoseControl();
    refusal_.reset();
    window_.SetNotice(L"");
}

// Nothing is heard of the page any more.
void WinHtmlView::LeavePage() {
    posted_.clear();
    load_ = Load::None;
    inner_.Detach();
    document_ = {};
    heldPlace_ = {};
    kept_ = {};
    zoomDue_ = false;
    url_.clear();
}

bool WinHtmlView::OpenControl() {
    if (control_) return true;
    if (!window_.Handle()) return false;
    if (!mode_) {
        mode_ = std::make_unique<DocumentMode>();
        LockEngineDown();
    }
    control_ = BrowserControl::Open(make_, window_.Handle(), *this);
    return control_ != nullptr;
}

// What the page said last is kept.
void WinHtmlView::LoseControl() {
    load_ = Load::None;
    inner_.Detach();
    document_ = {};
    heldPlace_ = {};
    kept_.measured.Reset();
    control_.reset();
}

bool WinHtmlView::MayLoad(const std::wstring& url, Target target, bool sends) {
    if (sends) return false;
    if (load_ == Load::Asked && target == Target::Page) {
        load_ = Load::Loading;
        return true;
    }
    if (load_ == Load::Loading && target == Target::Frame) return folder_.Allows(url);
    if (load_ != Load::Complete) return false; // a redirection
    if (target == Target::Page && IsPlaceInPage(url, url_)) {
        Later([this, top = ScrollTop()] {
            if (onJump) onJump(top);
        });
        return true;
    }
    Later([this, url] { ReportLink(url); });
    return false;
}

void WinHtmlView::PageComplete(const std::wstring& url) {
    if (load_ == Load::Loading) Later([this, url] { TakePage(url); });
}

void WinHtmlView::PageFailed() {
    if (load_ == Load::Complete) return;
    load_ = Load::None;
    Later([this] { GiveUpPage(); });
}

void WinHtmlView::EngineGone() {
    Later([this] {
        LoseControl();
        if (onGone) onGone();
    });
}

void WinHtmlView::TakePage(const std::wstring& url) {
    if (load_ != Load::Loading) return;
    document_ = PageDocument(control_->Document().Get());
    if (!document_) return GiveUpPage();
    load_ = Load::Complete;
    inner_.Attach(window_.Handle());
    kept_.hasBody = document_.HasBody();
    kept_.colors = ColorsOf(document_);
    Zoom(0); // the control goes on with the size of the page before
    SettleZoom();
    if (GetFocus() == window_.Handle()) TakeKeyboard();
    if (onLoaded) onLoaded(page_, FromWide(url));
}

void WinHtmlView::ReportLink(const std::wstring& url) {
    const std::wstring path = IsWithinReach(url, bookHost_) ? PathOfUrl(url) : L"";
    if (onLink) onLink(FromWide(url), FromWide(path));
}

void WinHtmlView::FilesDropped(const std::vector<std::u16string>& paths) {
    drops_.Add(window_.Handle(), paths);
}

void WinHtmlView::MenuWanted(POINT place) {
    Later([this, place] { ShowMenu(place); });
}

// A command goes the way that the engine's own menu sends it.
void WinHtmlView::ShowMenu(POINT place) {
    const auto command =
        AskPageCommand(window_.Handle(), place, HasText(), !SelectedText().empty());
    if (command && inner_.Handle())
        SendMessageW(inner_.Handle(), WM_COMMAND, static_cast<WPARAM>(NumberOf(*command)), 0);
}

void WinHtmlView::Commanded(PageCommand command) {
    Later([this, command] {
        if (onCommand) onCommand(command);
    });
}

void WinHtmlView::Later(std::function<void()> what) {
    posted_.push_back(std::move(what));
    window_.Post();
}

void WinHtmlView::RunPosted() {
    if (posted_.empty()) return; // of a page that has been left
    const std::function<void()> what = std::move(posted_.front());
    posted_.pop_front();
    what();
}
