#include "platform/windows/help/win_help_window.h"
#include "tests/contract/help_window_contract.h"
#include "windows_message_pump.h"
#include "windows_shown_help.h"
#include "windows_while_open.h"

namespace {

class WinHelpWindowUnderTest final : public HelpWindowUnderTest {
  public:
    HelpWindow& Port() override { return window_; }
    bool IsOpen() override {
        HandleMessages();
        return ShownHelp::Frame();
    }
    std::u16string Title() override { return FromWide(WindowText(ShownHelp::Frame())); }
    int RowCount() override { return ShownHelp::RowCount(); }
    int Row() override { return ShownHelp::Row(); }
    void ChooseRow(int row) override { ShownHelp::ChooseRow(row); }
    std::u16string SearchText() override { return FromWide(WindowText(ShownHelp::Search())); }
    void Type(const std::u16string& text) override { ShownHelp::Type(text); }
    std::u16string PageText() override { return ShownHelp::Text(); }
    std::u16string SelectedText() override { return ShownHelp::Selected(); }
    void Minimize() override { ShowWindow(ShownHelp::Frame(), SW_MINIMIZE); }
    bool IsMinimized() override { return IsIconic(ShownHelp::Frame()); }
    void Close() override { PostMessageW(ShownHelp::Frame(), WM_CLOSE, 0, 0); }

    void Press(Key key) override {
        PressKey(VirtualKey(key));
        HandleMessages();
    }
    Part Focus() override {
        HandleMessages();
        Becomes([] { return Focused() != Part::None; }); // the window may still be coming to front
        return Focused();
    }

  private:
    static void HandleMessages() {
        int rounds = 0;
        Becomes([&] { return ++rounds > 1; });
    }
    static WPARAM VirtualKey(Key key) {
        switch (key) {
        case Key::Tab: return VK_TAB;
        case Key::Down: return VK_DOWN;
        case Key::Enter: return VK_RETURN;
        case Key::Escape: return VK_ESCAPE;
        }
        return 0;
    }
    static Part Focused() {
        const HWND focused = GetFocus();
        if (!focused) return Part::None;
        if (focused == ShownHelp::Search()) return Part::Search;
        if (focused == ShownHelp::List()) return Part::List;
        return focused == ShownHelp::Page() ? Part::Page : Part::None;
    }

    WinHelpWindow window_;
};

} // namespace

std::vector<BackEnd<HelpWindowUnderTest>> HelpWindowBackEnds() {
    return {MakeBackEnd<HelpWindowUnderTest, WinHelpWindowUnderTest>("windows")};
}
