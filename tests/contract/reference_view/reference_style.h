// Character styles and picture sizes of the reference layout.
#pragma once

#include "tests/contract/reference_view/reference_text.h"

const CharStyle& ReferenceCharStyle(const Document& document, TextPos position);
const ParagraphStyle& ReferenceParagraphStyle(const Document& document, TextPos position);
TextStyle ReferenceTextStyle(const ReferenceSettings& settings, const CharStyle& style,
                             bool smaller);

// In a line of `width` pixels.
Size ReferencePictureSize(const ReferenceSettings& settings, const Picture& picture, int width);
