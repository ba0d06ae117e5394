// Converts the document's character styles, with the style of the view, to QTextCharFormat.
#pragma once

#include "formats/document.h"
#include "platform/shared/view_style.h"

#include <QFont>
#include <QPalette>
#include <QTextLayout>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

QFont MakeFont(const ViewFont& font);

// The colour of text without a colour of its own.
QColor PlainTextColor(const ViewStyle& viewStyle, const QPalette& palette);

class CharFormats {
  public:
    // The arguments must outlive this object. Call `Reset` when one of them has changed.
    CharFormats(const Document& document, const ViewStyle& viewStyle, const QPalette& palette);
    void Reset();
    void ClearFonts(); // for a new text; see the limits in char_formats.cpp

    // Ranges are relative to `start`.
    const QTextCharFormat& FormatAt(TextPos position);
    QList<QTextLayout::FormatRange> Ranges(TextPos start, TextPos end);

  private:
    using FontKey = std::tuple<std::uint16_t, std::uint16_t, bool, bool>;

    const QTextCharFormat& Format(std::uint32_t style);
    QTextCharFormat FormatFor(const CharStyle& style);
    QTextCharFormat MakeFormat(const CharStyle& style);
    CharStyle WithFontLimit(CharStyle style);
    const std::u16string& Family(const CharStyle& style) const;
    QFont StyleFont(const CharStyle& requested);
    std::optional<QColor> Foreground(const CharStyle& style) const;

    const Document& document_;
    const ViewStyle& viewStyle_;
    const QPalette& palette_;
    std::vector<std::optional<QTextCharFormat>> formats_; // indexed by style; created on demand
    std::optional<std::pair<CharStyle, QTextCharFormat>> lastFormat_; // the last one created
    std::set<FontKey> fonts_;                                         // in use, of the document
    std::set<std::uint16_t> families_;
};
