// Keys, clicks, commands and drops of the HTML view.
#include "tests/contract/windows_html_view_fixture.h"

#include "platform/window.h"
#include "platform/windows/html_view/page/page_keys.h"
#include "tests/contract/windows_drop.h"
#include "tests/contract/windows_message_pump.h"

#include <algorithm>

namespace {

// Ctrl, as the thread's key messages see it.
struct HeldCtrl {
    HeldCtrl() { Set(0x80); }
    ~HeldCtrl() { Set(0); }
    static void Set(BYTE state) {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[VK_CONTROL] = keys[VK_LCONTROL] = state;
        SetKeyboardState(keys);
    }
};

MSG KeyDown(HWND window, WPARAM key) {
    MSG message = {};
    message.hwnd = window;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    return message;
}

// A question comes after all orders.
void Settle(ShownView& shown) {
    shown.view->StartAtTop();
}

int NormalZoom() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return MulDiv(100, dpi, 96);
}

} // namespace

TEST_CASE("page keys: which ones the view acts on") {
    const struct {
        int key, shift;
        PageKey meaning;
    } table[] = {
        {VK_DOWN, 0, PageKey::Scrolls},
        {VK_NEXT, ShiftKey, PageKey::Scrolls},
        {VK_END, CtrlKey, PageKey::Scrolls},
        {VK_TAB, 0, PageKey::Scrolls},
        {VK_OEM_PLUS, CtrlKey, PageKey::Zooms},
        {VK_SUBTRACT, CtrlKey, PageKey::Zooms},
        {VK_NUMPAD0, CtrlKey, PageKey::Zooms},
        {'0', CtrlKey, PageKey::Zooms},
        {'F', CtrlKey, PageKey::Blocked},
        {'O', CtrlKey, PageKey::Blocked},
        {'N', CtrlKey, PageKey::Blocked},
        {'P', CtrlKey, PageKey::Blocked},
        {VK_F5, 0, PageKey::Blocked},
        {VK_F1, 0, PageKey::Blocked},
        {VK_BROWSER_BACK, 0, PageKey::Blocked},
        {VK_CONTROL, CtrlKey, PageKey::Other},
        {VK_LEFT, AltKey, PageKey::Other},
        {VK_F2, AltKey, PageKey::Other},
        {'E', CtrlKey | AltKey, PageKey::Other},
        {VK_BACK, 0, PageKey::Other},
        {'A', 0, PageKey::Other},
        {VK_OEM_PLUS, 0, PageKey::Other},
    };
    for (const auto& row : table) {
        CAPTURE(row.key);
        CAPTURE(row.shift);
        CHECK(ClassifyPageKey(row.key, row.shift) == row.meaning);
    }
}

TEST_CASE("windows html view: commands of the window come once, keys of the view reach it") {
    ShownView shown;
    shown.Open(L"text");
    const HWND inner = shown.engine.Inner();
    CHECK_FALSE(shown.view->TranslateKey(KeyDown(shown.parent, VK_F5)));
    CHECK(shown.view->TranslateKey(KeyDown(inner, VK_F5)));
    CHECK(shown.view->TranslateKey(KeyDown(inner, VK_DOWN)));
    CHECK(shown.engine.lastKey.wParam == VK_DOWN);
    CHECK_FALSE(shown.view->TranslateKey(KeyDown(inner, 'A')));
    HeldCtrl ctrl;
    CHECK(shown.view->TranslateKey(KeyDown(inner, 'F')));
    CHECK(shown.engine.lastKey.wParam == VK_DOWN);
}

TEST_CASE("windows html view: zooms by keys, back to normal, and anew for each page") {
    ShownView shown;
    shown.Open(L"text");
    const HWND inner = shown.engine.Inner();
    const int normal = NormalZoom();
    CHECK(shown.engine.zoom == normal);
    {
        HeldCtrl ctrl;
        MSG keypad = KeyDown(inner, VK_ADD);
        shown.view->Normalize(keypad);
        CHECK(keypad.wParam == VK_OEM_PLUS);
        CHECK(shown.view->TranslateKey(keypad));
        Settle(shown);
        CHECK(shown.engine.zoom == normal * 11 / 10);
        CHECK(shown.view->TranslateKey(KeyDown(inner, '0')));
        Settle(shown);
        CHECK(shown.engine.zoom == normal);
    }
    MSG plain = KeyDown(inner, VK_ADD);
    shown.view->Normalize(plain);
    CHECK(plain.wParam == VK_ADD);
    CHECK(shown.keys.empty());
    for (int i = 0; i < 10; ++i)
        shown.view->SendZoomKey(false);
    Settle(shown);
    CHECK(shown.engine.zoom == normal / 4);
    for (int i = 0; i < 4; ++i)
        shown.view->SendZoomKey(true);
    Settle(shown);
    CHECK(shown.engine.zoom == normal * 33 / 100); // six steps from normal, as they sum up
    shown.Load(2);
    CHECK(shown.engine.zoom == normal);
}

