// What is special to the text view on the system's control: places, look and loading.
#include "platform/windows/text_view/win_text_view.h"
#include "tests/contract/windows_text_view_bench.h"

#include <doctest/doctest.h>

#include <commctrl.h>

namespace {
CHARFORMAT2W FormatAt(WinTextView& view, TextPos position) {
    view.Select(position, 1);
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    SendMessageW(view.Handle(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
}

int AlignmentAt(WinTextView& view, TextPos position) {
    view.Select(position, 0);
    PARAFORMAT2 format = {};
    format.cbSize = sizeof format;
    SendMessageW(view.Handle(), EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
    return format.wAlignment;
}

// What the control selects for a stretch of the book's text.
std::u16string SelectedByControl(WinTextView& view, TextPos start, TextPos length) {
    view.Select(start, length);
    wchar_t text[64] = {};
    SendMessageW(view.Handle(), EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(text));
    return {text, text + wcslen(text)};
}

constexpr char colored[] = "{\\rtf1\\ansi{\\fonttbl{\\f0 Times New Roman;}}"
                           "{\\colortbl;\\red255\\green0\\blue0;}"
                           "\\f0\\fs30 {\\cf1 red} plain\\par\\qc centered\\par}";
} // namespace

TEST_CASE("windows text view: characters that mean something to the control keep their places") {
    WinTextView view(HiddenWindow());
    const std::u16string text =
        std::u16string(u"a\nb\vc\fd\u2028e\u2029f\ag\uFFF9h\uFFFCi\u0085j\uFDD0k") + u'\0' + u"end";
    view.LoadPlainText(text);
    CHECK(view.TextRange(0, 100) == text);
    for (TextPos at = 0; at < TextPos(text.size()); ++at) {
        CAPTURE(at);
        view.Select(at, 1);
        CHECK(view.SelStart() == at);
        CHECK(view.SelLength() == 1);
        const bool letter = text[at] >= u'a' && text[at] <= u'z';
        if (letter) CHECK(SelectedByControl(view, at, 1) == text.substr(at, 1));
    }
}

namespace {
constexpr UINT_PTR coarseId = 100;

// Makes the control tell and take scroll positions as the system's does for a text that is more
// than 65535 pixels high: in steps of many.
LRESULT CALLBACK CoarseScrolling(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR) {
    constexpr LONG step = 97; // pixels, no multiple of a line
    POINT* const point = reinterpret_cast<POINT*>(lParam);
    POINT exact = {};
    if (message == EM_SETSCROLLPOS) {
        exact = {point->x, point->y * step};
        return DefSubclassProc(window, message, wParam, reinterpret_cast<LPARAM>(&exact));
    }
    const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);
    if (message == EM_GETSCROLLPOS) point->y /= step;
    return answer;
}

// Of a place of plain text, in pixels below the view's upper edge.
LONG HeightOf(const WinTextView& view, TextPos position) {
    POINTL point = {};
    SendMessageW(view.Handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), position);
    return point.y;
}
} // namespace

namespace {
void LoadThousandLines(WinTextView& view) {
    view.SetBounds({0, 0, 400, 300});
    std::u16string text;
    for (int i = 0; i < 1000; ++i)
        text += u"a line\n"; // 7 units
    view.LoadPlainText(text);
}

// Part of a line down, as by the mouse.
void ScrollALittle(WinTextView& view) {
    POINT point = {};
    SendMessageW(view.Handle(), EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&point));
    point.y += 7;
    SendMessageW(view.Handle(), EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&point));
}
} // namespace

TEST_CASE("windows text view: a line comes exactly to the top of a text of any height") {
    WinTextView view(HiddenWindow());
    LoadThousandLines(view);
    view.ScrollLineToTop(500 * 7);
    const auto first = [&] { return SendMessageW(view.Handle(), EM_GETFIRSTVISIBLELINE, 0, 0); };
    for (int i = 0; i < 5; ++i) {
        ScrollALittle(view);
        SetWindowSubclass(view.Handle(), CoarseScrolling, coarseId, 0);
        const TextPos top = view.FirstVisibleChar();
        CAPTURE(top);
        view.Select(3, 2); // out of sight
        CHECK(view.FirstVisibleChar() == top);
        view.ScrollLineToTop(top);
        CHECK(first() == top / 7);
        CHECK(view.FirstVisibleChar() == top);
        RemoveWindowSubclass(view.Handle(), CoarseScrolling, coarseId);
    }
}

