// The system's dialogs, as our ports use them.
#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/win_dialogs.h"
#include "platform/windows/files/win_files.h"
#include "temporary_folder_windows.h"
#include "windows_while_open.h"

#include <doctest/doctest.h>

#include <algorithm>

#include <colordlg.h>
#include <dlgs.h>

namespace {

const ViewFont fonts[] = {
    {u"DejaVu Serif", 12, 0},
    {u"DejaVu Serif", 12.5, 204, true, false, false, true},
    {u"A Face That Nobody Has", 9.75, 177, false, true, true, false},
    {u"A Face of a Name Longer Than the System Allows", 11.123456, 77},
    {u"", 0, 1},
    {u"DejaVu Sans", 2000, 255, true, true, true, true},
};

void Confirm(HWND dialog) {
    PressButton(dialog, IDOK);
}

} // namespace

TEST_CASE("windows dialogs: a font confirmed untouched is exactly the one given") {
    WinDialogs dialogs(nullptr);
    for (const ViewFont& font : fonts)
        for (const Color color : {0x000000u, 0xFFFFFFu, 0x123456u}) {
            CAPTURE(font.size);
            CAPTURE(color);
            const WhileOpen shown([](HWND dialog) {
                CHECK((WindowText(dialog) == L"Font"));
                Confirm(dialog);
            });
            const FontAnswer answer = dialogs.ChooseFont({u"Font", font, color});
            CHECK(answer.result == DialogResult::Ok);
            CHECK(answer.font == font);
            CHECK(answer.color == color);
        }
}

TEST_CASE("windows dialogs: what is changed of a font, and nothing else") {
    WinDialogs dialogs(nullptr);
    const ViewFont given = fonts[1];
    {
        const WhileOpen shown([](HWND dialog) {
            SetDlgItemTextW(dialog, cmb3, L"37"); // no size of the list
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(cmb3, CBN_EDITCHANGE),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, cmb3)));
            Confirm(dialog);
        });
        ViewFont expected = given;
        expected.size = 37;
        const FontAnswer answer = dialogs.ChooseFont({u"", given, 0x123456});
        CHECK(answer.font.size == 37);
        CHECK(answer.font == expected);
        CHECK(answer.color == 0x123456);
    }
    const WhileOpen shown([](HWND dialog) {
        SendDlgItemMessageW(dialog, chx1, BM_CLICK, 0, 0);
        SendDlgItemMessageW(dialog, chx2, BM_CLICK, 0, 0);
        SendDlgItemMessageW(dialog, cmb4, CB_SETCURSEL, 0, 0); // black
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(cmb4, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, cmb4)));
        Confirm(dialog);
    });
    ViewFont expected = given;
    expected.underline = !given.underline;
    expected.strikethrough = !given.strikethrough;
    const FontAnswer answer = dialogs.ChooseFont({u"", given, 0x123456});
    CHECK(answer.font == expected);
    CHECK(answer.color == 0);
}

