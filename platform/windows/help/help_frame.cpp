#include "platform/windows/help/help_frame.h"

#include "platform/windows/base/text.h"
#include "platform/windows/window/center.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

namespace {

constexpr SIZE usualSize = {940, 680}, minSize = {420, 260}; // pixels at 96 dpi
constexpr int usualLeftWidth = 300, minHalf = 120;
constexpr int margin = 6, fieldEdges = 8;
constexpr double readingSize = 11; // points
constexpr int searchId = 100, listId = 101;

HWND MakeSearchField(HWND parent) {
    const HWND field = CreateWindowExW(
        WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | ES_AUTOHSCROLL, 0,
        0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(searchId)),
        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(field, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Search the help"));
    return field;
}

// Without a size: what a screen reader calls the control that comes next.
void MakeName(HWND parent, const wchar_t* name) {
    CreateWindowExW(0, L"STATIC", name, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent, nullptr,
                    GetModuleHandleW(nullptr), nullptr);
}

// Paper around the page.
LRESULT AnswerAsPaper(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_ERASEBKGND) return DefWindowProcW(window, message, wParam, lParam);
    RECT inner = {};
    GetClientRect(window, &inner);
    return FillRect(reinterpret_cast<HDC>(wParam), &inner, GetSysColorBrush(COLOR_WINDOW));
}

std::u16string TextOf(HWND field) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

} // namespace

// Nobody owns it: what disables the main window, a message box say, leaves it usable.
HelpFrame::HelpFrame()
    : leftWidth_(usualLeftWidth),
      frame_({L"NorvasetHelp", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN},
             [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                 return Answer(window, message, wParam, lParam);
             }) {
    MakeName(Handle(), L"Search the help");
    search_ = MakeSearchField(Handle());
    MakeName(Handle(), L"Topics");
    list_ = std::make_unique<WinHelpList>(Handle(), listId);
    panel_ = std::make_unique<WinNativeWindow>(
        WinNativeWindow::Kind{L"NorvasetHelpPage",
                              WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0,
                              Handle()},
        AnswerAsPaper);
    text_ = std::make_unique<WinTextView>(panel_->Handle());
    text_->SetAutoColor(true);
    text_->SetVisible(true);
    text_->onCopy = [this] { CopySelection(); };
    ListenTo(search_);
    ListenTo(list_->Handle());
    TakeSystemLook();
    Place();
}

void HelpFrame::Place() {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    SetWindowPos(Handle(), nullptr, 0, 0,
                 std::min<int>(Scaled(usualSize.cx), (work.right - work.left) * 9 / 10),
                 std::min<int>(Scaled(usualSize.cy), (work.bottom - work.top) * 9 / 10),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    CenterOver(Handle(), GetActiveWindow());
}

void HelpFrame::ShowContents(const HelpContents& contents, int page) {
    contents_ = contents;
    shownPage_ = -1;
    SetWindowTextW(Handle(), ToWide(contents_.windowTitle).c_str());
    SetWindowTextW(search_, L"");
    ShowTypedFor({});
    ChooseRow(page);
    lastFocused_ = Search;
}

void HelpFrame::Raise() {
    ShowWindow(Handle(), IsIconic(Handle()) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(Handle());
    Focus(lastFocused_);
}

LRESULT HelpFrame::Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
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
    case WM_SETTINGCHANGE: TakeSystemLook(); return 0;
    case WM_DPICHANGED: {
        const RECT& place = *reinterpret_cast<const RECT*>(lParam);
        TakeSystemLook();
        SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(minSize.cx),
                                                                 Scaled(minSize.cy)};
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) != HTCLIENT || !IsOverGap()) break;
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
    }
    if (TakeMouse(message, lParam)) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

bool HelpFrame::IsOverGap() const {
    POINT mouse = {};
    RECT left = {}, right = {};
    GetCursorPos(&mouse);
    GetWindowRect(search_, &left);
    GetWindowRect(panel_->Handle(), &right);
    return mouse.x >= left.right && mouse.x < right.left && mouse.y >= right.top &&
           mouse.y < right.bottom;
}

// The gap between the halves can be moved.
bool HelpFrame::TakeMouse(UINT message, LPARAM place) {
    switch (message) {
    case WM_LBUTTONDOWN:
        if (IsOverGap()) SetCapture(Handle());
        return true;
    case WM_LBUTTONUP: ReleaseCapture(); return true;
    case WM_MOUSEMOVE:
        if (GetCapture() != Handle()) return true;
        leftWidth_ = MulDiv(GET_X_LPARAM(place) - Scaled(margin), 96, dpi_);
        LayOut();
        return true;
    default: return false;
    }
}

void HelpFrame::OnCommand(int control, int notification) {
    if (control == searchId && notification == EN_CHANGE)
        ShowTypedFor(TextOf(search_));
    else if (control == listId && notification == LBN_SELCHANGE)
        ShowRow(list_->ChosenRow());
    else if (control == listId && notification == LBN_DBLCLK)
        Focus(Page);
}

void HelpFrame::TakeSystemLook() {
    dpi_ = DpiOf(Handle());
    const LOGFONTW font = MetricsAt(dpi_).lfMessageFont;
    font_.reset(CreateFontIndirectW(&font));
    SendMessageW(search_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
    list_->SetFont(font, dpi_);
    ViewFont pageFont;
    pageFont.name = FromWide(font.lfFaceName);
    pageFont.size = readingSize;
    text_->SetFont(pageFont);
    text_->SetBackColor(GetSysColor(COLOR_WINDOW));
    ListenTo(text_->Handle());
    LayOut();
}

// The page reaches to the window's edges.
void HelpFrame::LayOut() {
    RECT inner = {};
    GetClientRect(Handle(), &inner);
    const int gap = Scaled(margin), width = inner.right, height = inner.bottom;
    const int least = Scaled(minHalf);
    const int left = std::clamp(Scaled(leftWidth_), least, std::max(least, width - least));
    const int field = TextExtent(search_, font_.get(), L"0").cy + Scaled(fieldEdges);
    const int listTop = field + 2 * gap, page = left + 2 * gap;
    MoveWindow(search_, gap, gap, left, field, TRUE);
    MoveWindow(list_->Handle(), gap, listTop, left, std::max(0, height - listTop - gap), TRUE);
    MoveWindow(panel_->Handle(), page, 0, std::max(0, width - page), height, TRUE);
    InvalidateRect(panel_->Handle(), nullptr, TRUE); // where the list was on the way, too
    list_->FitRows();
    text_->SetBounds({gap, gap, std::max(0, width - page - gap), std::max(0, height - 2 * gap)});
}
