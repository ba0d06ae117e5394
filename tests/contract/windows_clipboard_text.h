// What every program gets that pastes Unicode text.
#pragma once

#include "platform/windows/base/text.h"

#include <doctest/doctest.h>

inline std::u16string ClipboardText() {
    REQUIRE(OpenClipboard(nullptr));
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    std::u16string copy = text ? FromWide(text) : std::u16string();
    GlobalUnlock(memory);
    CloseClipboard();
    return copy;
}
