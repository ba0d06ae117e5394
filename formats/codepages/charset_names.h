// The charsets that a reader can choose from for a text, by name.
#pragma once

#include <span>
#include <string_view>

struct NamedCharset {
    int page; // that DecodeCodePage knows
    std::string_view name;
};

// By script, in the order of the scripts of a font; the page of Windows first in each. Without the
// charsets whose bytes show them: UTF-16, UTF-32, ISO-2022 and HZ.
std::span<const NamedCharset> NamedCharsets();
