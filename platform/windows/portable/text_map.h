// Which position of a book's text is which position of a control that shows it, where the control
// keeps marks of its own (around the rows of tables) or left something out (a picture).
#pragma once

#include "common/geometry.h"

#include <string>
#include <string_view>
#include <vector>

class TextMap {
  public:
    TextMap() = default; // the same positions in both
    // Matches the two from their start; what only one of them holds is skipped. Work is limited: of
    // texts that have little in common the rest counts as the same.
    TextMap(std::u16string_view book, std::u16string_view control);

    // A place that the other side leaves out is the next one that it has.
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

    std::vector<Piece> pieces_; // ascending; the last one without an end
};

// A text of "\n" breaks, unit for unit, in what the control keeps as one unit each: it would drop,
// join or give a meaning of its own to some.
std::u16string ToControlText(std::u16string_view text);
