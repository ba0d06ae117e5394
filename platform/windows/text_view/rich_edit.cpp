#include "platform/windows/text_view/rich_edit.h"

#include "platform/windows/base/com_ptr.h"
#include "platform/windows/base/system_library.h"
#include "platform/windows/portable/text_map.h"
#include "platform/windows/text_view/ole_callback.h"

#include <tom.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace {
constexpr WPARAM utf16 = 1200;
// IID_ITextDocument, which not every uuid library has.
constexpr GUID textDocument = {
    0x8CC497C0, 0xA1DF, 0x11CE, {0x80, 0x98, 0x00, 0xAA, 0x00, 0x47, 0xBE, 0x5D}};
constexpr int maxColumnWidth = 22 * 1440; // twips; the widest page of word processors
constexpr int sideMargin = 6;             // pixels between the edge and the text

// The source of EM_STREAMIN. An empty portion is the end.
struct Portions {
    const std::function<std::string_view()>& next;
    std::string_view rest;
    std::exception_ptr failure;

    std::size_t Read(char* buffer, std::size_t wanted) {
        if (rest.empty()) rest = next();
        const std::size_t size = rest.copy(buffer, wanted);
        rest.remove_prefix(size);
        return size;
    }
};

// No exception may pass through the control: it is rethrown after EM_STREAMIN.
DWORD CALLBACK ReadPortion(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    Portions& portions = *reinterpret_cast<Portions*>(cookie);
    try {
        *given = static_cast<LONG>(
            portions.Read(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(wanted)));
        return 0;
    } catch (...) {
        portions.failure = std::current_exception();
        *given = 0;
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

const wchar_t* LoadRichEdit() {
    if (LoadSystemLibrary(L"msftedit.dll")) return L"RICHEDIT50W";
    if (LoadSystemLibrary(L"riched20.dll")) return L"RichEdit20W";
    return nullptr;
}

template <class T>
LPARAM ToLParam(T& value) {
    return reinterpret_cast<LPARAM>(&value);
}
} // namespace

const wchar_t* RichEditClass() {
    static const wchar_t* const name = LoadRichEdit();
    return name;
}

RichEdit::RichEdit(HWND parent) {
    constexpr DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                            ES_READONLY | ES_NOHIDESEL | ES_AUTOVSCROLL | ES_AUTOHSCROLL |
                            ES_NOOLEDRAGDROP | ES_DISABLENOSCROLL;
    const wchar_t* const name = RichEditClass();
    if (!name) return;
    window_ = CreateWindowExW(0, name, L"", style, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    Send(EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
    Send(EM_SETUNDOLIMIT, 0);
    Send(EM_SETEVENTMASK, 0, 0);
    Send(EM_AUTOURLDETECT, 0);
    // Font fallback for missing scripts, but not for Latin text.
    Send(EM_SETLANGOPTIONS, 0, IMF_AUTOFONT);
    AllowPicturesOnly(window_);
}

RichEdit::~RichEdit() {
    if (window_) DestroyWindow(window_);
}

LRESULT RichEdit::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return window_ ? SendMessageW(window_, message, wParam, lParam) : 0;
}

// By the formatting rectangle: not every version supports EM_SETMARGINS.
void RichEdit::SetBounds(const Rect& bounds) {
    SetWindowPos(window_, nullptr, bounds.left, bounds.top, bounds.width, bounds.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    RECT text = {};
    GetClientRect(window_, &text);
    InflateRect(&text, -std::min(sideMargin, static_cast<int>(text.right) / 4), 0);
    Send(EM_SETRECTNP, 0, ToLParam(text));
}

// In portions: a large text is not copied as a whole.
void RichEdit::StreamPlain(std::u16string_view text) {
    constexpr std::size_t pieceUnits = 64 * 1024;
    std::u16string portion;
    Stream(SF_TEXT | SF_UNICODE, [&]() -> std::string_view {
        portion = ToControlText(text.substr(0, pieceUnits));
        text.remove_prefix(portion.size());
        return {reinterpret_cast<const char*>(portion.data()), portion.size() * sizeof(char16_t)};
    });
}

void RichEdit::StreamRtf(std::string_view rtf) {
    Stream(SF_RTF, [&] { return std::exchange(rtf, {}); });
}

void RichEdit::Stream(WPARAM format, const std::function<std::string_view()>& nextPortion) {
    Portions portions{nextPortion, {}, nullptr};
    EDITSTREAM stream = {};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&portions);
    stream.pfnCallback = ReadPortion;
    Send(EM_STREAMIN, format, ToLParam(stream));
    if (portions.failure) std::rethrow_exception(portions.failure);
}

TextPos RichEdit::Length() const {
    GETTEXTLENGTHEX how = {};
    how.flags = GTL_NUMCHARS | GTL_PRECISE;
    how.codepage = utf16;
    return static_cast<TextPos>(
        std::max<LRESULT>(0, Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how))));
}

