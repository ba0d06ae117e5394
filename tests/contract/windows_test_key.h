// A registry key for tests, which goes with all that was written to it.
#pragma once

#include "platform/windows/base/text.h"

inline const std::u16string testKey = u"SOFTWARE\\Norvaset contract test\\Ключ";

struct TestKey {
    TestKey() = default;
    ~TestKey() {
        for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
            RegDeleteKeyExW(HKEY_LOCAL_MACHINE, ToWide(testKey).c_str(), view, 0);
            RegDeleteKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Norvaset contract test", view, 0);
        }
    }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;
};
