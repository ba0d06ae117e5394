// A page in the reader's background colour, with text that can be seen on it.
#pragma once

#include "common/geometry.h"
#include "platform/html_view.h"

#include <cstdint>
#include <optional>

// The colour for text that would be hard to see on `background`, though not on the page's own;
// nothing where the page's own colour will do. All colours are 0x00RRGGBB.
std::optional<std::uint32_t> ReadableTextColor(const PageColors& own, std::uint32_t background);

void PaintPage(HtmlView&, Color background); // of a page that has a body
