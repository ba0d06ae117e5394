// Searches of screen readers, which must not take long.
#pragma once

#include "common/find_text.h"
#include "view/caret_moves.h"

#include <optional>
#include <string_view>

// The first or the last place within the span, of which the first or the last 16 M units are looked
// through.
std::optional<TextSpan> FindIn(const TextSource& text, TextSpan span, std::u16string_view what,
                               FindOptions options, bool backward);
