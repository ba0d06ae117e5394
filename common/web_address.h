// Which addresses may be handed to other programs.
#pragma once

#include <string>
#include <string_view>

// An https:, http: or mailto: address of printable ASCII, without blanks and quotes.
bool IsWebOrMailAddress(std::u16string_view address);

// An address of any scheme but those that run what stands in them or name a file; the same
// characters. Another program's business.
bool IsProgramAddress(std::u16string_view address);

// Letters, digits and "-._~" stand for themselves, all else as the percent-encoded bytes of UTF-8
// (RFC 3986).
std::u16string PercentEncoded(std::u16string_view text);