TEST_CASE("windows text view: a line that the edge cuts comes whole to the top of a high text") {
    WinTextView view(HiddenWindow());
    LoadThousandLines(view);
    for (const TextPos line : {300, 500, 700}) {
        view.ScrollLineToTop(line * 7);
        ScrollALittle(view);
        CHECK(HeightOf(view, line * 7) < 0);
        SetWindowSubclass(view.Handle(), CoarseScrolling, coarseId, 0);
        view.ScrollLineToTop(line * 7);
        CHECK(HeightOf(view, line * 7) == 0);
        RemoveWindowSubclass(view.Handle(), CoarseScrolling, coarseId);
    }
}

TEST_CASE("windows text view: a line comes to the top where lines have many heights") {
    std::string rtf = "{\\rtf1\\ansi ";
    for (int i = 0; i < 300; ++i)
        rtf +=
            "{\\fs" + std::to_string(i % 10 == 0 ? 200 : 10 + i % 7) + " line}\\par\n"; // 5 units
    WinTextView view(HiddenWindow());
    view.SetBounds({0, 0, 400, 300});
    view.LoadRichText(rtf + "}", 1252);
    for (const TextPos line : {200, 57, 58, 250, 3}) {
        CAPTURE(line);
        view.ScrollLineToTop(line * 5);
        CHECK(HeightOf(view, line * 5) == 0);
        CHECK(view.FirstVisibleChar() == line * 5);
    }
}

TEST_CASE("windows text view: places of rich text are those of its reader") {
    WinTextView view(HiddenWindow());
    view.SetBounds({0, 0, 800, 300});
    view.LoadRichText("{\\rtf1\\ansi Before\\par\\trowd\\cellx2000\\cellx4000 first\\intbl\\cell "
                      "second\\cell\\row\\pard after, {\\v hidden}seen{\\pict\\pngblip 89}, "
                      "{\\field{\\*\\fldinst HYPERLINK \"x:y\"}{\\fldrslt linked}}\\line "
                      "so\\-ft, {\\footnote note}last}",
                      1252);
    const std::u16string text = view.TextRange(0, view.TextLength());
    for (const char16_t* word :
         {u"Before", u"first", u"second", u"after", u"seen", u"linked", u"so", u"ft", u"last"}) {
        const auto at = static_cast<TextPos>(text.find(word));
        const std::u16string_view expected = word;
        CAPTURE(at);
        REQUIRE(at >= 0);
        const auto length = static_cast<TextPos>(expected.size());
        CHECK(SelectedByControl(view, at, length) == expected);
        CHECK(view.SelStart() == at);
        CHECK(view.SelLength() == length);
        const LineSpan line = view.LineAround(at);
        CHECK(line.start <= at);
        CHECK(line.start + line.length >= at + length);
    }
    CHECK(text.find(u"hidden") == text.npos);
}

TEST_CASE("windows text view: the file's colours, or one for all") {
    WinTextView view(HiddenWindow());
    view.SetAutoColor(true);
    view.LoadRichText(colored, 1252);
    CHECK(FormatAt(view, 0).crTextColor == 0x0000FF);
    CHECK((FormatAt(view, 5).dwEffects & CFE_AUTOCOLOR) != 0);
    view.SetTextColor(0x00AA00);
    CHECK(FormatAt(view, 0).crTextColor == 0x0000FF);
    view.SetAutoColor(false);
    CHECK(FormatAt(view, 0).crTextColor == 0x00AA00);
    CHECK(FormatAt(view, 5).crTextColor == 0x00AA00);
    view.SetTextColor(0xBB0000);
    CHECK(FormatAt(view, 5).crTextColor == 0xBB0000);
    view.LoadRichText(colored, 1252);
    CHECK(FormatAt(view, 0).crTextColor == 0xBB0000);
    view.SetAutoColor(true);
    CHECK(FormatAt(view, 0).crTextColor == 0x0000FF);
}

TEST_CASE("windows text view: automatic text can be read on a dark background") {
    WinTextView view(HiddenWindow());
    view.SetAutoColor(true);
    view.LoadPlainText(u"text");
    CHECK((FormatAt(view, 0).dwEffects & CFE_AUTOCOLOR) != 0);
    view.SetBackColor(0x202020);
    CHECK((FormatAt(view, 0).dwEffects & CFE_AUTOCOLOR) == 0);
    CHECK(FormatAt(view, 0).crTextColor == 0xFFFFFF);
}

