// Lets a failed check print UTF-16 text.
#pragma once

#include "common/utf.h"

#include <doctest/doctest.h>

#include <string>

namespace doctest {
template <>
struct StringMaker<std::u16string> {
    static String convert(const std::u16string& text) { return Utf16ToUtf8(text).c_str(); }
};
} // namespace doctest
