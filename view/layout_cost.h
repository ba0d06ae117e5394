// Estimates the work to lay out a text by counting its costly units, which take many times the time
// or memory of a letter in a book: a run of one letter, a picture, a tab, a character outside the
// BMP or in no font, the tail of a long cluster (marks, joiners, zero-width characters), a change
// of direction by a control, and a word that is too long to break.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"

#include <string_view>

// Position within the current grapheme cluster.
class ClusterLength {
  public:
    // Returns the number of units before `character` in its cluster; 0 if it starts one.
    int Add(char32_t character);

  private:
    int units_ = 0;
    bool joinsNext_ = false;
};

// Longer clusters are truncated for shaping. The longest emoji sequences have some twenty units,
// and stream-safe text has at most 30 marks per letter.
constexpr int maxClusterLength = 32;
// Shaping a cluster takes quadratic time: what is after its beginning becomes units that show
// nothing, as many as there were.
void TruncateClusters(std::u16string& text);

TextPos CostlyUnits(const TextSource& text, const Document& document, TextPos start, TextPos end);

// Whether so many units before `position` are costly that a paragraph is cut there. Books have runs
// of a word or two and are not dense.
constexpr TextPos densePiece = 2 * 1024;
bool IsDense(std::u16string_view piece);
bool IsDenseBefore(const TextSource& text, const Document& document, TextPos position);
