// The contents of the help window, and its keyboard handling.
#include "platform/windows/help/help_frame.h"

#include "common/text.h"
#include "platform/windows/system/win_clipboard.h"

#include <commctrl.h>

#include <array>

namespace {

constexpr UINT_PTR subclassId = 2;            // 1 is the text view's own
constexpr int westernCodePage = 1252;         // unused: the pages are ASCII
constexpr TextPos charactersBelowTitle = 200; // that are visible together with it

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

} // namespace

void HelpFrame::ShowResultsFor(const std::u16string& typed) {
    if (typed.find_first_not_of(u" \t\u00A0") == typed.npos) {
        list_->ShowTitles(contents_.titles);
        return SelectRow(shownPage_);
    }
    list_->ShowFindings(contents_.search(typed));
    if (list_->Finding(0)) SelectRow(0);
}

void HelpFrame::SelectRow(int row) {
    list_->Select(row);
    ShowRow(list_->SelectedRow());
}

void HelpFrame::ShowRow(int row) {
    if (row < 0) return list_->Select(-1);
    const HelpFinding* finding = list_->Finding(row);
    ShowPage(finding ? finding->page : row);
    if (!finding) return;
    text_->Select(finding->place.start, finding->place.length);
    // The title above the first lines stays in view.
    if (finding->place.start > static_cast<TextPos>(finding->title.size()) + charactersBelowTitle)
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
    shownPage_ = page;
}

void HelpFrame::FollowLink(const std::u16string& address) {
    if (address.empty()) return;
    SetWindowTextW(search_, L""); // all pages are listed
    SelectRow(WholeNumber(address));
}

// Not in the message loop: a message box runs a loop of its own, which does not know this window.
void HelpFrame::Subclass(HWND control) {
    SetWindowSubclass(control, ControlProc, subclassId, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK HelpFrame::ControlProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR, DWORD_PTR self) {
    constexpr std::array commandCharacters = {L'\t', L'\r', L'\n', L'\x1B', L'\x06', L'\x7F'};
    switch (message) {
    case WM_NCDESTROY: RemoveWindowSubclass(control, ControlProc, subclassId); break;
    case WM_KEYDOWN:
        if (reinterpret_cast<HelpFrame*>(self)->HandleKey(control, static_cast<int>(wParam)))
            return 0;
        break;
    case WM_CHAR: // would beep
        for (const wchar_t character : commandCharacters)
            if (wParam == character) return 0;
        break;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

bool HelpFrame::HandleKey(HWND control, int key) {
    const int paneCount = 3;
    switch (key) {
    case VK_ESCAPE: PostMessageW(Handle(), WM_CLOSE, 0, 0); return true;
    case VK_TAB:
        if (!IsDown(VK_CONTROL))
            Focus(static_cast<Pane>((Focused() + (IsDown(VK_SHIFT) ? paneCount - 1 : 1)) %
                                    paneCount));
        return true;
    case 'F':
        if (!IsDown(VK_CONTROL)) return false;
        Focus(Search);
        SendMessageW(search_, EM_SETSEL, 0, -1);
        return true;
    case VK_RETURN:
        if (control == text_->Handle())
            FollowLink(text_->LinkAtCaret());
        else
            Focus(Page);
        return true;
    case 'C':
    case VK_INSERT:
        if (!IsDown(VK_CONTROL) || control != text_->Handle()) return false;
        CopySelection();
        return true;
    default: return control == search_ && HandleSearchKey(key);
    }
}

void HelpFrame::CopySelection() const {
    if (text_->SelLength() == 0) return;
    WinClipboard().SetText(text_->TextRange(text_->SelStart(), text_->SelLength()));
}

// Page Up and Page Down scroll the page, Down leads into the list.
bool HelpFrame::HandleSearchKey(int key) {
    if (IsDown(VK_CONTROL) || IsDown(VK_SHIFT)) return false;
    if (key == VK_DOWN) Focus(List);
    if (key == VK_NEXT) text_->Pane().PageDown();
    if (key == VK_PRIOR) text_->Pane().PageUp();
    return key == VK_DOWN || key == VK_NEXT || key == VK_PRIOR;
}

HWND HelpFrame::Control(Pane pane) const {
    switch (pane) {
    case Search: return search_;
    case List: return list_->Handle();
    default: return text_->Handle();
    }
}

HelpFrame::Pane HelpFrame::Focused() const {
    const HWND focus = GetFocus();
    for (const Pane pane : {Search, List, Page})
        if (focus == Control(pane)) return pane;
    return lastFocused_;
}

void HelpFrame::Focus(Pane pane) {
    SetFocus(Control(pane));
}
