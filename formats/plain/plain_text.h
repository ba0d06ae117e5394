// Bytes of a plain-text book become text here, and nowhere else.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

enum class TextEncoding {
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
    Utf32LittleEndian,
    Utf32BigEndian,
    CodePage
};

// Line ends are as in the file; NUL and undecodable bytes are U+FFFD; there is no byte-order mark.
struct DecodedText {
    std::u16string text;
    TextEncoding encoding = TextEncoding::Utf8;
    int codePage = 0; // for TextEncoding::CodePage
};

// How the bytes of a book are text.
struct PlainTextForm {
    TextEncoding encoding = TextEncoding::Utf8;
    int codePage = 0;           // for TextEncoding::CodePage
    std::size_t markLength = 0; // of the byte-order mark, in bytes
};

// In this order: a byte-order mark; the sequences of ISO-2022; UTF-16 and UTF-32 without a mark;
// valid UTF-8; `bookCodePage` when it is not 0; the guessed charset, `systemCodePage`
// in doubt. A `bookCodePage` of Windows stands for its script: the guess
// decides among its charsets.
DecodedText DecodePlainText(std::string_view bytes, int bookCodePage, int systemCodePage);

// The same in steps, for bytes that memory does not hold as a whole. First what a mark or zero
// bytes at the start show; when that is nothing, the text is UTF-8 if all bytes are, else
// CodePageForm decides by the samples at SamplePlaces.
std::optional<PlainTextForm> MarkedForm(std::string_view start);
PlainTextForm CodePageForm(std::span<const std::string_view> samples, int bookCodePage,
                           int systemCodePage);

// Bytes without the mark, all or a part that decodes by itself. Line ends stay; lines of a page in
// visual order come in logical order (visual_lines.h).
std::u16string DecodeAs(const PlainTextForm& form, std::string_view bytes);
