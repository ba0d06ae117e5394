#include "platform/windows/base/text.h"
#include "platform/windows/window/win_status_bar.h"
#include "platform/windows/window/win_window.h"
#include "tests/contract/status_bar_contract.h"

#include <commctrl.h>

namespace {

Rect ToRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

class WinStatusBarUnderTest final : public StatusBarUnderTest {
  public:
    WinStatusBarUnderTest() { window_.Move({10, 10, 820, 460}); }
    StatusBar& Port() override { return bar_; }
    Rect Shown() override {
        RECT place = {};
        GetWindowRect(bar_.Handle(), &place);
        MapWindowPoints(nullptr, window_.Handle(), reinterpret_cast<POINT*>(&place), 2);
        return ToRect(place);
    }
    std::vector<Rect> Panels() override {
        std::vector<Rect> panels;
        if (Ask(SB_ISSIMPLE)) return panels;
        for (LRESULT count = Ask(SB_GETPARTS), i = 0; i < count; ++i) {
            RECT place = {};
            Ask(SB_GETRECT, static_cast<WPARAM>(i), &place);
            panels.push_back(ToRect(place));
        }
        return panels;
    }
    std::u16string DateText() override {
        wchar_t text[256] = {};
        Ask(SB_GETTEXTW, 2, text);
        return FromWide(text);
    }
    std::u16string Today() override {
        wchar_t text[80] = {};
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, 80,
                        nullptr);
        return FromWide(text);
    }

  private:
    LRESULT Ask(UINT message, WPARAM part = 0, void* answer = nullptr) const {
        return SendMessageW(bar_.Handle(), message, part, reinterpret_cast<LPARAM>(answer));
    }

    WinWindow window_;
    WinStatusBar bar_{window_.Handle()};
};

} // namespace

std::vector<BackEnd<StatusBarUnderTest>> StatusBarBackEnds() {
    return {MakeBackEnd<StatusBarUnderTest, WinStatusBarUnderTest>("windows")};
}
