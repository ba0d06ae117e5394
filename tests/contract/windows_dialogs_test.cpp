// The messages and the dialogs of our own.
#include "platform/windows/base/text.h"
#include "platform/windows/base/wine.h"
#include "platform/windows/dialogs/message_box.h"
#include "platform/windows/dialogs/win_dialogs.h"
#include "platform/windows/dialogs/win_find_dialog.h"
#include "platform/windows/dialogs/win_rich_message.h"
#include "platform/windows/dialogs/win_text_dialog.h"
#include "windows_message_pump.h"
#include "windows_while_open.h"

#include <doctest/doctest.h>

using Find = WinFindDialog;

namespace {

constexpr RECT ownerPlace = {300, 200, 900, 700};

HWND EditOf(HWND dialog) {
    COMBOBOXINFO information = {};
    information.cbSize = sizeof information;
    GetComboBoxInfo(GetDlgItem(dialog, Find::What), &information);
    return information.hwndItem;
}

LONG DefaultButton(HWND dialog) {
    return LOWORD(SendMessageW(dialog, DM_GETDEFID, 0, 0));
}

} // namespace

TEST_CASE("windows dialogs: a message over its owner, which waits") {
    const OwnerWindow owner(ownerPlace);
    WinDialogs dialogs(owner.Get());
    Message message;
    message.text = u"First line.\r\nÜber alles: שלום";
    message.title = u"Norvaset Message";
    message.icon = MessageIcon::Exclamation;
    {
        const WhileOpen shown([&](HWND box) {
            CHECK((WindowText(box) == L"Norvaset Message"));
            CHECK_FALSE(IsWindowEnabled(owner.Get()));
            CHECK(GetWindow(box, GW_OWNER) == owner.Get());
            CHECK(Becomes([&] { return owner.DistanceTo(box) <= 2; }));
            CHECK_FALSE(GetDlgItem(box, IDHELP));
            CHECK_FALSE(GetDlgItem(box, IDCANCEL));
            PressButton(box, IDOK);
        });
        CHECK(dialogs.ShowMessage(message) == DialogResult::Ok);
    }
    CHECK(IsWindowEnabled(owner.Get()));
}

TEST_CASE("windows dialogs: which button a message begins with, and what closing it means") {
    WinDialogs dialogs(nullptr);
    Message message;
    message.text = u"Are you sure you wish to continue?";
    message.icon = MessageIcon::Question;
    message.buttons = MessageButtons::OkCancel;
    for (const bool cancelIsDefault : {false, true}) {
        message.cancelIsDefault = cancelIsDefault;
        const LONG expected = cancelIsDefault ? IDCANCEL : IDOK;
        {
            const WhileOpen shown([&](HWND) {
                CHECK(GetDlgCtrlID(GetFocus()) == expected);
                PressKey(VK_RETURN);
            });
            CHECK(dialogs.ShowMessage(message) == static_cast<DialogResult>(expected));
        }
        const WhileOpen shown([](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); });
        CHECK(dialogs.ShowMessage(message) == DialogResult::Cancel);
    }
}

TEST_CASE("windows dialogs: the help button tells the topic, and the message stays") {
    const OwnerWindow owner(ownerPlace);
    WinDialogs dialogs(owner.Get());
    std::vector<std::string> asked;
    dialogs.onHelp = [&](const std::string& topic) { asked.push_back(topic); };
    Message message;
    message.text = u"x";
    message.helpButton = true;
    message.helpTopic = "mFileOpen";
    const WhileOpen shown([&](HWND box) {
        REQUIRE(GetDlgItem(box, IDHELP));
        SendMessageW(box, WM_COMMAND, IDHELP, reinterpret_cast<LPARAM>(GetDlgItem(box, IDHELP)));
        HELPINFO f1 = {}; // the other way there; the button does nothing under Wine
        f1.cbSize = sizeof f1;
        if (RunsUnderWine()) SendMessageW(box, WM_HELP, 0, reinterpret_cast<LPARAM>(&f1));
        CHECK(asked == std::vector<std::string>{"mFileOpen"});
        CHECK(IsWindowVisible(box));
        PressButton(box, IDOK);
    });
    CHECK(dialogs.ShowMessage(message) == DialogResult::Ok);
}

