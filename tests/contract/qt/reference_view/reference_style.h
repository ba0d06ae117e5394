// Character formats and picture sizes of the reference layout.
#pragma once

#include "tests/contract/qt/reference_view/reference_text.h"

#include <QSize>
#include <QTextLayout>

constexpr char16_t referencePlaceholder = u'\u2014'; // for a picture

const CharStyle& ReferenceCharStyle(const Document& document, TextPos position);
const ParagraphStyle& ReferenceParagraphStyle(const Document& document, TextPos position);
QFont ReferenceStyleFont(const ReferenceSettings& settings, const CharStyle& style);
QTextCharFormat ReferenceFormat(const ReferenceSettings& settings, const CharStyle& style,
                                bool smaller);
QTextCharFormat ReferencePictureFormat(const ReferenceSettings& settings, const Picture& picture,
                                       int width);

// In a line of `width` pixels.
QSize ReferencePictureSize(const ReferenceSettings& settings, const Picture& picture, int width);
