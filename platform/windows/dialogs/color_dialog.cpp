#include "platform/windows/dialogs/common_dialogs.h"

#include "platform/windows/base/text.h"
#include "platform/windows/window/center.h"

#include <commdlg.h>

#include <algorithm>
#include <iterator>

namespace {

UINT_PTR CALLBACK HookProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_INITDIALOG) return 0;
    const auto* request = reinterpret_cast<const CHOOSECOLORW*>(lParam);
    SetWindowTextW(dialog, reinterpret_cast<const wchar_t*>(request->lCustData));
    CenterOver(dialog, GetWindow(dialog, GW_OWNER));
    return 0;
}

} // namespace

ColorAnswer AskColor(HWND owner, const std::u16string& title, Color start) {
    const std::wstring wideTitle = ToWide(title);
    COLORREF custom[16];
    std::fill(std::begin(custom), std::end(custom), RGB(255, 255, 255));
    CHOOSECOLORW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.rgbResult = start;
    request.lpCustColors = custom;
    request.Flags = CC_FULLOPEN | CC_RGBINIT | CC_ANYCOLOR | CC_ENABLEHOOK;
    request.lCustData = reinterpret_cast<LPARAM>(wideTitle.c_str());
    request.lpfnHook = HookProc;
    if (ChooseColorW(&request)) return {DialogResult::Ok, request.rgbResult};
    const bool failed = CommDlgExtendedError() != 0;
    return {failed ? DialogResult::Failed : DialogResult::Cancel, start};
}
