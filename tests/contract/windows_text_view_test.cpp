// The text view's window: keys, mouse, wheel, scroll bars, drops and painting by the system's
// messages.
#include "platform/windows/system/win_clipboard.h"
#include "platform/windows/text_pane/win_text_view.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_window.h"
#include "tests/contract/windows_drop.h"
#include "tests/contract/windows_message_pump.h"
#include "tests/contract/windows_text_view_bench.h"

#include <doctest/doctest.h>

#include <ole2.h>

namespace {
// Shown, as nothing else is painted; above the others on the screen.
class ShownWindow {
  public:
    ShownWindow()
        : window_(CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP, 0, 0,
                                  600, 400, nullptr, nullptr, nullptr, nullptr)) {
        ShowWindow(window_, SW_SHOWNA);
    }
    ~ShownWindow() { DestroyWindow(window_); }
    ShownWindow(const ShownWindow&) = delete;
    ShownWindow& operator=(const ShownWindow&) = delete;
    HWND Handle() const { return window_; }

  private:
    HWND window_;
};

struct OleForTest {
    OleForTest() { OleInitialize(nullptr); }
    ~OleForTest() { OleUninitialize(); }
    OleForTest(const OleForTest&) = delete;
    OleForTest& operator=(const OleForTest&) = delete;
};

struct Bench {
    ShownWindow window;
    WinTextView view{window.Handle()};

    explicit Bench(int width = 400, int height = 300) {
        view.SetBounds({0, 0, width, height});
        view.SetVisible(true);
        std::u16string text;
        for (int i = 0; i < 200; ++i)
            text += u"some line\n";
        view.LoadPlainText(text);
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(view.Handle(), message, wParam, lParam);
    }
    void Press(int key) {
        Send(WM_KEYDOWN, static_cast<WPARAM>(key));
        Send(WM_KEYUP, static_cast<WPARAM>(key));
    }
    LPARAM PlaceOf(TextPos position) {
        const Rect box = view.Pane().CharacterRect(position);
        return MAKELPARAM(box.left + 1, box.top + box.height / 2);
    }
    void Click(TextPos position, WPARAM keys = 0) {
        Send(WM_LBUTTONDOWN, MK_LBUTTON | keys, PlaceOf(position));
        Send(WM_LBUTTONUP, keys, PlaceOf(position));
    }
    std::u16string Selected() { return view.TextRange(view.SelStart(), view.SelLength()); }
};

