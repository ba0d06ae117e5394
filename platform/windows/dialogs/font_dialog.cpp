#include "platform/windows/dialogs/common_dialogs.h"

#include "platform/windows/base/text.h"
#include "platform/windows/window/center.h"
#include "platform/windows/window/dpi.h"

#include <commdlg.h>
#include <dlgs.h>

namespace {

// The controls of the system's font dialog.
constexpr int FaceBox = cmb1, StyleBox = cmb2, SizeBox = cmb3, ColorBox = cmb4, ScriptBox = cmb5;

// The contents of the dialog's controls.
struct ShownFont {
    std::wstring face, style, size, script;
    LRESULT color = CB_ERR;
};

struct FontDialogState {
    std::wstring title;
    const ViewFont* given = nullptr;
    Color color = 0;
    ShownFont first, last;
};

std::wstring TextOf(HWND dialog, int control) {
    wchar_t text[256] = {};
    GetDlgItemTextW(dialog, control, text, static_cast<int>(std::size(text)));
    return text;
}

LRESULT ChosenColor(HWND dialog) {
    const LRESULT index = SendDlgItemMessageW(dialog, ColorBox, CB_GETCURSEL, 0, 0);
    if (index == CB_ERR) return CB_ERR;
    return SendDlgItemMessageW(dialog, ColorBox, CB_GETITEMDATA, static_cast<WPARAM>(index), 0);
}

ShownFont ReadControls(HWND dialog) {
    return {TextOf(dialog, FaceBox), TextOf(dialog, StyleBox), TextOf(dialog, SizeBox),
            TextOf(dialog, ScriptBox), ChosenColor(dialog)};
}

// The dialog lists sixteen colours and would select black for any other, so that one is added.
void SelectColor(HWND dialog, Color color) {
    if (ChosenColor(dialog) == static_cast<LRESULT>(color)) return;
    const auto name = reinterpret_cast<LPARAM>(L"Custom");
    const LRESULT added = SendDlgItemMessageW(dialog, ColorBox, CB_ADDSTRING, 0, name);
    if (added < 0) return;
    const auto index = static_cast<WPARAM>(added);
    SendDlgItemMessageW(dialog, ColorBox, CB_SETITEMDATA, index, static_cast<LPARAM>(color));
    SendDlgItemMessageW(dialog, ColorBox, CB_SETCURSEL, index, 0);
}

void OnInitDialog(HWND dialog, FontDialogState& state) {
    SetWindowTextW(dialog, state.title.c_str());
    SelectColor(dialog, state.color);
    // The dialog leaves the name of a face that is not installed empty.
    if (TextOf(dialog, FaceBox).empty())
        SetDlgItemTextW(dialog, FaceBox, ToWide(state.given->name).c_str());
    state.first = state.last = ReadControls(dialog);
    CenterOver(dialog, GetWindow(dialog, GW_OWNER));
}

UINT_PTR CALLBACK HookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* request = reinterpret_cast<const CHOOSEFONTW*>(lParam);
        SetWindowLongPtrW(dialog, DWLP_USER, request->lCustData);
        OnInitDialog(dialog, *reinterpret_cast<FontDialogState*>(request->lCustData));
    }
    auto* state = reinterpret_cast<FontDialogState*>(GetWindowLongPtrW(dialog, DWLP_USER));
    // The hook runs before the dialog procedure closes the dialog.
    if (state && message == WM_COMMAND && LOWORD(wParam) == IDOK)
        state->last = ReadControls(dialog);
    return 0;
}

ViewFont ChosenFont(const FontDialogState& state, const LOGFONTW& chosen, int tenthsOfPoints) {
    ViewFont font = *state.given;
    if (state.last.face != state.first.face) font.name = FromWide(chosen.lfFaceName);
    if (state.last.size != state.first.size) font.size = tenthsOfPoints / 10.0;
    if (state.last.script != state.first.script) font.charset = chosen.lfCharSet;
    if (state.last.style != state.first.style) {
        font.bold = chosen.lfWeight > FW_MEDIUM;
        font.italic = chosen.lfItalic != 0;
    }
    font.underline = chosen.lfUnderline != 0;
    font.strikethrough = chosen.lfStrikeOut != 0;
    return font;
}

} // namespace

FontAnswer AskFont(HWND owner, const std::u16string& title, const ViewFont& font, Color color) {
    FontDialogState state;
    state.title = ToWide(title);
    state.given = &font;
    state.color = color;
    LOGFONTW chosen = ToLogFont(font, SystemDpi());
    CHOOSEFONTW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpLogFont = &chosen;
    request.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT | CF_ENABLEHOOK;
    request.rgbColors = color;
    request.lCustData = reinterpret_cast<LPARAM>(&state);
    request.lpfnHook = HookProc;
    if (!ChooseFontW(&request)) {
        const bool failed = CommDlgExtendedError() != 0;
        return {failed ? DialogResult::Failed : DialogResult::Cancel, font, color};
    }
    const bool recolored = state.last.color != state.first.color && state.last.color != CB_ERR;
    return {DialogResult::Ok, ChosenFont(state, chosen, request.iPointSize),
            recolored ? static_cast<Color>(state.last.color) : color};
}
