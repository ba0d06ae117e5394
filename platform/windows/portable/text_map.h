// Maps positions between a book's text and a rich-edit control, which adds marks of its own (around
// table rows) and omits some characters (pictures).
#pragma once

#include "common/geometry.h"

#include <string>
#include <string_view>
#include <vector>

class TextMap {
  public:
    TextMap() = default; // identity
    // Aligns the two texts from the start. Bounded: when they have little in common, the rest is
    // mapped one to one.
    TextMap(std::u16string_view book, std::u16string_view control);

    // An omitted position maps to the next one that exists.
    TextPos ToControl(TextPos position) const;
    TextPos ToBook(TextPos position) const;

  private:
    struct Piece {
        TextPos book, control, length;
    };
    struct Gap {
        TextPos book, control;
    };

    static Gap FindGap(std::u16string_view book, std::u16string_view control, int& tries);
    static TextPos Map(const std::vector<Piece>& pieces, TextPos position, TextPos Piece::*from,
                       TextPos Piece::*to);

    std::vector<Piece> pieces_; // ascending; the last is unbounded
};

// Plain text with "\n" breaks as the control accepts it, unit for unit: it would drop, join or
// interpret some characters.
std::u16string ToControlText(std::u16string_view text);