TEST_CASE("windows dialogs: a font that is not installed is shown by its name and size") {
    for (const auto& [size, shownSize] : {std::pair(14.0, L"14"), {10.5, L"10.5"}, {27.0, L"27"}}) {
        ViewFont missing;
        missing.name = u"No Such Face";
        missing.size = size;
        const auto isShown = [&, text = std::wstring(shownSize)](HWND dialog) {
            CHECK((TextOf(dialog, cmb1) == L"No Such Face"));
            CHECK((TextOf(dialog, cmb3) == text));
        };
        const WhileOpen shown([&](HWND dialog) {
            isShown(dialog);
            PressButton(dialog, IDOK);
        });
        CHECK(WinDialogs(nullptr).ChooseFont({u"", missing}).font == missing);
    }
    ViewFont missing;
    missing.name = u"No Such Face";
    const WhileOpen shown([&](HWND dialog) {
        const HWND sizes = GetDlgItem(dialog, cmb3);
        const LRESULT other = SendMessageW(sizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(L"16"));
        REQUIRE(other != CB_ERR);
        SendMessageW(sizes, CB_SETCURSEL, static_cast<WPARAM>(other), 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(cmb3, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(sizes));
        PressButton(dialog, IDOK);
    });
    const ViewFont chosen = WinDialogs(nullptr).ChooseFont({u"", missing}).font;
    CHECK(chosen.name == u"No Such Face");
    CHECK(chosen.size == 16);
}

TEST_CASE("windows dialogs: a colour confirmed untouched is exactly the one given") {
    const OwnerWindow owner({300, 200, 900, 700});
    WinDialogs dialogs(owner.Get());
    for (const Color color : {0x000000u, 0xFFFFFFu, 0x123456u, 0xFEDCBAu, 0x010203u}) {
        CAPTURE(color);
        const WhileOpen shown([&](HWND dialog) {
            CHECK((WindowText(dialog) == L"Background"));
            CHECK(owner.DistanceTo(dialog) <= 2);
            CHECK_FALSE(IsWindowEnabled(owner.Get()));
            Confirm(dialog);
        });
        const ColorAnswer answer = dialogs.ChooseColor(u"Background", color);
        CHECK(answer.result == DialogResult::Ok);
        CHECK(answer.color == color);
    }
    const WhileOpen shown([](HWND dialog) {
        SetDlgItemInt(dialog, COLOR_RED, 10, FALSE);
        SetDlgItemInt(dialog, COLOR_GREEN, 20, FALSE);
        SetDlgItemInt(dialog, COLOR_BLUE, 30, FALSE);
        Confirm(dialog);
    });
    CHECK(dialogs.ChooseColor(u"", 0).color == 0x1E140A);
}

TEST_CASE("windows dialogs: cancelled") {
    WinDialogs dialogs(nullptr);
    const auto giveUp = [](HWND dialog) { PressButton(dialog, IDCANCEL); };
    {
        const WhileOpen shown(giveUp);
        CHECK(dialogs.ChooseFont({u"", fonts[0]}).result == DialogResult::Cancel);
    }
    {
        const WhileOpen shown(giveUp);
        CHECK(dialogs.ChooseColor(u"", 0).result == DialogResult::Cancel);
    }
    const WhileOpen shown(giveUp);
    CHECK(dialogs.OpenFile({}).result == DialogResult::Cancel);
}

TEST_CASE("windows dialogs: a file is chosen") {
    const TemporaryFolder folder;
    const std::u16string root = FromWide(folder.path), name = u"Война и мир “1”.rtf";
    REQUIRE(WinFiles().Replace(root + u"\\" + name, "x", WriteTime::Now));
    OpenFileRequest request;
    request.title = u"Open";
    request.filter = u"Text Files (*.txt)|*.txt|Rich Text Files (*.rtf)|*.rtf|All Files (*.*)|*.*|";
    request.filterIndex = 2;
    wchar_t before[MAX_PATH] = {}, after[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, before);
    for (const std::u16string& first : {std::u16string(), name, std::u16string(u"a?b:\"c")}) {
        request.initialFolder = root;
        request.fileName = first;
        const WhileOpen shown([&](HWND dialog) {
            CHECK((WindowText(dialog) == L"Open"));
            const int box = GetDlgItem(dialog, cmb13) ? cmb13 : edt1;
            SetDlgItemTextW(dialog, box, ToWide(name).c_str());
            PressButton(dialog, IDOK);
        });
        const OpenFileAnswer answer = WinDialogs(nullptr).OpenFile(request);
        CHECK(answer.result == DialogResult::Ok);
        CHECK(answer.filterIndex == 2);
        CHECK(WinFiles().SameFile(answer.fileName, (root + u"\\").append(name)));
    }
    GetCurrentDirectoryW(MAX_PATH, after);
    CHECK((std::wstring(before) == after));
}

// As the file functions of the system take such names: else a book would be listed twice.
TEST_CASE("windows dialogs: dots and spaces after a typed name are no part of the file's") {
    const TemporaryFolder folder;
    const std::u16string path = FromWide(folder.path) + u"\\book.txt";
    REQUIRE(WinFiles().Replace(path, "x", WriteTime::Now));
    OpenFileRequest request;
    request.initialFolder = FromWide(folder.path);
    for (const wchar_t* typed :
         {L"book.txt.", L"book.txt  ", L"book.txt. .", L"sub\\..\\book.txt"}) {
        CAPTURE(FromWide(typed));
        const WhileOpen shown([&](HWND dialog) {
            SetDlgItemTextW(dialog, GetDlgItem(dialog, cmb13) ? cmb13 : edt1, typed);
            PressButton(dialog, IDOK);
            PressButton(dialog, IDCANCEL);
        });
        CHECK((WinDialogs(nullptr).OpenFile(request).fileName == path));
    }
}

TEST_CASE("windows dialogs: a typed name that is too long for a path chooses nothing") {
    const TemporaryFolder folder;
    OpenFileRequest request;
    request.initialFolder = FromWide(folder.path);
    for (const std::wstring root : {L"", L"\\"}) {
        const std::wstring typed = root + std::wstring(MAX_PATH - 1 - root.size(), L'x');
        const WhileOpen shown([&](HWND dialog) {
            SetDlgItemTextW(dialog, GetDlgItem(dialog, cmb13) ? cmb13 : edt1, typed.c_str());
            PressButton(dialog, IDOK);
            PressButton(dialog, IDCANCEL);
        });
        CHECK(WinDialogs(nullptr).OpenFile(request).result == DialogResult::Cancel);
    }
}

TEST_CASE("windows dialogs: a folder or a name that is longer than the dialog takes is left out") {
    const TemporaryFolder folder;
    for (const std::size_t length :
         {MAX_PATH - 13, MAX_PATH - 12, MAX_PATH - 2, MAX_PATH - 1, MAX_PATH, 700}) {
        CAPTURE(length);
        std::u16string deep = FromWide(folder.path);
        while (deep.size() < length)
            deep +=
                u'\\' + std::u16string(std::min<std::size_t>(length - deep.size() - 1, 60), u'd');
        REQUIRE(WinFiles().CreateFolder(deep));
        OpenFileRequest inFolder, ofName;
        inFolder.initialFolder = deep;
        ofName.fileName = deep;
        for (const OpenFileRequest& request : {inFolder, ofName}) {
            const WhileOpen shown([](HWND dialog) { PressButton(dialog, IDCANCEL); });
            CHECK(WinDialogs(nullptr).OpenFile(request).result == DialogResult::Cancel);
        }
    }
}

namespace {

constexpr WORD readingList = 0x7001;

FontRequest RequestWithReadings() {
    return {u"Font",
            {u"DejaVu Sans", 12, 0},
            0,
            {{u"Western", u"\u00CA\u00E0\u00EA", 0},
             {u"Greek", u"\u03A3", 161},
             {u"Cyrillic (DOS)", u"\u0421\u043A\u0430", 204},
             {u"Cyrillic (Windows)", u"\u0420\u0453", 204, true},
             {u"Unicode", u"\uFFFD", -1}},
            0};
}

int Selected(HWND dialog) {
    return static_cast<int>(SendDlgItemMessageW(dialog, readingList, LB_GETCURSEL, 0, 0));
}

// As a click or a key does.
void ChooseReading(HWND dialog, int reading) {
    SendDlgItemMessageW(dialog, readingList, LB_SETCURSEL, static_cast<WPARAM>(reading), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(readingList, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, readingList)));
}

void ChooseScript(HWND dialog, const wchar_t* name) {
    const LRESULT found =
        SendDlgItemMessageW(dialog, cmb5, CB_FINDSTRINGEXACT, 0, reinterpret_cast<LPARAM>(name));
    CHECK(found != CB_ERR);
    SendDlgItemMessageW(dialog, cmb5, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(cmb5, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, cmb5)));
}

