// The charset that a page declares.
#pragma once

#include <string_view>

// By `meta` (charset, or http-equiv and content), else by an XML declaration; 0 when there is none
// that is known.
int DeclaredHtmlCodePage(std::string_view bytes);
