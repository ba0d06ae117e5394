// The charset that a page declares.
#pragma once

#include <cstddef>
#include <string_view>

// The standard looks at the first 1024 bytes, and reads the page again when it meets a `meta`
// later. Heads are rarely longer than this.
constexpr std::size_t maxHtmlPrescan = 65'536;

// By `meta` (charset, or http-equiv and content), else by an XML declaration; 0 when there is none
// that is known.
int DeclaredHtmlCodePage(std::string_view bytes);
