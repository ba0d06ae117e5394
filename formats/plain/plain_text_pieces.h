// Cutting the bytes of a plain text where each piece decodes by itself, to just its part of the
// whole text.
#pragma once

#include "formats/plain/plain_text.h"

// `bytes` begin where a piece does and go on after it for `PieceLookahead` bytes, or to the end of
// the file. The piece ends at `wanted` or further, within no character, no surrogate pair, no line
// end, and no line in visual order.
constexpr std::size_t characterLookahead = 16;
std::size_t PieceLookahead(const PlainTextForm& form);
std::size_t PieceEnd(const PlainTextForm& form, std::string_view bytes, std::size_t wanted);

// The same but for visual order, for which `characterLookahead` is enough.
std::size_t CharactersEnd(const PlainTextForm& form, std::string_view bytes, std::size_t wanted);

// The text of a piece, each line end one u'\n'.
std::u16string DecodePiece(const PlainTextForm& form, std::string_view piece);

// The length of that text, faster than by decoding; and whether the bytes are UTF-8.
struct PieceMeasure {
    std::size_t units = 0;
    bool ascii = false, utf8 = false;
};
PieceMeasure Measure(const PlainTextForm& form, std::string_view piece);
