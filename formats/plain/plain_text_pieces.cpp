#include "formats/plain/plain_text_pieces.h"

#include "common/decode_pieces.h"
#include "common/line_ends.h"
#include "common/sum_over_bytes.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/plain/visual_lines.h"

#include <algorithm>

namespace {
bool IsWide(TextEncoding encoding) {
    return encoding != TextEncoding::Utf8 && encoding != TextEncoding::CodePage;
}

std::size_t UnitBytes(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf16LittleEndian:
    case TextEncoding::Utf16BigEndian: return 2;
    case TextEncoding::Utf32LittleEndian:
    case TextEncoding::Utf32BigEndian: return 4;
    default: return 1;
    }
}

// Whether a text may not be cut between two wide units.
bool BelongTogether(std::u16string_view text) {
    if (text.size() != 2) return false;
    return (IsHighSurrogate(text[0]) && IsLowSurrogate(text[1])) || text == u"\r\n";
}

std::size_t WidePieceEnd(const PlainTextForm& form, std::string_view bytes, std::size_t wanted) {
    const std::size_t unit = UnitBytes(form.encoding);
    const std::size_t end = std::min((wanted + unit - 1) / unit * unit, bytes.size());
    if (end < unit || end + unit > bytes.size()) return end;
    // The two units around the end are decoded by themselves. UTF-32 has no pairs.
    const std::string_view around = bytes.substr(end - unit, 2 * unit);
    return BelongTogether(DecodeAs(form, around)) ? end + unit : end;
}

std::size_t LineEndsOfTwo(std::string_view bytes) {
    if (bytes.find('\r') == std::string_view::npos) return 0;
    return SumOverBytes(bytes.substr(0, bytes.size() - 1),
                        [](const unsigned char* at) { return (at[0] == '\r') & (at[1] == '\n'); });
}
} // namespace

std::size_t PieceLookahead(const PlainTextForm& form) {
    return characterLookahead + (IsVisualOrder(form.codePage) ? maxVisualStretch : 0);
}

std::size_t PieceEnd(const PlainTextForm& form, std::string_view bytes, std::size_t wanted) {
    if (!IsVisualOrder(form.codePage)) return CharactersEnd(form, bytes, wanted);
    std::size_t end = 0;
    while (end < wanted && end < bytes.size())
        end = VisualStretchEnd(bytes, end);
    return end;
}

std::size_t CharactersEnd(const PlainTextForm& form, std::string_view bytes, std::size_t wanted) {
    if (wanted >= bytes.size()) return bytes.size();
    if (IsWide(form.encoding)) return WidePieceEnd(form, bytes, wanted);
    const std::size_t end = form.encoding == TextEncoding::Utf8
                                ? Utf8CharacterEnd(bytes, wanted)
                                : CharacterEnd(form.codePage, bytes, wanted);
    const bool inLineEnd = end > 0 && end < bytes.size() && bytes.substr(end - 1, 2) == "\r\n";
    return inLineEnd ? end + 1 : end;
}

std::u16string DecodePiece(const PlainTextForm& form, std::string_view piece) {
    std::u16string text = DecodeAs(form, piece);
    UnifyLineEnds(text);
    return text;
}

PieceMeasure Measure(const PlainTextForm& form, std::string_view piece) {
    if (IsWide(form.encoding)) return {DecodePiece(form, piece).size()};
    PieceMeasure measure;
    measure.ascii = IsAscii(piece);
    measure.utf8 = measure.ascii || IsValidUtf8(piece);
    const bool oneUnitEach = measure.ascii || (form.encoding == TextEncoding::CodePage &&
                                               IsSingleBytePage(form.codePage));
    if (oneUnitEach)
        measure.units = piece.size() - LineEndsOfTwo(piece);
    else if (form.encoding == TextEncoding::Utf8 && measure.utf8)
        measure.units = Utf16Length(piece) - LineEndsOfTwo(piece);
    else
        measure.units = DecodePiece(form, piece).size();
    return measure;
}
