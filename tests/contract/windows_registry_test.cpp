#include "platform/windows/base/text.h"
#include "platform/windows/system/win_registry.h"
#include "windows_test_key.h"

#include <doctest/doctest.h>

namespace {

constexpr REGSAM View = KEY_WOW64_32KEY; // of a 64-bit program; nothing on a 32-bit system
const std::u16string& key = testKey;

HKEY Opened(REGSAM access) {
    HKEY opened = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, ToWide(key).c_str(), 0, access, &opened);
    return opened;
}

// The key's time tells whether anything was written to it.
ULONGLONG LastWrite() {
    const HKEY opened = Opened(KEY_QUERY_VALUE | View);
    REQUIRE(opened);
    FILETIME time = {};
    RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                     nullptr, nullptr, &time);
    RegCloseKey(opened);
    return static_cast<ULONGLONG>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

void Set(const wchar_t* name, DWORD type, const void* data, DWORD size) {
    const HKEY opened = Opened(KEY_SET_VALUE | View);
    REQUIRE(opened);
    CHECK(RegSetValueExW(opened, name, 0, type, static_cast<const BYTE*>(data), size) == 0);
    RegCloseKey(opened);
}

} // namespace

TEST_CASE("windows registry: a value is a text in the view of the other bitness") {
    const TestKey cleanUp;
    WinRegistry registry;
    if (registry.Write(key, u"name", u"Знач\u00E9 \U0001D11E") == ERROR_ACCESS_DENIED) {
        MESSAGE("skipped: needs the rights of an administrator");
        return;
    }
    CHECK(registry.Write(key, u"", u"C:\\Program Files\\Norvaset") == 0); // the default value
    CHECK(registry.Read(key + u"\\none", u"name").empty());

    const HKEY ownView = Opened(KEY_QUERY_VALUE); // the key is there, too, without values
    REQUIRE(ownView);
    DWORD values = 9;
    RegQueryInfoKeyW(ownView, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                     nullptr, nullptr, nullptr, nullptr);
    RegCloseKey(ownView);
    CHECK(values == (sizeof(void*) == 8 ? 0 : 2));

    const HKEY opened = Opened(KEY_QUERY_VALUE | View);
    DWORD type = 0, size = 0;
    CHECK(RegQueryValueExW(opened, L"name", nullptr, &type, nullptr, &size) == 0);
    RegCloseKey(opened);
    CHECK(type == REG_SZ);
    CHECK(size == 9 * sizeof(wchar_t)); // with its NUL
}

TEST_CASE("windows registry: an equal value is not written again") {
    const TestKey cleanUp;
    WinRegistry registry;
    if (registry.Write(key, u"name", u"1") != 0) return;
    const ULONGLONG first = LastWrite();
    const ULONGLONG start = GetTickCount64();
    while (GetTickCount64() - start < 50) // a write from now on has another time
        SwitchToThread();
    CHECK(registry.Write(key, u"name", u"1") == 0);
    CHECK(LastWrite() == first);
    CHECK(registry.Write(key, u"name", u"2") == 0);
    CHECK(LastWrite() > first);
    CHECK(registry.Write(key, u"name", u"") == 0);
    CHECK(registry.Read(key, u"name").empty());
}

TEST_CASE("windows registry: values of other types") {
    const TestKey cleanUp;
    WinRegistry registry;
    if (registry.Write(key, u"name", u"1") != 0) return;
    const DWORD number = 4'000'000'000;
    Set(L"number", REG_DWORD, &number, sizeof number);
    Set(L"short number", REG_DWORD, &number, 2);
    Set(L"binary", REG_BINARY, "abc", 3);
    Set(L"none", REG_NONE, L"abc", 6);
    Set(L"no end", REG_SZ, L"abc", 6);
    Set(L"many ends", REG_SZ, L"abc\0\0", 12);
    Set(L"odd", REG_SZ, L"abc", 5);
    Set(L"list", REG_MULTI_SZ, L"abc\0", 10);
    CHECK(registry.Read(key, u"number") == u"4000000000");
    CHECK(registry.Read(key, u"short number").empty());
    CHECK(registry.Read(key, u"binary") == u"abc");
    CHECK(registry.Read(key, u"none") == u"abc");
    CHECK(registry.Read(key, u"no end") == u"abc");
    CHECK(registry.Read(key, u"many ends") == u"abc");
    CHECK(registry.Read(key, u"odd") == u"ab");
    CHECK(registry.Read(key, u"list").empty());
}

TEST_CASE("windows registry: what cannot be written gives the system's error") {
    CHECK(WinRegistry().Write(std::u16string(300, u'x'), u"name", u"1") != 0);
    CHECK(WinRegistry().Write(u"", std::u16string(20'000, u'x'), u"1") != 0);
}
