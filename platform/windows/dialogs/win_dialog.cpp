#include "platform/windows/dialogs/win_dialog.h"

#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/dialog_template.h"
#include "platform/windows/window/center.h"

int WinDialog::Run(HWND owner, const std::u16string& title, short width, short height,
                   const std::vector<DialogControl>& controls) {
    const std::vector<WORD> words = DialogTemplate(ToWide(title), width, height, controls);
    const INT_PTR result = DialogBoxIndirectParamW(
        GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(words.data()), owner,
        DialogProc, reinterpret_cast<LPARAM>(this));
    return result > 0 ? static_cast<int>(result) : 0;
}

INT_PTR CALLBACK WinDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* dialog = reinterpret_cast<WinDialog*>(lParam);
        dialog->window_ = window;
        dialog->OnInitDialog();
        CenterOver(window, GetWindow(window, GW_OWNER));
        return FALSE; // the focus is set
    }
    auto* dialog = reinterpret_cast<WinDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    return dialog && dialog->HandleMessage(message, wParam);
}

bool WinDialog::HandleMessage(UINT message, WPARAM wParam) {
    if (message != WM_COMMAND) return false;
    const WORD control = LOWORD(wParam);
    if (control == IDCANCEL) {
        EndDialog(window_, IDCANCEL);
    } else if (control != IDOK) {
        OnCommand(control, HIWORD(wParam));
    } else if (IsWindowEnabled(Control(IDOK))) {
        OnOk();
        EndDialog(window_, IDOK);
    }
    return true;
}

std::wstring WinDialog::Text(int id) const {
    return WindowText(Control(id));
}

void WinDialog::SetText(int id, const std::u16string& text) const {
    SetWindowTextW(Control(id), ToWide(text).c_str());
}

void WinDialog::Grow(int id, int pixels) const {
    if (pixels <= 0) return;
    RECT place = {};
    GetWindowRect(Control(id), &place);
    SetWindowPos(Control(id), nullptr, 0, 0, place.right - place.left,
                 place.bottom - place.top + pixels, SWP_NOMOVE | SWP_NOZORDER);
}

void WinDialog::MoveControlsBelow(int id, int pixels) const {
    if (pixels <= 0) return;
    RECT above = {}, frame = {};
    GetWindowRect(Control(id), &above);
    for (HWND other = GetWindow(window_, GW_CHILD); other; other = GetWindow(other, GW_HWNDNEXT)) {
        RECT place = {};
        GetWindowRect(other, &place);
        if (place.top <= above.top || other == Control(id)) continue;
        POINT corner = {place.left, place.top + pixels};
        ScreenToClient(window_, &corner);
        SetWindowPos(other, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
    GetWindowRect(window_, &frame);
    SetWindowPos(window_, nullptr, 0, 0, frame.right - frame.left,
                 frame.bottom - frame.top + pixels, SWP_NOMOVE | SWP_NOZORDER);
}
