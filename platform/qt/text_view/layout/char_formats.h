// From the document's character styles and the view's look to what a QTextLayout is given.
#pragma once

#include "formats/document.h"
#include "platform/qt/text_view/layout/view_style.h"

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

// The colour of text that has none of its own.
QColor PlainTextColor(const ViewLook& look, const QPalette& palette);

class CharFormats {
  public:
    // All are observed. `Reset` when one of them has changed.
    CharFormats(const Document& document, const ViewLook& look, const QPalette& palette);
    void Reset();
    void ForgetFonts(); // which the text so far was shown in

    // What holds at one character, and the runs between two, which count from `start`.
    const QTextCharFormat& FormatAt(TextPos position);
    QList<QTextLayout::FormatRange> Ranges(TextPos start, TextPos end);

  private:
    using FontKey = std::tuple<std::uint16_t, std::uint16_t, bool, bool>;

    const QTextCharFormat& Format(std::uint32_t style);
    QTextCharFormat FormatFor(const CharStyle& style);
    QTextCharFormat MakeFormat(const CharStyle& style);
    CharStyle WithinBounds(CharStyle style);
    const std::u16string& Family(const CharStyle& style) const;
    QFont StyleFont(const CharStyle& style);
    std::optional<QColor> Foreground(const CharStyle& style) const;

    const Document& document_;
    const ViewLook& look_;
    const QPalette& palette_;
    std::vector<std::optional<QTextCharFormat>> formats_;       // by style, made when first needed
    std::optional<std::pair<CharStyle, QTextCharFormat>> last_; // made
    std::set<FontKey> fonts_;                                   // of the document, used so far
    std::set<std::uint16_t> families_;                          // likewise
};
