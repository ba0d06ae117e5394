// Lays out the whole text, from its start to its end.
#pragma once

#include "tests/contract/reference_view/reference_paragraph.h"

struct ReferenceBuilder {
    const ReferenceSettings& settings;
    ReferenceText whole;
    TextPos at = 0; // start of the next block

    TextPos Size() const { return TextPos(settings.text.size()); }
    void Everything();
    // Appends the lines of the part. No cell: outside tables.
    void Add(const ReferencePart& part, Point origin, std::optional<Rect> cell, bool hidden);
    void EndBlock(TextPos end, int height);

  private:
    bool Paragraph();
    void Piece(TextPos start, TextPos end, bool first, bool last);
    TextPos Cut(TextPos grid) const;
};

// Of table rows: reference_rows.cpp.
// Whether it is laid out as a row; otherwise as paragraphs.
bool IsReferenceRow(const TableRow& row);

// `index` is the first row of a block; adds the rows that share cells with it, too.
void AddReferenceRows(ReferenceBuilder& maker, std::size_t index);
