// Another script for a book in a code page: its bytes are decoded again, and places move to the
// same bytes.
#pragma once

#include "formats/plain/plain_text_source.h"

#include <memory>
#include <vector>

// Positions in the text of `file` in one code page, as those of the same bytes in `to`.
void MovePlaces(std::vector<TextPos>& places, const std::shared_ptr<const FileReader>& file,
                int fromCodePage, const PlainTextSource& to);
