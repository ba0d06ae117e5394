// Text within rich text.
#pragma once

#include <string>
#include <string_view>

// Text outside of tables and without pictures, in ASCII: other characters as \u with "?" for old
// readers.
void AppendRtfText(std::string& rtf, std::u16string_view text);
