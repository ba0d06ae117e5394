// What a test does with the stand-in.
#define CINTERFACE
#include "tests/contract/stand_in/stand_in.h"

#include "tests/contract/stand_in/stand_in_browser.h"

#include <exdispid.h>
#include <mshtmhst.h>

namespace {

// A frame in the page: another object than the control.
class Frame : public CObject {
  public:
    explicit Frame(StandIn& world) : CObject(world), facet(this, Table()) {
        Offer(IID_IUnknown, &facet);
        Offer(IID_IDispatch, &facet);
    }
    Facet<IDispatch> facet;

  private:
    static TableOf<IDispatch>& Table() {
        static TableOf<IDispatch> table = EmptyTable<IDispatch>();
        return table;
    }
};

} // namespace

std::string Narrow(std::wstring_view text) {
    std::string result;
    for (const wchar_t unit : text)
        result += unit < 0x80 ? static_cast<char>(unit) : '?';
    return result;
}

HRESULT StandIn::Make(IUnknown** control) {
    return Answer("make", [&] {
        *control = reinterpret_cast<IUnknown*>(&(new StandInBrowser(*this))->object);
    });
}

bool StandIn::Fails() {
    if (++callCount != failingCall) return false;
    return hasFailed = true;
}

HRESULT StandIn::Count(const std::function<void()>& work) {
    if (Fails()) return E_FAIL;
    work();
    return S_OK;
}

HRESULT StandIn::Answer(const std::string& call, const std::function<void()>& work) {
    calls.push_back(call);
    return Count(work);
}

bool StandIn::IsLoading() const {
    return browser && browser->isLoading;
}

// A zoom of 100 is one pixel of the screen for each of the page.
int StandIn::ViewHeight() const {
    return MulDiv(windowHeight, 100, zoom > 0 ? zoom : 100);
}

void StandIn::FinishLoading() {
    if (!browser || browser->url.empty()) return;
    browser->isLoading = false;
    const auto known = pages.find(browser->url);
    const StandInPage page = known != pages.end() ? known->second
                             : readPage           ? readPage(browser->url)
                                                  : StandInPage();
    browser->ReplaceDocument(MakeDocument(*this, page));
    browser->Fire(DISPID_DOCUMENTCOMPLETE,
                  {DispatchVariant(browser->Self()), TextVariant(browser->url)});
}

bool StandIn::Follow(const std::wstring& url, bool inFrame, bool sendsForm) {
    if (!inFrame) return browser->Announce(url, browser->Self(), sendsForm);
    auto* frame = new Frame(*this);
    const bool allowed = browser->Announce(url, &frame->facet, sendsForm);
    frame->Release();
    return allowed;
}

bool StandIn::FollowToNewWindow(const std::wstring& url) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT none;
    VariantInit(&none);
    browser->Fire(DISPID_NEWWINDOW3, {none, CancelVariant(&cancel), BoolVariant(false),
                                      TextVariant(browser->url), TextVariant(url)});
    return cancel == VARIANT_FALSE;
}

bool StandIn::Download() {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    browser->Fire(DISPID_FILEDOWNLOAD, {BoolVariant(false), CancelVariant(&cancel)});
    return cancel == VARIANT_FALSE;
}

bool StandIn::Fail() {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT none;
    VariantInit(&none);
    browser->Fire(DISPID_NAVIGATEERROR,
                  {DispatchVariant(browser->Self()), TextVariant(browser->url), none, none,
                   CancelVariant(&cancel)});
    return cancel != VARIANT_FALSE;
}

void StandIn::Quit() {
    browser->Fire(DISPID_ONQUIT, {});
}

void StandIn::AskForMenu(POINT place) {
    auto* handler = AskHost<IDocHostUIHandler>(browser->site, IID_IDocHostUIHandler);
    if (!handler) return;
    handler->lpVtbl->ShowContextMenu(handler, 0, &place, nullptr, nullptr);
    handler->lpVtbl->Release(handler);
}

IDropTarget* StandIn::DropTarget() {
    auto* handler = AskHost<IDocHostUIHandler>(browser->site, IID_IDocHostUIHandler);
    IDropTarget* target = nullptr;
    if (!handler) return nullptr;
    handler->lpVtbl->GetDropTarget(handler, nullptr, &target);
    handler->lpVtbl->Release(handler);
    return target;
}

HWND StandIn::Inner() const {
    return browser ? browser->inner : nullptr;
}
