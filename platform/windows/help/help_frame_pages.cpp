// What the help window shows, and its keys.
#include "platform/windows/help/help_frame.h"

#include "platform/windows/system/win_clipboard.h"

#include <commctrl.h>

#include <array>

namespace {

constexpr UINT_PTR subclassId = 2;       // the text view has the first of its control
constexpr int westernCodePage = 1252;    // never needed: the pages are ASCII
constexpr TextPos linesBelowTitle = 200; // characters that are in view with the title

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

} // namespace

void HelpFrame::ShowTypedFor(const std::u16string& typed) {
    if (typed.find_first_not_of(u" \t\u00A0") == typed.npos) {
        list_->ShowTitles(contents_.titles);
        return ChooseRow(shownPage_);
    }
    list_->ShowFindings(contents_.search(typed));
    if (list_->Finding(0)) ChooseRow(0);
}

void HelpFrame::ChooseRow(int row) {
    list_->Choose(row);
    ShowRow(list_->ChosenRow());
}

void HelpFrame::ShowRow(int row) {
    if (row < 0) return list_->Choose(-1);
    const HelpFinding* finding = list_->Finding(row);
    ShowPage(finding ? finding->page : row);
    if (!finding) return;
    text_->Select(finding->place.start, finding->place.length);
    // The title above the first lines stays in view.
    if (finding->place.start > static_cast<TextPos>(finding->title.size()) + linesBelowTitle)
        text_->ScrollLineToTop(finding->place.start);
}

void HelpFrame::ShowPage(int page) {
    if (page < 0 || page >= std::ssize(contents_.titles)) return;
    if (page == shownPage_) {
        text_->Select(0, 0);
        text_->ScrollLineToTop(0);
        return;
    }
    text_->LoadRichText(contents_.page(page), westernCodePage);
    ListenTo(text_->Handle()); // it has a control of its own
    shownPage_ = page;
}

// Keys are taken from the controls themselves and not in the message loop: a message box has a loop
// of its own, which knows nothing of this window.
void HelpFrame::ListenTo(HWND control) {
    SetWindowSubclass(control, OnControl, subclassId, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK HelpFrame::OnControl(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR self) {
    constexpr std::array commandCharacters = {L'\t', L'\r', L'\n', L'\x1B', L'\x06', L'\x7F'};
    switch (message) {
    case WM_NCDESTROY: RemoveWindowSubclass(control, OnControl, subclassId); break;
    case WM_KEYDOWN:
        if (reinterpret_cast<HelpFrame*>(self)->TakeKey(control, static_cast<int>(wParam)))
            return 0;
        break;
    case WM_CHAR: // would beep
        for (const wchar_t character : commandCharacters)
            if (wParam == character) return 0;
        break;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

// Whether the key is used up.
bool HelpFrame::TakeKey(HWND control, int key) {
    const int halves = 3;
    switch (key) {
    case VK_ESCAPE: PostMessageW(Handle(), WM_CLOSE, 0, 0); return true;
    case VK_TAB:
        if (!IsDown(VK_CONTROL))
            Focus(static_cast<Half>((Focused() + (IsDown(VK_SHIFT) ? halves - 1 : 1)) % halves));
        return true;
    case 'F':
        if (!IsDown(VK_CONTROL)) return false;
        Focus(Search);
        SendMessageW(search_, EM_SETSEL, 0, -1);
        return true;
    case VK_RETURN:
        if (control != text_->Handle()) Focus(Page);
        return true;
    case 'C':
    case VK_INSERT:
        if (!IsDown(VK_CONTROL) || control != text_->Handle()) return false;
        CopySelection();
        return true;
    default: return control == search_ && TakeSearchKey(key);
    }
}

void HelpFrame::CopySelection() const {
    if (text_->SelLength() == 0) return;
    WinClipboard().SetText(text_->TextRange(text_->SelStart(), text_->SelLength()));
}

// From the search field the page can be turned, and the list be entered.
bool HelpFrame::TakeSearchKey(int key) {
    if (IsDown(VK_CONTROL) || IsDown(VK_SHIFT)) return false;
    if (key == VK_DOWN) Focus(List);
    if (key == VK_NEXT) SendMessageW(text_->Handle(), EM_SCROLL, SB_PAGEDOWN, 0);
    if (key == VK_PRIOR) SendMessageW(text_->Handle(), EM_SCROLL, SB_PAGEUP, 0);
    return key == VK_DOWN || key == VK_NEXT || key == VK_PRIOR;
}

HWND HelpFrame::Control(Half half) const {
    switch (half) {
    case Search: return search_;
    case List: return list_->Handle();
    default: return text_->Handle();
    }
}

HelpFrame::Half HelpFrame::Focused() const {
    const HWND focus = GetFocus();
    for (const Half half : {Search, List, Page})
        if (focus == Control(half)) return half;
    return lastFocused_;
}

void HelpFrame::Focus(Half half) {
    SetFocus(Control(half));
}
