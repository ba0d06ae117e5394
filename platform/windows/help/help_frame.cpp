#include "platform/windows/help/help_frame.h"

#include "platform/windows/base/text.h"
#include "platform/windows/window/center.h"
#include "platform/windows/window/title_bar.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

namespace {

constexpr SIZE defaultSize = {940, 680}, minSize = {420, 260}; // pixels at 96 dpi
constexpr int defaultListWidth = 300, minPaneWidth = 120;
constexpr int margin = 6, fieldEdges = 8;
constexpr double pageFontSize = 11; // points
constexpr int searchId = 100, listId = 101;

HWND CreateSearchField(HWND parent) {
    const HWND field = CreateWindowExW(
        WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | ES_AUTOHSCROLL, 0,
        0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(searchId)),
        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(field, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Search the help"));
    return field;
}

// Without a size: a screen reader takes it as the name of the next control.
void CreateLabel(HWND parent, const wchar_t* name) {
    CreateWindowExW(0, L"STATIC", name, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent, nullptr,
                    GetModuleHandleW(nullptr), nullptr);
}

// The margin around the page.
LRESULT PageBackgroundProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_ERASEBKGND) return DefWindowProcW(window, message, wParam, lParam);
    RECT inner = {};
    GetClientRect(window, &inner);
    return FillRect(reinterpret_cast<HDC>(wParam), &inner, GetSysColorBrush(COLOR_WINDOW));
}

} // namespace

// Not owned: a message box disables the main window, but not this one.
HelpFrame::HelpFrame()
    : listWidth_(defaultListWidth),
      frame_({L"NorvasetHelp", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN},
             [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                 return HandleMessage(window, message, wParam, lParam);
             }) {
    CreateLabel(Handle(), L"Search the help");
    search_ = CreateSearchField(Handle());
    CreateLabel(Handle(), L"Topics");
    list_ = std::make_unique<WinHelpList>(Handle(), listId);
    panel_ = std::make_unique<WinNativeWindow>(
        WinNativeWindow::Params{L"NorvasetHelpPage",
                                WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0,
                                Handle()},
        PageBackgroundProc);
    text_ = std::make_unique<WinTextView>(panel_->Handle());
    text_->SetAutoColor(true);
    text_->SetVisible(true);
    text_->onCopy = [this] { CopySelection(); };
    text_->SetLinkHandler([this](const std::u16string& address) { FollowLink(address); });
    Subclass(search_);
    Subclass(list_->Handle());
    ApplySystemSettings();
    SetDefaultBounds();
}

void HelpFrame::SetDefaultBounds() {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    SetWindowPos(Handle(), nullptr, 0, 0,
                 std::min<int>(Scaled(defaultSize.cx), (work.right - work.left) * 9 / 10),
                 std::min<int>(Scaled(defaultSize.cy), (work.bottom - work.top) * 9 / 10),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    CenterOver(Handle(), GetActiveWindow());
}

void HelpFrame::ShowContents(const HelpContents& contents, int page) {
    contents_ = contents;
    shownPage_ = -1;
    SetWindowTextW(Handle(), ToWide(contents_.windowTitle).c_str());
    SetWindowTextW(search_, L"");
    ShowResultsFor({});
    SelectRow(page);
    lastFocused_ = Search;
}

void HelpFrame::Raise() {
    ShowWindow(Handle(), IsIconic(Handle()) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(Handle());
    Focus(lastFocused_);
}

LRESULT HelpFrame::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!text_) return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
    case WM_SIZE: LayOut(); return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_DRAWITEM: list_->Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)); return TRUE;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE) lastFocused_ = Focused();
        break;
    case WM_SETFOCUS: Focus(lastFocused_); return 0;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE: ApplySystemSettings(); return 0;
    case WM_DPICHANGED: {
        const RECT& place = *reinterpret_cast<const RECT*>(lParam);
        ApplySystemSettings();
        SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(minSize.cx),
                                                                 Scaled(minSize.cy)};
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) != HTCLIENT || !IsOverSplitter()) break;
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
    }
    if (HandleMouse(message, lParam)) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

bool HelpFrame::IsOverSplitter() const {
    POINT mouse = {};
    RECT left = {}, right = {};
    GetCursorPos(&mouse);
    GetWindowRect(search_, &left);
    GetWindowRect(panel_->Handle(), &right);
    return mouse.x >= left.right && mouse.x < right.left && mouse.y >= right.top &&
           mouse.y < right.bottom;
}

// The gap between list and page is a splitter.
bool HelpFrame::HandleMouse(UINT message, LPARAM place) {
    switch (message) {
    case WM_LBUTTONDOWN:
        if (IsOverSplitter()) SetCapture(Handle());
        return true;
    case WM_LBUTTONUP: ReleaseCapture(); return true;
    case WM_MOUSEMOVE:
        if (GetCapture() != Handle()) return true;
        listWidth_ = MulDiv(GET_X_LPARAM(place) - Scaled(margin), 96, dpi_);
        LayOut();
        return true;
    default: return false;
    }
}

void HelpFrame::OnCommand(int control, int notification) {
    if (control == searchId && notification == EN_CHANGE)
        ShowResultsFor(FromWide(WindowText(search_)));
    else if (control == listId && notification == LBN_SELCHANGE)
        ShowRow(list_->SelectedRow());
    else if (control == listId && notification == LBN_DBLCLK)
        Focus(Page);
}

void HelpFrame::ApplySystemSettings() {
    FollowColorScheme(Handle());
    dpi_ = WindowDpi(Handle());
    const LOGFONTW font = NonClientMetricsForDpi(dpi_).lfMessageFont;
    font_.reset(CreateFontIndirectW(&font));
    SendMessageW(search_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
    list_->SetFont(font, dpi_);
    ViewFont pageFont;
    pageFont.name = FromWide(font.lfFaceName);
    pageFont.size = pageFontSize;
    text_->SetFont(pageFont);
    text_->SetBackColor(GetSysColor(COLOR_WINDOW));
    Subclass(text_->Handle());
    LayOut();
}

void HelpFrame::LayOut() {
    RECT inner = {};
    GetClientRect(Handle(), &inner);
    const int gap = Scaled(margin), width = inner.right, height = inner.bottom;
    const int minWidth = Scaled(minPaneWidth);
    const int left = std::clamp(Scaled(listWidth_), minWidth, std::max(minWidth, width - minWidth));
    const int field = MeasureText(search_, font_.get(), L"0").cy + Scaled(fieldEdges);
    const int listTop = field + 2 * gap, page = left + 2 * gap;
    MoveWindow(search_, gap, gap, left, field, TRUE);
    MoveWindow(list_->Handle(), gap, listTop, left, std::max(0, height - listTop - gap), TRUE);
    MoveWindow(panel_->Handle(), page, 0, std::max(0, width - page), height, TRUE);
    InvalidateRect(panel_->Handle(), nullptr, TRUE); // the list may have been drawn there
    list_->FitRows();
    text_->SetBounds({gap, gap, std::max(0, width - page - gap), std::max(0, height - 2 * gap)});
}
