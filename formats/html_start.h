// Recognises HTML by the first bytes of a file.
#pragma once

#include <string_view>

// Whether the bytes begin with a tag, a comment or a declaration, in UTF-8 or UTF-16.
bool LooksLikeHtml(std::string_view bytes);
