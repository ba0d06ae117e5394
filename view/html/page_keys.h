// Where a key with Shift moves the end of a page's selection.
#pragma once

#include "view/html/page_viewport.h"
#include "view/view_pane.h"

// Nothing for a key that moves none. `lineHeight` is the usual one, in device pixels.
std::optional<TextPos> TargetOfKey(const PageViewport& view, TextPos caret, PaneKey key,
                                   bool control, int lineHeight);
