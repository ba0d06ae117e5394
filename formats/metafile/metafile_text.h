// Texts of metafiles.
#pragma once

#include <string>
#include <string_view>

// In a font of this character set.
std::u16string TextOfMetaBytes(std::string_view bytes, int charset);

// Without what is not shown.
std::u16string ShownMetaText(std::u16string text);
