#include "platform/windows/dialogs/win_place_dialog.h"

#include "platform/windows/base/text.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

namespace {

constexpr short Width = 240, Height = 218, Edge = 7, Inner = Width - 2 * Edge; // dialog units
constexpr short ButtonWidth = 50, ButtonHeight = 14, ButtonTop = Height - Edge - ButtonHeight;

// The label of a field is the static text before it, for screen readers, too.
std::vector<DialogControl> Controls() {
    using enum ControlClass;
    using Id = WinPlaceDialog;
    constexpr short go = Width - Edge - 2 * ButtonWidth - 4, cancel = Width - Edge - ButtonWidth;
    constexpr DWORD list = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_BORDER | WS_TABSTOP;
    return {
        {Static, Id::Label, L"&Per cent of the book:", 0, Edge, Edge, Inner, 9},
        {Edit, Id::Percent, L"", ES_NUMBER | WS_BORDER | WS_TABSTOP, Edge, 18, 40, 14},
        {Static, Id::Label, L"&Heading (type a part of it):", 0, Edge, 38, Inner, 9},
        {Edit, Id::Filter, L"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, Edge, 49, Inner, 14},
        {Static, Id::Label, L"&List of headings:", 0, Edge, 69, Inner, 9},
        {ListBox, Id::List, L"", list, Edge, 80, Inner, ButtonTop - 80 - 6},
        {Button, IDOK, L"&Go", BS_DEFPUSHBUTTON | WS_TABSTOP, go, ButtonTop, ButtonWidth,
         ButtonHeight},
        {Button, IDCANCEL, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, cancel, ButtonTop, ButtonWidth,
         ButtonHeight},
    };
}

} // namespace

PlaceAnswer WinPlaceDialog::Ask(HWND owner, const PlaceRequest& request) {
    request_ = &request;
    answer_ = {};
    const int result = Run(owner, request.title, Width, Height, Controls());
    if (result == 0) answer_.result = DialogResult::Failed;
    return answer_;
}

void WinPlaceDialog::OnInitDialog() {
    SetDlgItemInt(Window(), Percent, static_cast<UINT>(request_->percent), FALSE);
    SendDlgItemMessageW(Window(), Percent, EM_LIMITTEXT, 3, 0);
    FillList();
    SelectRow(request_->heading);
    EnableWindow(Control(Filter), !request_->headings.empty());
    EnableWindow(Control(List), !request_->headings.empty());
    SetWindowSubclass(Control(Filter), FilterProc, 0, reinterpret_cast<DWORD_PTR>(this));
    choice_ = Choice::None; // the texts set here count as changes
    SetFocus(Control(Percent));
    SendDlgItemMessageW(Window(), Percent, EM_SETSEL, 0, -1);
}

void WinPlaceDialog::FillList() {
    const HWND list = Control(List);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const int index : MatchingHeadings(request_->headings, FromWide(Text(Filter)))) {
        const auto text = ToWide(IndentedHeading(request_->headings[static_cast<size_t>(index)]));
        const LRESULT row =
            SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageW(list, LB_SETITEMDATA, static_cast<WPARAM>(row), index);
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

void WinPlaceDialog::SelectRow(int row) const {
    SendDlgItemMessageW(Window(), List, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

int WinPlaceDialog::SelectedHeading() const {
    const LRESULT row = SendDlgItemMessageW(Window(), List, LB_GETCURSEL, 0, 0);
    if (row == LB_ERR) return -1;
    return static_cast<int>(
        SendDlgItemMessageW(Window(), List, LB_GETITEMDATA, static_cast<WPARAM>(row), 0));
}

// The keys that move in the list do so from the field above it, too.
LRESULT CALLBACK WinPlaceDialog::FilterProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                            UINT_PTR id, DWORD_PTR self) noexcept {
    const auto& dialog = *reinterpret_cast<WinPlaceDialog*>(self);
    const bool moves = message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN ||
                                                 wParam == VK_PRIOR || wParam == VK_NEXT);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, FilterProc, id);
    if (moves) return SendMessageW(dialog.Control(List), message, wParam, lParam);
    return DefSubclassProc(window, message, wParam, lParam);
}

void WinPlaceDialog::Choose(Choice choice) {
    choice_ = choice;
    EnableWindow(Control(IDOK), choice != Choice::Heading || SelectedHeading() >= 0);
}

void WinPlaceDialog::OnCommand(WORD control, WORD notification) {
    if (control == Percent && notification == EN_CHANGE) Choose(Choice::Percent);
    if (control == List && notification == LBN_SELCHANGE) Choose(Choice::Heading);
    if (control == List && notification == LBN_DBLCLK) {
        Choose(Choice::Heading);
        PostMessageW(Window(), WM_COMMAND, IDOK, 0);
    }
    if (control != Filter || notification != EN_CHANGE) return;
    FillList();
    SelectRow(0);
    Choose(Choice::Heading);
}

void WinPlaceDialog::OnOk() {
    if (GetFocus() == Control(List)) choice_ = Choice::Heading;
    if (choice_ == Choice::None) return;
    const auto percent = static_cast<int>(std::wcstol(Text(Percent).c_str(), nullptr, 10));
    answer_ = {DialogResult::Ok, std::clamp(percent, 0, 100),
               choice_ == Choice::Heading ? SelectedHeading() : -1};
}
