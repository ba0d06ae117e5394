// Which of the system's font families show a script that another font does not have.
#pragma once

#include <string>
#include <vector>

// The families to try for a character, best first; some may not be installed.
std::vector<std::wstring> FamiliesForScript(char32_t character);

// The bit of the character's script in the Unicode subsets of a font's signature (FONTSIGNATURE);
// -1 where none is of use.
int UnicodeSubsetOf(char32_t character);
