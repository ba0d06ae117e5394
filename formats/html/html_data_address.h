// Addresses that hold what they lead to: "data:image/png;base64,iVBORw0..." (RFC 2397).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

bool IsHtmlDataAddress(std::u16string_view url);
// Its first bytes, `count` at most; "" for any other address. What is not read costs nothing: a
// picture of a hundred megabytes may stand in an address.
std::string HtmlDataOf(std::u16string_view url, std::size_t count = std::string::npos);
