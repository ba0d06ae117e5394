#include "platform/windows/dialogs/win_rich_message.h"

#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/rich_edit_class.h"

#include <richedit.h>

namespace {

constexpr short Width = 280, Height = 76, Edge = 7, Inner = Width - 2 * Edge; // dialog units
constexpr short TextHeight = 40, ButtonWidth = 58, ButtonHeight = 14, Between = 4;

std::vector<DialogControl> Controls(const std::vector<std::u16string>& buttons) {
    std::vector<DialogControl> controls;
    const auto count = static_cast<int>(buttons.size());
    for (int i = 0; i < count; ++i) {
        DialogControl button;
        button.type = ControlClass::Button;
        button.id = static_cast<WORD>(WinRichMessage::FirstButton + i);
        button.caption = ToWide(buttons[static_cast<std::size_t>(i)]);
        button.style = (i == 0 ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | WS_TABSTOP;
        button.left =
            static_cast<short>(Width - Edge - (count - i) * (ButtonWidth + Between) + Between);
        button.top = Height - Edge - ButtonHeight;
        button.width = ButtonWidth;
        button.height = ButtonHeight;
        controls.push_back(button);
    }
    return controls;
}

} // namespace

int WinRichMessage::Ask(HWND owner, const std::string& rtf, const std::u16string& title,
                        const std::vector<std::u16string>& buttons) {
    rtf_ = &rtf;
    const int pressed = Run(owner, title, Width, Height, Controls(buttons));
    return pressed >= FirstButton ? pressed - FirstButton + 1 : 0;
}

void WinRichMessage::OnInitDialog() {
    RECT place = {Edge, Edge, Edge + Inner, Edge + TextHeight};
    MapDialogRect(Window(), &place);
    const HWND text = CreateWindowExW(
        0, RichEditClass(), L"", WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_READONLY, place.left,
        place.top, place.right - place.left, place.bottom - place.top, Window(),
        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(Text)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(text, EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_3DFACE)));
    // For a text without a face of its own; the control's default is bold.
    SendMessageW(text, WM_SETFONT, static_cast<WPARAM>(SendMessageW(Window(), WM_GETFONT, 0, 0)),
                 FALSE);
    SETTEXTEX asRtf = {ST_DEFAULT, CP_ACP};
    SendMessageW(text, EM_SETTEXTEX, reinterpret_cast<WPARAM>(&asRtf),
                 reinterpret_cast<LPARAM>(rtf_->c_str()));
    SetFocus(Control(FirstButton));
}

void WinRichMessage::OnCommand(WORD control, WORD notification) {
    if (control >= FirstButton && notification == BN_CLICKED) Close(control);
}
