// Lays out the whole text, from its start to its end.
#pragma once

#include "tests/contract/qt/reference_view/reference_paragraph.h"

struct ReferenceBuilder {
    const ReferenceSettings& settings;
    ReferenceText whole;
    TextPos at = 0; // start of the next block

    TextPos Size() const { return TextPos(settings.text.size()); }
    void Everything();
    // Appends the lines of the part, in as many layouts as it takes.
    void Add(const ReferencePart& part, QPoint origin, QRect cell, bool hidden);
    void EndBlock(TextPos end, int height);

  private:
    bool Paragraph();
    void Piece(TextPos start, TextPos end, bool first, bool last);
    TextPos Cut(TextPos grid) const;
};
