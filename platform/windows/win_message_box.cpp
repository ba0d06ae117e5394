#include "platform/windows/win_message_box.h"

#include "platform/windows/win_center.h"
#include "platform/windows/win_text.h"

namespace {

constexpr int AppIcon = 1; // a resource of the executable

// The system puts message boxes in the middle of the screen. This puts the next dialog of the
// thread over its owner instead.
class CenterNextDialog {
  public:
    explicit CenterNextDialog(HWND owner) : outer_(current) {
        owner_ = owner;
        current = this;
        hook_ = SetWindowsHookExW(WH_CBT, OnWindow, nullptr, GetCurrentThreadId());
    }
    ~CenterNextDialog() {
        Unhook();
        current = outer_;
    }
    CenterNextDialog(const CenterNextDialog&) = delete;
    CenterNextDialog& operator=(const CenterNextDialog&) = delete;

  private:
    static LRESULT CALLBACK OnWindow(int code, WPARAM window, LPARAM details) {
        if (code == HCBT_ACTIVATE) {
            current->Unhook();
            CenterOver(reinterpret_cast<HWND>(window), current->owner_);
            return 0;
        }
        return CallNextHookEx(nullptr, code, window, details);
    }
    void Unhook() {
        if (hook_) UnhookWindowsHookEx(hook_);
        hook_ = nullptr;
    }

    // The hook is told nothing but the window.
    static thread_local CenterNextDialog* current;
    CenterNextDialog* const outer_;
    HWND owner_ = nullptr;
    HHOOK hook_ = nullptr;
};

thread_local CenterNextDialog* CenterNextDialog::current = nullptr;

void CALLBACK OnHelp(HELPINFO* help) {
    const auto& onHelp = *reinterpret_cast<const std::function<void()>*>(help->dwContextId);
    if (onHelp) onHelp();
}

int Show(MSGBOXPARAMSW parameters, const std::u16string& text, const std::u16string& title) {
    const std::wstring wideText = ToWide(text), wideTitle = ToWide(title);
    parameters.cbSize = sizeof parameters;
    parameters.lpszText = wideText.c_str();
    parameters.lpszCaption = wideTitle.c_str();
    const CenterNextDialog centered(parameters.hwndOwner);
    return MessageBoxIndirectW(&parameters);
}

} // namespace

int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style,
                   const std::function<void()>& onHelp) {
    MSGBOXPARAMSW parameters = {};
    parameters.hwndOwner = owner;
    parameters.dwStyle = style;
    parameters.lpfnMsgBoxCallback = OnHelp;
    parameters.dwContextHelpId = reinterpret_cast<DWORD_PTR>(&onHelp);
    return Show(parameters, text, title);
}

int ShowMessageBoxWithAppIcon(HWND owner, const std::u16string& text, const std::u16string& title,
                              UINT style) {
    MSGBOXPARAMSW parameters = {};
    parameters.hwndOwner = owner;
    parameters.hInstance = GetModuleHandleW(nullptr);
    parameters.dwStyle = style | MB_USERICON;
    parameters.lpszIcon = MAKEINTRESOURCEW(AppIcon);
    return Show(parameters, text, title);
}
