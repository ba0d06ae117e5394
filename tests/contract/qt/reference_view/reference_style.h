// How characters and pictures of a text look that is laid out as a whole.
#pragma once

#include "tests/contract/qt/reference_view/reference_text.h"

#include <QSize>
#include <QTextLayout>

constexpr char16_t wholeStandIn = u'\u2014'; // for a picture

const CharStyle& WholeCharStyle(const Document& document, TextPos position);
const ParagraphStyle& WholeParagraphStyle(const Document& document, TextPos position);
QFont WholeStyleFont(const WholeSetting& setting, const CharStyle& style);
QTextCharFormat WholeFormat(const WholeSetting& setting, const CharStyle& style, bool smaller);
QTextCharFormat WholePictureFormat(const WholeSetting& setting, const Picture& picture, int width);

// As it is shown in a line of `width` pixels.
QSize WholePictureSize(const WholeSetting& setting, const Picture& picture, int width);