TEST_CASE("windows dialogs: a message that comes while another waits belongs to that") {
    const OwnerWindow owner(ownerPlace);
    WinDialogs dialogs(owner.Get());
    Message first, second;
    first.icon = MessageIcon::Critical;
    second.icon = MessageIcon::Application;
    const WhileOpen shown([&](HWND box) {
        {
            const WhileOpen inner([&](HWND nested) {
                CHECK(nested != box);
                CHECK(GetWindow(nested, GW_OWNER) == box);
                CHECK_FALSE(IsWindowEnabled(box));
                PressButton(nested, IDOK);
            });
            CHECK(dialogs.ShowMessage(second) == DialogResult::Ok);
        }
        CHECK(IsWindowEnabled(box));
        CHECK_FALSE(IsWindowEnabled(owner.Get()));
        PressButton(box, IDOK);
    });
    CHECK(dialogs.ShowMessage(first) == DialogResult::Ok);
}

TEST_CASE("windows dialogs: a message of rich text gives the number of the button") {
    const OwnerWindow owner(ownerPlace);
    WinDialogs dialogs(owner.Get());
    const auto ask = [&](const std::function<void(HWND)>& act) {
        const WhileOpen shown(act);
        return dialogs.ShowRichMessage("{\\rtf1\\ansi some {\\ul text}\\'e9}", u"Title",
                                       {u"Cancel", u"Download"});
    };
    using Rich = WinRichMessage;
    CHECK(ask([&](HWND dialog) {
              CHECK((WindowText(dialog) == L"Title"));
              CHECK((TextOf(dialog, Rich::FirstButton) == L"Cancel"));
              CHECK((TextOf(dialog, Rich::FirstButton + 1) == L"Download"));
              CHECK((TextOf(dialog, Rich::Text) == L"some text\u00E9"));
              CHECK(Becomes([&] { return owner.DistanceTo(dialog) <= 2; }));
              PressButton(dialog, Rich::FirstButton);
          }) == 1);
    CHECK(ask([](HWND dialog) { PressButton(dialog, Rich::FirstButton + 1); }) == 2);
    CHECK(ask([](HWND) { PressKey(VK_RETURN); }) == 1);
    CHECK(ask([](HWND) { PressKey(VK_ESCAPE); }) == 0);
    CHECK(ask([](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); }) == 0);
}

TEST_CASE("windows dialogs: a message box with the program's icon, or without one") {
    const WhileOpen shown([](HWND box) {
        CHECK((WindowText(box) == L"About"));
        PressButton(box, IDOK);
    });
    CHECK(ShowMessageBoxWithAppIcon(nullptr, u"text", u"About", MB_OK) == IDOK);
}

TEST_CASE("windows dialogs: a line of text is asked for") {
    const OwnerWindow owner(ownerPlace);
    WinDialogs dialogs(owner.Get());
    {
        const WhileOpen shown([&](HWND dialog) {
            CHECK((WindowText(dialog) == L"New Profile"));
            CHECK((TextOf(dialog, WinTextDialog::Prompt) == L"Name & more:"));
            CHECK((TextOf(dialog, IDOK) == L"OK"));
            CHECK((TextOf(dialog, IDCANCEL) == L"Cancel"));
            CHECK(GetFocus() == GetDlgItem(dialog, WinTextDialog::Line));
            CHECK(Becomes([&] { return owner.DistanceTo(dialog) <= 2; }));
            CHECK_FALSE(IsWindowEnabled(owner.Get()));
            SetDlgItemTextW(dialog, WinTextDialog::Line, L"Анна = \U0001D11E");
            PressKey(VK_RETURN);
        });
        CHECK(dialogs.AskText(u"New Profile", u"Name & more:") == u"Анна = \U0001D11E");
    }
    const WhileOpen shown([](HWND dialog) {
        SetDlgItemTextW(dialog, WinTextDialog::Line, L"given up");
        PressKey(VK_ESCAPE);
    });
    CHECK(dialogs.AskText(u"", u"").empty());
}

TEST_CASE("windows dialogs: a long prompt is shown whole") {
    std::u16string prompt;
    for (int i = 0; i < 40; ++i)
        prompt += u"several words ";
    const WhileOpen shown([](HWND dialog) {
        RECT label = {}, line = {}, ok = {}, frame = {};
        GetWindowRect(GetDlgItem(dialog, WinTextDialog::Prompt), &label);
        GetWindowRect(GetDlgItem(dialog, WinTextDialog::Line), &line);
        GetWindowRect(GetDlgItem(dialog, IDOK), &ok);
        GetWindowRect(dialog, &frame);
        CHECK(label.bottom - label.top > 2 * (line.bottom - line.top));
        CHECK(label.bottom <= line.top);
        CHECK(line.bottom <= ok.top);
        CHECK(ok.bottom < frame.bottom);
        PressButton(dialog, IDCANCEL);
    });
    WinTextDialog().Ask(nullptr, u"", prompt);
}

