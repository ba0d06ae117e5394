// The three tables that connect document charset names, Windows code pages and font character sets.
#pragma once

#include <string>
#include <string_view>

// The code page of a charset name as an HTML document reports it, compared exactly; 1200 for any
// other.
int CharsetCodePage(std::string_view name);

// The table's name for a charset that an engine names in its own way ("Shift_JIS", "GBK",
// "Windows-1251"); the name in lower case when the table has none.
std::string CharsetTableName(std::string_view engineName);

int CodePageToCharset(int codePage); // 0 for a page that is not in the table
int CharsetToCodePage(int charset); // 0 for a character set that is not in the table; 254 gives 437
