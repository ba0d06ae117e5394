// A page in the reader's background colour, with text that can be seen on it.
#pragma once

#include "common/geometry.h"
#include "platform/html_view.h"

#include <optional>

// The colour for text that would be hard to see on `background`, though not on the page's own;
// nothing where the page's own colour will do.
std::optional<Color> ReadableTextColor(const PageColors& own, Color background);

void PaintPage(HtmlView&, Color background); // of a page that has a body
