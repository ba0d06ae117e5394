#include "platform/windows/dialogs/message_box.h"

#include "platform/windows/base/text.h"
#include "platform/windows/resources/resource.h"
#include "platform/windows/window/center.h"

namespace {

// A message box while it is open; centres it over its owner. Neither the CBT hook nor the help
// callback takes a context, hence the thread-local.
class OpenBox {
  public:
    OpenBox(HWND owner, const std::function<void()>& onHelp)
        : outer_(current), owner_(owner), onHelp_(onHelp),
          hook_(SetWindowsHookExW(WH_CBT, CbtProc, nullptr, GetCurrentThreadId())) {
        current = this;
    }
    ~OpenBox() {
        Unhook();
        current = outer_;
    }
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;

    static void CALLBACK OnHelp(HELPINFO*) {
        if (current && current->onHelp_) current->onHelp_();
    }

  private:
    static LRESULT CALLBACK CbtProc(int code, WPARAM window, LPARAM details) {
        if (code == HCBT_ACTIVATE && current) {
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

    static thread_local OpenBox* current;
    OpenBox* const outer_;
    const HWND owner_;
    const std::function<void()>& onHelp_;
    HHOOK hook_;
};

thread_local OpenBox* OpenBox::current = nullptr;

} // namespace

int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style,
                   const std::function<void()>& onHelp) {
    const std::wstring wideText = ToWide(text), wideTitle = ToWide(title);
    MSGBOXPARAMSW parameters = {};
    parameters.cbSize = sizeof parameters;
    parameters.hwndOwner = owner;
    parameters.hInstance = GetModuleHandleW(nullptr);
    parameters.lpszText = wideText.c_str();
    parameters.lpszCaption = wideTitle.c_str();
    parameters.dwStyle = style;
    parameters.lpszIcon = MAKEINTRESOURCEW(IDI_PROGRAM); // used with MB_USERICON only
    parameters.lpfnMsgBoxCallback = OpenBox::OnHelp;
    const OpenBox box(owner, onHelp);
    return MessageBoxIndirectW(&parameters);
}

int ShowMessageBoxWithAppIcon(HWND owner, const std::u16string& text, const std::u16string& title,
                              UINT style) {
    return ShowMessageBox(owner, text, title, style | MB_USERICON);
}