TEST_CASE("windows html view: its own zoom keystroke is told after the order") {
    ShownView shown;
    shown.Open(L"text");
    shown.view->SendZoomKey(true);
    shown.view->SendZoomKey(false);
    CHECK(shown.keys.empty());
    HandlePostedMessages();
    CHECK(shown.keys == std::vector<std::pair<int, int>>{{PlusKey, CtrlKey}, {MinusKey, CtrlKey}});
    CHECK(shown.engine.zoom == NormalZoom());
}

TEST_CASE("windows html view: keys in a row are one new size, and its place comes with it") {
    ShownView shown;
    shown.Open(Lines(400));
    shown.view->ScrollTo(0, 2000);
    HandlePostedMessages();
    int told = 0;
    shown.view->onZoomed = [&] { ++told; };
    const auto sizes = [&] {
        return std::ranges::count_if(shown.engine.calls, [](const std::string& call) {
            return call.find("Exec") != std::string::npos;
        });
    };
    const auto before = sizes();
    HeldCtrl ctrl;
    for (int i = 0; i < 4; ++i)
        CHECK(shown.view->TranslateKey(KeyDown(shown.engine.Inner(), VK_OEM_PLUS)));
    CHECK(sizes() == before);
    CHECK(shown.view->ZoomSteps() == 0);
    CHECK(shown.view->ScrollTop() == 2000);
    CHECK(Becomes([&] { return told > 0; }));
    CHECK(sizes() == before + 1);
    CHECK(shown.view->ZoomSteps() == 4);
    CHECK(told == 1);
}

TEST_CASE("windows html view: commands of the page's window run ours, only printing its own") {
    ShownView shown;
    shown.Open(L"text");
    for (const WPARAM command : {67, 31, 15, 2000, 27, 2139})
        SendMessageW(shown.engine.Inner(), WM_COMMAND, command, 0);
    HandlePostedMessages();
    CHECK(shown.commands == std::vector<PageCommand>{PageCommand::Find, PageCommand::SelectAll,
                                                     PageCommand::Copy, PageCommand::Open,
                                                     PageCommand::Print});
    REQUIRE(shown.engine.messages.size() == 1);
    CHECK(shown.engine.messages[0].wParam == 27);
    SendMessageW(shown.engine.Inner(), WM_APPCOMMAND, 0,
                 MAKELPARAM(0, APPCOMMAND_BROWSER_BACKWARD));
    SendMessageW(shown.engine.Inner(), WM_XBUTTONUP, MAKEWPARAM(0, XBUTTON1), 0);
    CHECK(shown.engine.messages.size() == 1);
}

TEST_CASE("windows html view: a right click outside the selection is a left press first") {
    ShownView shown;
    shown.Open(Lines(20));
    const auto click = [&](int column, int line) {
        const int percent = NormalZoom();
        shown.engine.messages.clear();
        SendMessageW(
            shown.engine.Inner(), WM_RBUTTONUP, MK_CONTROL,
            MAKELPARAM(MulDiv(StandIn::Edge + column * StandIn::CellWidth + 1, percent, 100),
                       MulDiv(StandIn::Edge + line * StandIn::LineHeight + 1, percent, 100)));
        return shown.engine.messages;
    };
    auto messages = click(2, 3);
    REQUIRE(messages.size() == 2);
    CHECK(messages[0].message == 513);
    CHECK(messages[1].message == 517);
    CHECK(messages[0].wParam == messages[1].wParam);
    CHECK(messages[0].lParam == messages[1].lParam);
    shown.view->Select({0, 5});
    CHECK(click(2, 0).size() == 1);
    CHECK(click(2, 1).size() == 2);
}

namespace {

// One file, as a drop offers it.
class DroppedFile final : public ComObject<IDataObject> {
  public:
    explicit DroppedFile(std::wstring path) : path_(std::move(path)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) noexcept override {
        return FindInterface<IDataObject>(this, id, found);
    }
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override {
        if (QueryGetData(format) != S_OK) return DV_E_FORMATETC;
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = DroppedMemory(path_ + L'\0');
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) noexcept override {
        return format->cfFormat == CF_HDROP ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) noexcept override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) noexcept override {
        return OLE_E_ADVISENOTSUPPORTED;
    }

  private:
    std::wstring path_;
};

} // namespace

TEST_CASE("windows html view: files dropped on the page are the window's") {
    ShownView shown;
    shown.Open(L"text");
    CHECK(shown.engine.takesDrops);
    const auto target = Adopt<IDropTarget>(shown.engine.DropTarget());
    REQUIRE(target);
    const auto data = Adopt<IDataObject>(new DroppedFile(L"C:\\books\\b.rtf"));
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    CHECK(target->DragEnter(data.Get(), 0, {}, &effect) == S_OK);
    CHECK(effect == DROPEFFECT_COPY);
    CHECK(target->Drop(data.Get(), 0, {}, &effect) == S_OK);
    CHECK(shown.drops.empty());
    HandlePostedMessages();
    CHECK(shown.drops == std::vector<std::vector<std::u16string>>{{u"C:\\books\\b.rtf"}});
    shown.view.reset();
    CHECK(target->Drop(data.Get(), 0, {}, &effect) == S_OK); // the engine may ask late
    HandlePostedMessages();
    CHECK(shown.drops.size() == 1);
}