// What a window paints, as its pixels.
class Painted {
  public:
    explicit Painted(HWND window) : context_(CreateCompatibleDC(nullptr)) {
        RECT inside = {};
        GetClientRect(window, &inside);
        width = inside.right;
        height = inside.bottom;
        const HDC screen = GetDC(window);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        before_ = SelectObject(context_, bitmap_);
        UpdateWindow(window);
        BitBlt(context_, 0, 0, width, height, screen, 0, 0, SRCCOPY);
        ReleaseDC(window, screen);
    }
    ~Painted() {
        SelectObject(context_, before_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    Painted(const Painted&) = delete;
    Painted& operator=(const Painted&) = delete;

    int Count(const Rect& box, Color color) const {
        int count = 0;
        for (int y = box.top; y < box.top + box.height; ++y)
            for (int x = box.left; x < box.left + box.width; ++x)
                count += GetPixel(context_, x, y) == color;
        return count;
    }
    int width = 0, height = 0;

  private:
    HDC context_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};
} // namespace

TEST_CASE("windows text view: typing, pasting and cutting change nothing") {
    Bench bench;
    const std::u16string before = bench.view.TextRange(0, bench.view.TextLength());
    bench.view.Select(3, 5);
    for (const int key : {int('X'), int(VK_DELETE), int(VK_BACK), int(VK_RETURN), int(VK_TAB)})
        bench.Press(key);
    for (const wchar_t unit : L"x\b\r\t\x16\x18")
        bench.Send(WM_CHAR, unit);
    for (const UINT message : {UINT(WM_PASTE), UINT(WM_CUT), UINT(WM_CLEAR), UINT(WM_UNDO)})
        bench.Send(message);
    CHECK(bench.view.TextRange(0, bench.view.TextLength()) == before);
    CHECK(bench.view.SelStart() == 3);
    CHECK(bench.view.SelLength() == 5);
}

TEST_CASE("windows text view: another program's copy is asked of the form, keys copy nothing") {
    Bench bench;
    int asked = 0;
    bench.view.onCopy = [&asked] { ++asked; };
    WinClipboard().SetText(u"before");
    bench.view.Select(3, 5);
    {
        const HeldKey control(VK_CONTROL);
        for (const int key : {int('C'), int(VK_INSERT), int('X')})
            bench.Press(key);
    }
    CHECK(asked == 0); // keys of commands are the form's
    bench.Send(WM_COPY);
    CHECK(asked == 1);
    CHECK(IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST_CASE("windows text view: keys move the caret and select") {
    Bench bench;
    WinTextView& view = bench.view;
    bench.Press(VK_RIGHT);
    CHECK(view.SelStart() == 1);
    bench.Press(VK_DOWN);
    CHECK(view.SelStart() == 11);
    bench.Press(VK_END);
    CHECK(view.SelStart() == 19);
    {
        const HeldKey shift(VK_SHIFT);
        bench.Press(VK_LEFT);
        CHECK(bench.Selected() == u"e");
    }
    const HeldKey control(VK_CONTROL);
    bench.Press(VK_END);
    CHECK(view.SelStart() == view.TextLength());
    bench.Press(VK_RIGHT);
    CHECK(view.SelStart() == view.TextLength());
    bench.Press(VK_HOME);
    CHECK(view.SelStart() == 0);
    bench.Press(VK_RIGHT);
    CHECK(view.SelStart() == 5); // the next word
    bench.Press('A');
    CHECK(view.SelLength() == view.TextLength());
}

TEST_CASE("windows text view: Space scrolls a page and leaves the caret") {
    Bench bench;
    bench.Press(VK_SPACE);
    CHECK(bench.view.FirstVisibleChar() > 50);
    CHECK(bench.view.SelStart() == 0);
    const HeldKey shift(VK_SHIFT);
    bench.Press(VK_SPACE);
    CHECK(bench.view.FirstVisibleChar() == 0);
}

TEST_CASE("windows text view: one click places the caret, two select a word, three a paragraph") {
    Bench bench;
    bench.Click(27);
    CHECK(bench.view.SelStart() == 27);
    CHECK(bench.view.SelLength() == 0);
    bench.Click(27);
    CHECK(bench.Selected() == u"line");
    bench.Click(27);
    CHECK(bench.Selected() == u"some line\n");
    bench.Click(2);
    bench.Click(12, MK_SHIFT);
    CHECK(bench.view.SelStart() == 2);
    CHECK(bench.view.SelLength() == 10);
}

TEST_CASE("windows text view: a drag selects, and ends when the button is let go") {
    Bench bench;
    bench.Send(WM_LBUTTONDOWN, MK_LBUTTON, bench.PlaceOf(2));
    CHECK(GetCapture() == bench.view.Handle());
    bench.Send(WM_MOUSEMOVE, MK_LBUTTON, bench.PlaceOf(15));
    CHECK(bench.view.SelLength() == 13);
    bench.Send(WM_LBUTTONUP, 0, bench.PlaceOf(15));
    CHECK(GetCapture() == nullptr);
    bench.Send(WM_MOUSEMOVE, 0, bench.PlaceOf(30));
    CHECK(bench.view.SelLength() == 13);
}

TEST_CASE("windows text view: the wheel goes by the lines that the user has set, a part by part") {
    Bench bench;
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    bench.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120));
    CHECK(bench.view.FirstVisibleChar() == TextPos(10 * lines));
    for (int i = 0; i < 4; ++i)
        bench.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, 30));
    CHECK(bench.view.FirstVisibleChar() == 0);
    for (const int turn : {120, -240, 60, 60, -120})
        bench.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, turn));
    CHECK(bench.view.FirstVisibleChar() == 0); // with Ctrl it is the window's
}