TEST_CASE("windows dialogs: what to find is asked for") {
    const OwnerWindow owner(ownerPlace);
    FindRequest request;
    request.title = u"Find";
    request.font = {u"DejaVu Serif", 8};
    request.history = {u"newest", u"older"};
    const WhileOpen shown([&](HWND dialog) {
        const HWND what = GetDlgItem(dialog, Find::What);
        CHECK((WindowText(dialog) == L"Find"));
        CHECK((TextOf(dialog, IDOK) == L"&Find"));
        CHECK(Becomes([&] { return owner.DistanceTo(dialog) <= 2; }));
        CHECK(DefaultButton(dialog) == IDOK);
        CHECK_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
        CHECK(GetFocus() == EditOf(dialog));
        CHECK(SendMessageW(what, CB_GETCOUNT, 0, 0) == 2);
        wchar_t first[16] = {};
        SendMessageW(what, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(first));
        CHECK((std::wstring(first) == L"newest"));
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(what, WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        CHECK((std::wstring(font.lfFaceName) == L"DejaVu Serif"));
        SendMessageW(dialog, WM_COMMAND, IDOK, 0); // does nothing yet
        CHECK(IsWindowVisible(dialog));
        SendMessageW(EditOf(dialog), WM_CHAR, L'n', 1); // not completed to a search of the past
        CHECK(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
        PressKey(VK_RETURN);
    });
    const FindAnswer answer = WinDialogs(owner.Get()).AskFind(request);
    CHECK(answer.result == DialogResult::Ok);
    CHECK(answer.text == u"n");
    CHECK_FALSE(answer.wholeWord);
    CHECK_FALSE(answer.matchCase);
}

TEST_CASE("windows dialogs: a search of the past is chosen, and how to look") {
    FindRequest request;
    request.history = {u"newest", u"o\u05DCder"};
    const WhileOpen shown([](HWND dialog) {
        const HWND what = GetDlgItem(dialog, Find::What);
        SetFocus(what);
        SendMessageW(EditOf(dialog), WM_KEYDOWN, VK_DOWN, 1);
        SendMessageW(EditOf(dialog), WM_KEYDOWN, VK_DOWN, 1);
        SendMessageW(GetDlgItem(dialog, Find::WholeWord), BM_CLICK, 0, 0);
        SendMessageW(GetDlgItem(dialog, Find::MatchCase), BM_CLICK, 0, 0);
        PressButton(dialog, IDOK);
    });
    const FindAnswer answer = WinDialogs(nullptr).AskFind(request);
    CHECK(answer.result == DialogResult::Ok);
    CHECK(answer.text == u"o\u05DCder");
    CHECK(answer.wholeWord);
    CHECK(answer.matchCase);
}

TEST_CASE("windows dialogs: a search confirmed untouched is exactly the one given") {
    const std::u16string texts[] = {u"word",
                                    u" two  blanks ",
                                    u"two\nlines\twith\vbreaks",
                                    u"\u05E9\u05DC\u05D5\u05DD \U0001D11E",
                                    std::u16string(u"a\0b", 3),
                                    std::u16string(100'000, u'x')};
    for (const std::u16string& text : texts) {
        FindRequest request;
        request.text = text;
        request.wholeWord = true;
        request.history = {u"older"};
        const WhileOpen shown([](HWND dialog) {
            DWORD start = 9, end = 9;
            SendMessageW(EditOf(dialog), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                         reinterpret_cast<LPARAM>(&end));
            CHECK(start == 0);
            CHECK(end > 0);
            PressButton(dialog, IDOK);
        });
        const FindAnswer answer = WinDialogs(nullptr).AskFind(request);
        CHECK((answer.text == text));
        CHECK(answer.wholeWord);
        CHECK_FALSE(answer.matchCase);
    }
}

TEST_CASE("windows dialogs: a tall font to find in covers nothing") {
    FindRequest request;
    request.font = {u"DejaVu Serif", 40};
    const WhileOpen shown([](HWND dialog) {
        RECT what = {}, below = {}, find = {}, frame = {};
        GetWindowRect(GetDlgItem(dialog, Find::What), &what);
        GetWindowRect(GetDlgItem(dialog, Find::WholeWord), &below);
        GetWindowRect(GetDlgItem(dialog, IDOK), &find);
        GetWindowRect(dialog, &frame);
        CHECK(what.bottom - what.top > 50);
        CHECK(what.bottom <= below.top);
        CHECK(find.bottom < frame.bottom);
        PressKey(VK_ESCAPE);
    });
    CHECK(WinDialogs(nullptr).AskFind(request).result == DialogResult::Cancel);
}