FontAnswer AnswerAfter(const FontRequest& request, const std::function<void(HWND)>& action) {
    const WhileOpen shown([&](HWND dialog) {
        action(dialog);
        Confirm(dialog); // after what the dialog has posted to itself
    });
    return WinDialogs(nullptr).ChooseFont(request);
}

} // namespace

TEST_CASE(
    "windows dialogs: a text's readings are listed in their order, the present one selected") {
    const FontRequest request = RequestWithReadings();
    const FontAnswer untouched = AnswerAfter(request, [](HWND dialog) {
        REQUIRE(SendDlgItemMessageW(dialog, readingList, LB_GETCOUNT, 0, 0) == 5);
        wchar_t row[64] = {};
        SendDlgItemMessageW(dialog, readingList, LB_GETTEXT, 2, reinterpret_cast<LPARAM>(row));
        CHECK((std::wstring(row) == L"Cyrillic (DOS)\t\u0421\u043A\u0430"));
        CHECK(Selected(dialog) == 0);
        RECT list = {}, whole = {};
        GetWindowRect(GetDlgItem(dialog, readingList), &list);
        GetWindowRect(dialog, &whole);
        CHECK(list.bottom < whole.bottom);
        for (HWND other = GetWindow(dialog, GW_CHILD); other;
             other = GetWindow(other, GW_HWNDNEXT)) {
            RECT place = {}, both = {};
            GetWindowRect(other, &place);
            const bool covers = IsWindowVisible(other) && GetDlgCtrlID(other) != readingList &&
                                IntersectRect(&both, &list, &place);
            CHECK_FALSE(covers);
        }
    });
    CHECK(untouched.font == request.font);
    CHECK(untouched.reading == 0);
    const FontAnswer without = AnswerAfter(
        {u"", fonts[0]}, [](HWND dialog) { CHECK_FALSE(GetDlgItem(dialog, readingList)); });
    CHECK(without.reading == -1);
}

TEST_CASE("windows dialogs: a reading brings its script along, and a script its reading") {
    const FontRequest request = RequestWithReadings();
    FontAnswer answer = AnswerAfter(request, [](HWND dialog) {
        ChooseReading(dialog, 2);
        CHECK((TextOf(dialog, cmb5) == L"Cyrillic"));
    });
    CHECK(answer.reading == 2);
    CHECK(answer.font.charset == 204);
    answer = AnswerAfter(request, [](HWND dialog) { ChooseScript(dialog, L"Cyrillic"); });
    CHECK(answer.reading == 3);
    CHECK(answer.font.charset == 204);
    answer = AnswerAfter(request, [](HWND dialog) { ChooseScript(dialog, L"Turkish"); });
    CHECK(answer.reading == -1);
    CHECK(answer.font.charset == 162);
    answer = AnswerAfter(request, [](HWND dialog) {
        ChooseReading(dialog, 1);
        ChooseReading(dialog, 0);
    });
    CHECK(answer.font == request.font);
    CHECK(answer.reading == 0);
    answer = AnswerAfter(request, [](HWND dialog) { // Unicode reads in any script
        ChooseReading(dialog, 4);
        ChooseScript(dialog, L"Greek");
    });
    CHECK(answer.reading == 4);
    CHECK(answer.font.charset == 161);
}
