// A page of frames as a page of links to them, for a view that shows one document at a time.
#pragma once

#include "formats/html/html_tree.h"

#include <optional>
#include <string>

// The source of that page: each frame by its title, its name or its address. Nothing for a page
// without frames.
std::optional<std::u16string> LinksOfFrames(const HtmlTree& page);
