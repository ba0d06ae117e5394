// The line of a plain text by which a charset is best judged.
#pragma once

#include "formats/plain/plain_text.h"

#include <span>
#include <string>
#include <string_view>

// The bytes of the line with the most letters that are not ASCII in `form`, many of a kind counted
// as few: a ruled line has no letters but in a wrong charset. Of a long line a stretch, near the
// first of them. The samples are the start of the text and others from within it.
std::string DistinctiveLine(std::span<const std::string_view> samples, const PlainTextForm& form);
