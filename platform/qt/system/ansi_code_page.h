// The ANSI code page that Windows gives to a locale.
#pragma once

#include <string_view>

// `locale` as in the environment: "ru_RU.UTF-8", "sr_RS@latin", "zh_TW". 1252 for a language not
// known.
int AnsiCodePageOf(std::string_view locale);
