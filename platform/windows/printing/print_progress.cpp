#include "platform/windows/printing/print_progress.h"

#include "platform/windows/dialogs/dialog_template.h"
#include "platform/windows/window/center.h"

namespace {

constexpr short Width = 160, Height = 52, Edge = 7; // dialog units
constexpr WORD label = 100;

std::vector<DialogControl> Controls() {
    using enum ControlClass;
    return {
        {Static, label, L"Printing...", SS_CENTER, Edge, 10, Width - 2 * Edge, 10},
        {Button, IDCANCEL, L"Cancel", BS_DEFPUSHBUTTON | WS_TABSTOP, (Width - 50) / 2, 30, 50, 14},
    };
}

} // namespace

PrintProgress::PrintProgress(HWND owner) : owner_(owner), last_(GetTickCount64()) {
    const std::vector<WORD> words = DialogTemplate(L"Print", Width, Height, Controls());
    window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                         reinterpret_cast<const DLGTEMPLATE*>(words.data()), owner,
                                         DialogProc, reinterpret_cast<LPARAM>(this));
    EnableWindow(owner_, FALSE);
    CenterOver(window_, owner_);
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

// The owner first: else another program's window comes to the front.
PrintProgress::~PrintProgress() {
    EnableWindow(owner_, TRUE);
    DestroyWindow(window_);
}

INT_PTR CALLBACK PrintProgress::DialogProc(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return TRUE;
    }
    auto* progress = reinterpret_cast<PrintProgress*>(GetWindowLongPtrW(window, DWLP_USER));
    if (progress && message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
        progress->cancelled_ = true;
    return FALSE;
}

bool PrintProgress::OnProgress(int percent) {
    constexpr ULONGLONG interval = 50; // milliseconds
    const ULONGLONG now = GetTickCount64();
    if (now - last_ < interval) return !cancelled_;
    last_ = now;
    SetDlgItemTextW(window_, label, (L"Printing: " + std::to_wstring(percent) + L" %").c_str());
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            cancelled_ = true;
            break;
        }
        if (IsDialogMessageW(window_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return !cancelled_;
}
