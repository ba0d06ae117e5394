// Our own view of pages, which needs no browser control, in a window of the program.
#include "common/keys.h"
#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/html_pane/win_page_view.h"
#include "platform/windows/window/win_window.h"
#include "tests/contract/html_view_contract.h"

namespace {
class OwnHtmlBench final : public HtmlViewBench {
  public:
    OwnHtmlBench() {
        WindowEvents events;
        events.onKeyDown = [this](int code, int shift) { keysDown.emplace_back(code, shift); };
        window_.SetEvents(std::move(events));
        window_.Open();
        window_.normalizeKey = [this](MSG& message) { view_.Normalize(message); };
        view_.onZoomKey = [this](int code, int shift) { window_.ReportKeyDown(code, shift); };
        const int bar = GetSystemMetrics(SM_CXVSCROLL);
        view_.SetBounds({0, 0, 600 + bar, 400});
        view_.SetVisible(true);
        view_.FocusView();
    }
    HtmlView& View() override { return view_; }
    bool HasEngine() override { return false; }
    void KillEngine() override {}
    double PixelRatio() override { return 1; }

    void ProcessEvents() override {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT || window_.PreTranslateMessage(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    void CloseWindow() override { // by a message after those that are on their way
        ProcessEvents();
        window_.Close();
    }
    void Press(int keyCode, int shift) override {
        BYTE before[256] = {}, keys[256] = {};
        GetKeyboardState(before);
        if (shift & CtrlKey) keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        for (const UINT kind : {WM_KEYDOWN, WM_KEYUP}) {
            MSG message = {};
            message.hwnd = view_.Handle();
            message.message = kind;
            message.wParam = static_cast<WPARAM>(keyCode);
            if (!window_.PreTranslateMessage(message)) DispatchMessageW(&message);
        }
        SetKeyboardState(before);
    }

  private:
    WinFiles files_;
    WinWindow window_;
    WinPageView view_{window_.ViewArea(), files_};
};
} // namespace

std::vector<HtmlViewBackEnd> HtmlViewBackEnds() {
    return {{"own", [] { return std::make_unique<OwnHtmlBench>(); }}};
}
