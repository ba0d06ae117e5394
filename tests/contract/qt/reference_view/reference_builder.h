// Lays out a whole text from its start to its end.
#pragma once

#include "tests/contract/qt/reference_view/reference_paragraph.h"

struct WholeMaker {
    const WholeSetting& setting;
    WholeText whole;
    TextPos at = 0; // what comes next

    TextPos Size() const { return TextPos(setting.text.size()); }
    void Everything();
    // The part's lines, below what is there, in as many layouts as it takes.
    void Add(const WholePart& part, QPoint origin, QRect cell, bool hidden);
    void EndBlock(TextPos end, int height);

  private:
    bool Paragraph();
    void Piece(TextPos start, TextPos end, bool first, bool last);
    TextPos Cut(TextPos grid) const;
};
