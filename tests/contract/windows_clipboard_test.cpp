#include "platform/windows/system/win_clipboard.h"
#include "windows_clipboard_text.h"

#include <doctest/doctest.h>

#include <thread>

TEST_CASE("windows clipboard: line ends that are the system's already stay as they are") {
    WinClipboard().SetText(u"one\r\ntwo\nthree\r\tfour\r\n");
    CHECK((ClipboardText() == u"one\r\ntwo\r\nthree\r\tfour\r\n"));
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
    Sleep(300); // as a remote session holds it, or one that fetches what another program copied
    CloseClipboard();
    waits.join();
    CHECK(ClipboardText() == u"after");
    DestroyWindow(holder);
}
