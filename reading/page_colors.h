// A page in the reader's background colour, with letters that can be seen on it.
#pragma once

#include "platform/html_view.h"

#include <cstdint>
#include <optional>

struct MainForm;

// The colour for letters that would be hard to see on `background`, though not on the page's own
// paper; nothing where the page's own colour will do. All colours are 0x00RRGGBB.
std::optional<std::uint32_t> ReadableTextColor(const PageColors& own, std::uint32_t background);

void PaintPage(MainForm&); // which has a body
