// Which addresses may be handed to other programs.
#pragma once

#include <string>
#include <string_view>

// An https:, http: or mailto: address of printable ASCII, without blanks and quotes.
bool IsWebOrMailAddress(std::u16string_view address);

// An address of any scheme but those that run what stands in them, or lead to files and to the
// system's own parts; the same characters. Another program's business.
bool IsProgramAddress(std::u16string_view address);

// An address as a page has it, in those characters: all others are percent-encoded.
std::u16string EncodedAddress(std::u16string_view address);

// Of a mailto: address the recipients and the fields to, cc, bcc, subject and body: some mail
// programs take others for orders, such as which file to attach. Any other address is left alone.
std::u16string WithPlainMailFields(std::u16string_view address);

// Letters, digits and "-._~" stand for themselves, all else as the percent-encoded bytes of UTF-8
// (RFC 3986).
std::u16string PercentEncoded(std::u16string_view text);