TEST_CASE("windows text view: the vertical scroll bar tells the place and takes one") {
    Bench bench;
    bench.Send(WM_VSCROLL, SB_LINEDOWN);
    CHECK(bench.view.FirstVisibleChar() == 10);
    bench.Send(WM_VSCROLL, SB_PAGEDOWN);
    const TextPos page = bench.view.FirstVisibleChar();
    CHECK(page > 60);
    const Painted painted(bench.view.Handle());
    CHECK(GetScrollPos(bench.view.Handle(), SB_VERT) == page);
    bench.Send(WM_VSCROLL, SB_BOTTOM);
    CHECK(bench.view.LineAround(bench.view.FirstVisibleChar()).start > 1700);
    bench.Send(WM_VSCROLL, SB_TOP);
    CHECK(bench.view.FirstVisibleChar() == 0);
}

TEST_CASE("windows text view: a horizontal scroll bar is there for lines wider than the window") {
    Bench bench;
    const auto hasBar = [&] {
        return (GetWindowLongW(bench.view.Handle(), GWL_STYLE) & WS_HSCROLL) != 0;
    };
    CHECK_FALSE(hasBar());
    bench.view.SetRightMargin(491520);
    bench.view.LoadPlainText(std::u16string(500, u'x'));
    const Painted painted(bench.view.Handle());
    CHECK(hasBar());
    bench.Send(WM_HSCROLL, SB_PAGERIGHT);
    const Painted scrolled(bench.view.Handle());
    CHECK(GetScrollPos(bench.view.Handle(), SB_HORZ) > 300);
    bench.view.SetRightMargin(0);
    const Painted again(bench.view.Handle());
    CHECK_FALSE(hasBar());
}

TEST_CASE("windows text view: a context menu is asked for by mouse and keyboard") {
    Bench bench;
    int asked = 0;
    bench.view.onContextMenu = [&] { ++asked; };
    POINT corner = {10, 20};
    ClientToScreen(bench.view.Handle(), &corner);
    bench.Send(WM_CONTEXTMENU, 0, MAKELPARAM(corner.x, corner.y));
    CHECK(asked == 1);
    CHECK(bench.view.ContextMenuPoint().x == corner.x);
    CHECK(bench.view.ContextMenuPoint().y == corner.y);
    bench.Send(WM_CONTEXTMENU, 0, -1); // the key for it
    CHECK(asked == 2);
    RECT inside = {};
    GetWindowRect(bench.view.Handle(), &inside);
    CHECK(PtInRect(&inside, bench.view.ContextMenuPoint()));
    const HeldKey shift(VK_SHIFT);
    bench.Press(VK_F10);
    CHECK(asked == 3);
}

TEST_CASE("windows text view: dropped files are reported in their order") {
    Bench bench;
    std::vector<std::u16string> dropped;
    bench.view.onFilesDropped = [&](const std::vector<std::u16string>& paths) { dropped = paths; };
    using namespace std::string_literals;
    const std::wstring paths = L"C:\\b.txt\0C:\\\u0416 \xD834\xDD1E.rtf\0"s;
    bench.Send(WM_DROPFILES, DropOf(paths));
    CHECK(dropped.empty()); // the program that the files come from does not wait
    CHECK(Becomes([&] { return !dropped.empty(); }));
    CHECK(dropped == std::vector<std::u16string>{u"C:\\b.txt", u"C:\\\u0416 \U0001D11E.rtf"});
}

