// Text as HTML source has it (HTML Standard, "Escaping a string").
#pragma once

#include <string>
#include <string_view>

void AppendHtmlText(std::u16string& source, std::u16string_view text);
void AppendHtmlAttribute(std::u16string& source, std::u16string_view value); // between "