TEST_CASE("windows text view: the font for all holds over the file's until the next load") {
    WinTextView view(HiddenWindow());
    const ViewFont font{u"Arial", 17.5, 204, true, true, true, true};
    view.SetFont(font);
    view.LoadRichText(colored, 1252);
    CHECK(FormatAt(view, 0).yHeight == 300);
    CHECK(std::wstring(FormatAt(view, 0).szFaceName) == L"Times New Roman");
    view.ApplyFontToAll();
    const CHARFORMAT2W format = FormatAt(view, 0);
    CHECK(std::wstring(format.szFaceName) == L"Arial");
    CHECK(format.yHeight == 350);
    CHECK(format.bCharSet == 204);
    constexpr DWORD styles = CFE_BOLD | CFE_ITALIC | CFE_UNDERLINE | CFE_STRIKEOUT;
    CHECK((format.dwEffects & styles) == styles);
    view.LoadRichText(colored, 1252);
    CHECK(FormatAt(view, 0).yHeight == 300);
    view.LoadPlainText(u"plain");
    CHECK(FormatAt(view, 0).yHeight == 350);
    view.SetFont({u"Courier New", 9});
    CHECK(FormatAt(view, 0).yHeight == 180);
    CHECK(std::wstring(FormatAt(view, 0).szFaceName) == L"Courier New");
}

TEST_CASE("windows text view: the alignment set holds until the next load") {
    WinTextView view(HiddenWindow());
    view.LoadRichText(colored, 1252);
    CHECK(AlignmentAt(view, 0) == PFA_LEFT);
    CHECK(AlignmentAt(view, 12) == PFA_CENTER);
    view.SetAlignment(Alignment::Right);
    CHECK(AlignmentAt(view, 0) == PFA_RIGHT);
    CHECK(AlignmentAt(view, 12) == PFA_RIGHT);
    view.LoadPlainText(u"one\ntwo");
    CHECK(AlignmentAt(view, 5) == PFA_LEFT);
    view.SetAlignment(Alignment::Center); // in the text shown
    CHECK(AlignmentAt(view, 0) == PFA_CENTER);
    CHECK(AlignmentAt(view, 5) == PFA_CENTER);
}

TEST_CASE("windows text view: a look set between loading and showing is that of the text") {
    WinTextView view(HiddenWindow());
    for (const bool plain : {true, false}) {
        CAPTURE(plain);
        if (plain)
            view.LoadPlainText(u"one\ntwo and more\nthree");
        else
            view.LoadRichText(colored, 1252);
        view.SetFont({u"Courier New", 21, 0, true});
        view.ApplyFontToAll();
        view.SetTextColor(plain ? 0x112233 : 0x445566);
        view.SetAlignment(Alignment::Right);
        const CHARFORMAT2W format = FormatAt(view, 12);
        CHECK(std::wstring(format.szFaceName) == L"Courier New");
        CHECK(format.yHeight == 420);
        CHECK(format.crTextColor == view.TextColor());
        CHECK(AlignmentAt(view, 0) == PFA_RIGHT);
        CHECK(AlignmentAt(view, 12) == PFA_RIGHT);
    }
}

TEST_CASE("windows text view: what the reader scrolls counts, not what was asked for") {
    WinTextView view(HiddenWindow());
    view.SetBounds({0, 0, 400, 300});
    std::u16string text;
    for (int i = 0; i < 200; ++i)
        text += u"line\n";
    view.LoadPlainText(text);
    view.ScrollLineToTop(500);
    SendMessageW(view.Handle(), EM_SCROLL, SB_LINEDOWN, 0);
    CHECK(view.FirstVisibleChar() == 505);
    view.SetBounds({0, 0, 300, 200});
    CHECK(view.FirstVisibleChar() == 505);
    view.ScrollLineToTop(view.TextLength());
    CHECK(SendMessageW(view.Handle(), EM_GETFIRSTVISIBLELINE, 0, 0) == 200);
    view.LoadPlainText(u"");
    CHECK(view.FirstVisibleChar() == 0);
}

TEST_CASE("windows text view: a new text keeps the keyboard and the place of the view") {
    const HWND window = HiddenWindow();
    WinTextView view(window);
    view.SetBounds({10, 20, 300, 200});
    view.SetVisible(true);
    view.FocusView();
    const bool hadFocus = GetFocus() == view.Handle();
    view.LoadPlainText(u"text");
    const HWND shown = view.Handle();
    CHECK((GetFocus() == shown) == hadFocus);
    CHECK((GetWindowLongW(view.Handle(), GWL_STYLE) & WS_VISIBLE) != 0);
    RECT place = {};
    GetWindowRect(view.Handle(), &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    CHECK(place.left == 10);
    CHECK(place.bottom == 220);
}

TEST_CASE("windows text view: a text shows when the message loop runs, though nobody asks for it") {
    const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200,
                                        nullptr, nullptr, nullptr, nullptr);
    {
        WinTextView view(parent);
        view.LoadPlainText(u"seen");
        MSG message = {};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        wchar_t text[16] = {};
        GetWindowTextW(GetWindow(parent, GW_CHILD), text, 16);
        CHECK(std::wstring(text) == L"seen");
        CHECK(GetWindow(GetWindow(parent, GW_CHILD), GW_HWNDNEXT) == nullptr);
    }
    CHECK(GetWindow(parent, GW_CHILD) == nullptr);
    DestroyWindow(parent);
}
