#include "platform/windows/base/win32.h"
#include "platform/windows/system/win_clipboard.h"

#include <doctest/doctest.h>

#include <string>
#include <thread>

namespace {

// What every program gets that asks for Unicode text.
std::u16string ClipboardText() {
    REQUIRE(OpenClipboard(nullptr));
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* text = memory ? static_cast<const char16_t*>(GlobalLock(memory)) : nullptr;
    const std::u16string copy = text ? text : u"";
    GlobalUnlock(memory);
    CloseClipboard();
    return copy;
}

} // namespace

TEST_CASE("windows clipboard: holds the text as it is") {
    const std::u16string texts[] = {u"Ab\u00E9\u0416\r\t\r\n\U0001D11E", u"x", u"",
                                    std::u16string(1'000'000, u'я')};
    for (const std::u16string& text : texts) {
        WinClipboard().SetText(text);
        CHECK((ClipboardText() == text));
    }
}

TEST_CASE("windows clipboard: lines end as in all programs of the system") {
    WinClipboard().SetText(u"\none\n\ntwo\r\nthree\n");
    CHECK((ClipboardText() == u"\r\none\r\n\r\ntwo\r\nthree\r\n"));
}

TEST_CASE("windows clipboard: nothing of what was there before stays") {
    REQUIRE(OpenClipboard(nullptr));
    EmptyClipboard();
    const UINT format = RegisterClipboardFormatW(L"Norvaset contract");
    SetClipboardData(format, GlobalAlloc(GMEM_MOVEABLE, 8));
    CloseClipboard();
    REQUIRE(IsClipboardFormatAvailable(format));
    WinClipboard().SetText(u"x");
    CHECK_FALSE(IsClipboardFormatAvailable(format));
    CHECK(IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST_CASE("windows clipboard: another program holds it for a while, or for good") {
    WinClipboard().SetText(u"before");
    const HWND holder =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    REQUIRE(OpenClipboard(holder));
    std::thread asks([] { WinClipboard().SetText(u"never"); });
    asks.join(); // it gives up
    CloseClipboard();
    CHECK(ClipboardText() == u"before");

    REQUIRE(OpenClipboard(holder));
    std::thread waits([] { WinClipboard().SetText(u"after"); });
    Sleep(30);
    CloseClipboard();
    waits.join();
    CHECK(ClipboardText() == u"after");
    DestroyWindow(holder);
}