TEST_CASE("windows text view: the hourglass is over the text while it is asked for") {
    Bench bench;
    const auto shown = [&] {
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        bench.Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(bench.view.Handle()),
                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    bench.view.SetCursorShape(CursorShape::Wait);
    CHECK(shown() == LoadCursorW(nullptr, IDC_WAIT));
    bench.view.LoadPlainText(u"another text");
    CHECK(shown() == LoadCursorW(nullptr, IDC_WAIT));
    bench.view.SetCursorShape(CursorShape::Default);
    CHECK(shown() == LoadCursorW(nullptr, IDC_IBEAM));
}

TEST_CASE("windows text view: what is selected is painted in the selection's colours") {
    Bench bench;
    bench.view.SetBackColor(0xFFFFFF);
    bench.view.SetTextColor(0x0000FF);
    bench.view.Select(0, 4);
    const Rect word = bench.view.Pane().CharacterRect(1),
               other = bench.view.Pane().CharacterRect(6);
    const Painted painted(bench.view.Handle());
    CHECK(painted.Count(word, GetSysColor(COLOR_HIGHLIGHT)) > word.width * word.height / 3);
    CHECK(painted.Count(word, 0xFFFFFF) < word.width * word.height / 2);
    CHECK(painted.Count(other, 0xFFFFFF) > other.width * other.height / 3);
    CHECK(painted.Count({0, 0, painted.width, painted.height}, 0x0000FF) > 100);
}

namespace {
// A window that ends asks the program to end, which would end the loops of other tests.
struct QuitRemover {
    ~QuitRemover() {
        MSG quit;
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }
};
} // namespace

TEST_CASE(
    "windows text view: the selection follows the system's colours, of which windows alone hear") {
    const QuitRemover remover;
    WinWindow window;
    WinTextView view(window.ViewArea());
    window.SetPanelBounds({0, 0, 400, 300});
    view.SetBounds({0, 0, 400, 300});
    view.SetVisible(true);
    window.Open();
    view.LoadPlainText(u"lanterns");
    view.Select(0, 8);
    const Rect word = view.Pane().CharacterRect(1);
    const int element = COLOR_HIGHLIGHT;
    const COLORREF before = GetSysColor(element), other = RGB(40, 160, 20);
    for (const UINT message : {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE}) {
        SetSysColors(1, &element, &other);
        SendMessageW(window.Handle(), message, 0, 0);
        CHECK(Painted(view.Handle()).Count(word, other) > word.width * word.height / 3);
        SetSysColors(1, &element, &before);
        SendMessageW(window.Handle(), message, 0, 0);
        CHECK(Painted(view.Handle()).Count(word, other) == 0);
    }
}

TEST_CASE("windows text view: a picture is decoded and scaled to its place") {
    const OleForTest ole; // as main.cpp does
    Bench bench;
    // A PNG of one red pixel, shown 40 pixels wide and 30 high at 96 dpi.
    const std::string red = "89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000"
                            "000c49444154789c63f8cfc0000003010100c9fe92ef0000000049454e44ae426082";
    bench.view.LoadRichText("{\\rtf1{\\pict\\pngblip\\picwgoal600\\pichgoal450 " + red + "}}",
                            1252);
    const Rect box = bench.view.Pane().CharacterRect(0);
    CHECK(box.width == MulDiv(40, WindowDpi(bench.view.Handle()), 96));
    const Painted painted(bench.view.Handle());
    CHECK(painted.Count(box, 0x0000FF) == box.width * box.height);
}

namespace {
// A text whose search runs until it is given up, or fails the test.
class EndlessText : public TextSource {
  public:
    TextPos Length() const override { return static_cast<TextPos>(text_.size()); }
    TextPiece PieceAt(TextPos) const override { return {0, text_}; }
    TextPos FindWhile(std::u16string_view, TextPos, FindOptions,
                      const std::function<bool()>& shouldContinue) const override {
        const ULONGLONG end = GetTickCount64() + 60'000;
        while (GetTickCount64() < end)
            if (!shouldContinue()) return findGivenUp;
        return notFound;
    }

  private:
    std::u16string text_ = u"a line of it";
};
} // namespace

TEST_CASE("windows text view: Escape gives a long search up, and other keys do nothing") {
    Bench bench;
    bench.view.LoadText(std::make_shared<EndlessText>());
    PostMessageW(bench.view.Handle(), WM_KEYDOWN, VK_RIGHT, 0);
    PostMessageW(bench.view.Handle(), WM_KEYDOWN, VK_ESCAPE, 0);
    CHECK(bench.view.Find(u"nowhere", 0, {}) == findGivenUp);
    CHECK(bench.view.SelStart() == 0);
}

TEST_CASE("windows text view: closing the window gives a long search up, and still closes it") {
    Bench bench;
    bench.view.LoadText(std::make_shared<EndlessText>());
    PostMessageW(bench.window.Handle(), WM_CLOSE, 0, 0);
    CHECK(bench.view.Find(u"nowhere", 0, {}) == findGivenUp);
    MSG message = {};
    CHECK(PeekMessageW(&message, bench.window.Handle(), WM_CLOSE, WM_CLOSE, PM_REMOVE));
}
