// Keys, mouse and drops of the text view on the system's control.
#include "platform/windows/base/text.h"
#include "platform/windows/system/win_clipboard.h"
#include "platform/windows/text_view/win_text_view.h"
#include "tests/contract/windows_drop.h"
#include "tests/contract/windows_message_pump.h"
#include "tests/contract/windows_text_view_bench.h"

#include <doctest/doctest.h>

#include <ole2.h>

#include <algorithm>

namespace {
struct Bench {
    WinTextView view{HiddenWindow()};

    Bench() {
        view.SetBounds({0, 0, 400, 300});
        std::u16string text;
        for (int i = 0; i < 200; ++i)
            text += u"some line\n";
        view.LoadPlainText(text);
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(view.Handle(), message, wParam, lParam);
    }
    std::u16string Shown() {
        const auto size = static_cast<std::size_t>(view.TextLength());
        std::wstring text(size + 2, L'\0'); // one more than there should be, and the zero
        TEXTRANGEW range = {{0, LONG(size + 1)}, text.data()};
        text.resize(
            static_cast<std::size_t>(Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range))));
        std::replace(text.begin(), text.end(), L'\r', L'\n');
        return FromWide(text);
    }
    // Of the selection.
    std::string CharacterFormat() {
        CHARFORMAT2W format = {};
        format.cbSize = sizeof format;
        Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        return {reinterpret_cast<const char*>(&format), sizeof format};
    }
    void Press(int key) {
        Send(WM_KEYDOWN, key);
        Send(WM_KEYUP, key);
    }
};

// What the control would format, change or select with, but for those of commands that it knows.
constexpr int keysWithControl[] = {
    'V',      'X',     'Z',       'Y',       'E',       'R',          'L',           'J',
    'B',      'I',     'U',       'T',       'M',       'H',          'K',           'N',
    'Q',      'S',     'W',       '1',       '2',       '5',          '8',           VK_OEM_PLUS,
    VK_SPACE, VK_BACK, VK_DELETE, VK_RETURN, VK_INSERT, VK_OEM_COMMA, VK_OEM_PERIOD, VK_OEM_7};

} // namespace

TEST_CASE("windows text view: typing, pasting and cutting change nothing") {
    Bench bench;
    const std::u16string before = bench.view.TextRange(0, bench.view.TextLength());
    bench.view.Select(3, 5);
    const std::string formatBefore = bench.CharacterFormat();
    for (const int key : {int('X'), int(VK_DELETE), int(VK_BACK), int(VK_RETURN), int(VK_TAB)})
        bench.Press(key);
    for (const wchar_t unit : L"x\b\r\t\x16\x18")
        bench.Send(WM_CHAR, unit);
    for (const UINT message : {UINT(WM_PASTE), UINT(WM_CUT), UINT(WM_CLEAR), UINT(WM_UNDO)})
        bench.Send(message);
    {
        const HeldKey control(VK_CONTROL);
        for (const int key : keysWithControl)
            bench.Press(key);
        const HeldKey shift(VK_SHIFT);
        for (const int key : keysWithControl)
            bench.Press(key);
        for (const int key : {VK_SHIFT, VK_CONTROL})
            bench.Press(key);
    }
    CHECK(bench.Shown() == before);
    CHECK(bench.view.SelStart() == 3);
    CHECK(bench.view.SelLength() == 5);
    PARAFORMAT2 format = {};
    format.cbSize = sizeof format;
    bench.Send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
    CHECK(format.wAlignment == PFA_LEFT);
    CHECK(format.wNumbering == 0);
    CHECK(format.bLineSpacingRule == 0);
    CHECK((format.wEffects & PFE_RTLPARA) == 0);
    CHECK(bench.CharacterFormat() == formatBefore);
}

TEST_CASE("windows text view: the control copies nothing by itself") {
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
    bench.Send(WM_CUT);
    CHECK(asked == 1);
    CHECK(IsClipboardFormatAvailable(CF_UNICODETEXT));
    CHECK_FALSE(IsClipboardFormatAvailable(RegisterClipboardFormatW(CF_RTF)));
}

TEST_CASE("windows text view: nothing can be dragged out of the text or dropped into it") {
    Bench bench;
    CHECK((GetWindowLongPtrW(bench.view.Handle(), GWL_STYLE) & ES_NOOLEDRAGDROP) != 0);
    CHECK(RevokeDragDrop(bench.view.Handle()) == DRAGDROP_E_NOTREGISTERED);
    CHECK(bench.Send(EM_CANPASTE) == 0);
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
        const HeldKey control(VK_CONTROL);
        bench.Press(VK_END);
        CHECK(view.SelStart() == view.TextLength());
        bench.Press(VK_RIGHT);
        CHECK(view.SelStart() == view.TextLength());
        bench.Press(VK_HOME);
        CHECK(view.SelStart() == 0);
        bench.Press('A');
        CHECK(view.SelLength() == view.TextLength());
    }
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

TEST_CASE("windows text view: the wheel with Ctrl neither zooms nor scrolls by itself") {
    Bench bench;
    for (const int turn : {120, -240, 60, 60, -120})
        bench.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, turn));
    int numerator = 0, denominator = 0;
    bench.Send(EM_GETZOOM, reinterpret_cast<WPARAM>(&numerator),
               reinterpret_cast<LPARAM>(&denominator));
    CHECK(numerator == denominator);
    CHECK(bench.view.FirstVisibleChar() == 0);
}

TEST_CASE("windows text view: a context menu is asked for by mouse and keyboard") {
    Bench bench;
    int asked = 0;
    bench.view.onContextMenu = [&] { ++asked; };
    POINT corner = {10, 20};
    ClientToScreen(bench.view.Handle(), &corner);
    bench.Send(WM_RBUTTONUP, 0, MAKELPARAM(10, 20));
    CHECK(asked == 1);
    CHECK(bench.view.ContextMenuPoint().x == corner.x);
    CHECK(bench.view.ContextMenuPoint().y == corner.y);
    bench.Press(VK_APPS);
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
    CHECK(dropped.empty());                    // the program that the files come from does not wait
    bench.view.SetAlignment(Alignment::Right); // fills another control meanwhile
    bench.view.SelStart();
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
    bench.view.SetPointer(Pointer::Hourglass);
    CHECK(shown() == LoadCursorW(nullptr, IDC_WAIT));
    bench.view.LoadPlainText(u"another text");
    CHECK(shown() == LoadCursorW(nullptr, IDC_WAIT));
    bench.view.SetPointer(Pointer::Default);
    CHECK(shown() != LoadCursorW(nullptr, IDC_WAIT));
}
