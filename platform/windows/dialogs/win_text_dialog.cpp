#include "platform/windows/dialogs/win_text_dialog.h"

#include "platform/windows/base/text.h"

namespace {

constexpr short Width = 220, Height = 66, Edge = 7, Inner = Width - 2 * Edge; // dialog units
constexpr short ButtonWidth = 50, ButtonHeight = 14, ButtonTop = Height - Edge - ButtonHeight;

std::vector<DialogControl> Controls() {
    using enum ControlClass;
    constexpr short ok = Width - Edge - 2 * ButtonWidth - 4, cancel = Width - Edge - ButtonWidth;
    return {
        {Static, WinTextDialog::Prompt, L"", SS_NOPREFIX, Edge, Edge, Inner, 9},
        {Edit, WinTextDialog::Line, L"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, Edge, 20, Inner,
         14},
        {Button, IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, ok, ButtonTop, ButtonWidth,
         ButtonHeight},
        {Button, IDCANCEL, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, cancel, ButtonTop, ButtonWidth,
         ButtonHeight},
    };
}

// Pixels by which a label is too low for its text; 0 or less when it fits.
int ExtraHeightNeeded(HWND label, const std::wstring& text) {
    RECT inner = {};
    GetClientRect(label, &inner);
    RECT needed = inner;
    const HDC context = GetDC(label);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(label, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(context, font);
    DrawTextW(context, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(context, before);
    ReleaseDC(label, context);
    return needed.bottom - inner.bottom;
}

} // namespace

std::u16string WinTextDialog::Ask(HWND owner, const std::u16string& title,
                                  const std::u16string& prompt) {
    prompt_ = prompt;
    text_.clear();
    Run(owner, title, Width, Height, Controls());
    return text_;
}

void WinTextDialog::OnInitDialog() {
    SetText(Prompt, prompt_);
    const int missing = ExtraHeightNeeded(Control(Prompt), ToWide(prompt_));
    MoveControlsBelow(Prompt, missing);
    Grow(Prompt, missing);
    SetFocus(Control(Line));
}

void WinTextDialog::OnOk() {
    text_ = FromWide(Text(Line));
}