std::u16string RichEdit::Text() const {
    std::wstring text(static_cast<std::size_t>(Length()) + 1, L'\0'); // the NUL
    TEXTRANGEW range = {};
    range.chrg = {0, static_cast<LONG>(text.size() - 1)};
    range.lpstrText = text.data();
    const auto read = static_cast<std::size_t>(Send(EM_GETTEXTRANGE, 0, ToLParam(range)));
    return std::u16string(text.begin(), text.begin() + std::min(read, text.size() - 1));
}

CHARRANGE RichEdit::Selection() const {
    CHARRANGE range = {};
    Send(EM_EXGETSEL, 0, ToLParam(range));
    return range;
}

void RichEdit::Select(CHARRANGE range) {
    Send(EM_EXSETSEL, 0, ToLParam(range));
}

LONG RichEdit::LineFromChar(TextPos position) const {
    return static_cast<LONG>(Send(EM_EXLINEFROMCHAR, 0, position));
}

TextPos RichEdit::LineStart(LONG line) const {
    return static_cast<TextPos>(Send(EM_LINEINDEX, static_cast<WPARAM>(line)));
}

TextPos RichEdit::NextLineStart(LONG line, TextPos start) const {
    const TextPos next = LineStart(line + 1);
    return next > start ? next : Length();
}

LONG RichEdit::FirstVisibleLine() const {
    return static_cast<LONG>(Send(EM_GETFIRSTVISIBLELINE));
}

void RichEdit::ScrollLines(LONG lines) {
    Send(EM_LINESCROLL, 0, lines);
}

POINT RichEdit::ScrollPoint() const {
    POINT point = {};
    Send(EM_GETSCROLLPOS, 0, ToLParam(point));
    return point;
}

void RichEdit::ScrollToPoint(POINT point) {
    Send(EM_SETSCROLLPOS, 0, ToLParam(point));
}

void RichEdit::ScrollIntoView(TextPos position) {
    ComPtr<IUnknown> ole;
    if (!Send(EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(ole.GetAddressOf())) || !ole) return;
    ComPtr<ITextDocument> document;
    ComPtr<ITextRange> range;
    if (FAILED(ole->QueryInterface(textDocument, &document))) return;
    if (FAILED(document->Range(position, position, &range)) || !range) return;
    range->ScrollIntoView(tomStart);
}

POINT RichEdit::PosFromChar(TextPos position) const {
    POINTL point = {};
    Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), position);
    return {point.x, point.y};
}

LONG RichEdit::ClientWidth() const {
    RECT client = {};
    GetClientRect(window_, &client);
    return client.right;
}

void RichEdit::SetDefaultFormat(const CHARFORMAT2W& format) {
    CHARFORMAT2W copy = format;
    Send(EM_SETCHARFORMAT, SCF_DEFAULT, ToLParam(copy));
}

void RichEdit::FormatSelectedParagraphs(const PARAFORMAT2& format) {
    PARAFORMAT2 copy = format;
    Send(EM_SETPARAFORMAT, 0, ToLParam(copy));
}

void RichEdit::SetBackColor(Color color) {
    Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(color));
}

void RichEdit::SetRightMargin(int twips) {
    Send(EM_SHOWSCROLLBAR, SB_HORZ, twips > 0);
    if (twips <= 0 || twips > maxColumnWidth) {
        Send(EM_SETTARGETDEVICE, 0, twips > 0 ? 1 : 0); // 1: no line wrap
        return;
    }
    // The control takes ownership of the device context.
    const HDC screen = CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr);
    if (!Send(EM_SETTARGETDEVICE, reinterpret_cast<WPARAM>(screen), twips)) DeleteDC(screen);
}

RedrawPause::RedrawPause(RichEdit& control)
    : control_(control), visible_(IsWindowVisible(control.Handle())) {
    // Only when visible: WM_SETREDRAW TRUE would show a hidden window.
    if (visible_) SendMessageW(control_.Handle(), WM_SETREDRAW, FALSE, 0);
}

RedrawPause::~RedrawPause() {
    if (!visible_) return;
    SendMessageW(control_.Handle(), WM_SETREDRAW, TRUE, 0);
    RedrawWindow(control_.Handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}
