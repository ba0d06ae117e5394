// Another charset for a plain text: its bytes are decoded again, and places move to the same bytes.
#pragma once

#include "formats/plain/plain_text_source.h"

#include <memory>
#include <vector>

// Positions in the text of `file` in one form, as those of the same bytes in `to`.
void MovePlaces(std::vector<TextPos>& places, const std::shared_ptr<const FileReader>& file,
                const PlainTextForm& fromForm, const PlainTextSource& to);
