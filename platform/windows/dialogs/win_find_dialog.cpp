#include "platform/windows/dialogs/win_find_dialog.h"

#include "platform/windows/base/text.h"
#include "platform/windows/window/dpi.h"

namespace {

constexpr short Width = 230, Height = 92, Edge = 7, Inner = Width - 2 * Edge; // dialog units
constexpr short ButtonWidth = 50, ButtonHeight = 14, ButtonTop = Height - Edge - ButtonHeight;
constexpr short DroppedHeight = 120;

// Outlives the dialog, whose control does not own it.
class ControlFont {
  public:
    explicit ControlFont(const ViewFont& font) {
        const LOGFONTW described = ToLogFont(font, SystemDpi());
        font_ = CreateFontIndirectW(&described);
    }
    ~ControlFont() { DeleteObject(font_); }
    ControlFont(const ControlFont&) = delete;
    ControlFont& operator=(const ControlFont&) = delete;
    HFONT Get() const { return font_; }

  private:
    HFONT font_;
};

std::vector<DialogControl> Controls() {
    using enum ControlClass;
    constexpr short find = Width - Edge - 2 * ButtonWidth - 4, cancel = Width - Edge - ButtonWidth;
    using Id = WinFindDialog;
    return {
        {Static, Id::Label, L"Fi&nd what:", 0, Edge, Edge, Inner, 9},
        {ComboBox, Id::What, L"", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, Edge,
         18, Inner, DroppedHeight},
        {Button, Id::WholeWord, L"Match &whole word only", BS_AUTOCHECKBOX | WS_TABSTOP, Edge, 39,
         Inner, 11},
        {Button, Id::MatchCase, L"Match &case", BS_AUTOCHECKBOX | WS_TABSTOP, Edge, 53, Inner, 11},
        {Button, IDOK, L"&Find", BS_DEFPUSHBUTTON | WS_TABSTOP, find, ButtonTop, ButtonWidth,
         ButtonHeight},
        {Button, IDCANCEL, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, cancel, ButtonTop, ButtonWidth,
         ButtonHeight},
    };
}

int HeightOf(HWND control) {
    RECT place = {};
    GetWindowRect(control, &place);
    return place.bottom - place.top;
}

} // namespace

FindAnswer WinFindDialog::Ask(HWND owner, const FindRequest& request) {
    request_ = &request;
    answer_ = {};
    const ControlFont font(request.font);
    font_ = font.Get();
    const int result = Run(owner, request.title, Width, Height, Controls());
    if (result == 0) answer_.result = DialogResult::Failed;
    return answer_;
}

void WinFindDialog::OnInitDialog() {
    const HWND what = Control(What);
    const int before = HeightOf(what);
    SendMessageW(what, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    // The combo box resizes itself to the font; the controls below it do not move.
    MoveControlsBelow(What, HeightOf(what) - before);
    FillWhat();
    Check(WholeWord, request_->wholeWord);
    Check(MatchCase, request_->matchCase);
    EnableFind(!shown_.empty());
    SetFocus(what);
}

void WinFindDialog::FillWhat() {
    const HWND what = Control(What);
    SendMessageW(what, CB_LIMITTEXT, 0, 0); // no limit but the system's
    for (const std::u16string& search : request_->history)
        SendMessageW(what, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(search).c_str()));
    SetText(What, request_->text);
    shown_ = Text(What);
    SendMessageW(what, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

void WinFindDialog::EnableFind(bool enabled) const {
    EnableWindow(Control(IDOK), enabled);
}

void WinFindDialog::OnCommand(WORD control, WORD notification) {
    if (control != What) return;
    if (notification == CBN_EDITCHANGE) EnableFind(!Text(What).empty());
    if (notification == CBN_SELCHANGE) EnableFind(true); // its text changes only after this
}

void WinFindDialog::OnOk() {
    const std::wstring text = Text(What);
    answer_ = {DialogResult::Ok, text == shown_ ? request_->text : FromWide(text),
               IsChecked(WholeWord), IsChecked(MatchCase)};
}
