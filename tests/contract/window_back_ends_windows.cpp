#include "platform/windows/window/win_window.h"
#include "tests/contract/window_contract.h"
#include "tests/contract/windows_message_pump.h"

namespace {

Rect ToRect(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

class WinUnderTest final : public WindowUnderTest {
  public:
    WinUnderTest() {
        MSG quit; // of the window before this one
        while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    }
    Window& Get() override { return window_; }
    Rect Shown() override {
        RECT bounds = {};
        GetWindowRect(window_.Handle(), &bounds);
        return ToRect(bounds);
    }
    std::vector<Rect> Screens() override {
        RECT work = {};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        return {ToRect(work)};
    }
    void DragTo(const Rect& to) override {
        SetWindowPos(window_.Handle(), nullptr, to.left, to.top, to.width, to.height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void Settle() override {
        int rounds = 0;
        ::Becomes([&] { return ++rounds > 2; }, &window_);
    }
    // Wine has told the X server, whose answers come later and count then.
    bool Becomes(WindowState state) override {
        int rounds = 0;
        return ::Becomes(
            [&] {
                rounds = window_.State() == state ? rounds + 1 : 0;
                return rounds > 10;
            },
            &window_);
    }

  private:
    WinWindow window_;
};

} // namespace

std::vector<WindowBackEnd> WindowBackEnds() {
    return {{"none", MakeNoneWindow}, {"windows", [] { return std::make_unique<WinUnderTest>(); }}};
}
