// The colours that a page has by itself.
#pragma once

#include "platform/html_view.h"
#include "platform/windows/html_view/page/page_document.h"

#include <string>

// A colour as a computed style says it: "rgb(1, 2, 3)", "rgba(1, 2, 3, 0.5)", "#010203". Nothing
// for "transparent", and for what is none.
std::optional<std::uint32_t> ParseCssColor(const std::wstring& text);

PageColors ColorsOf(const PageDocument&); // black on white as far as the engine does not tell
