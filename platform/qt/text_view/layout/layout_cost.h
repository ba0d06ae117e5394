// How much work a stretch of text is to lay out, told by its heavy units: those that cost many
// times what a letter of a book does, in time or in memory. A letter of a run of its own, a
// picture, a tab, a character of two units or of no font, and what piles up on one place (marks,
// joined characters, characters without a width) or lets a line break nowhere.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"

#include <QChar>

// Counts the units since the last character that stands by itself.
class ClusterLength {
  public:
    // Tells how many units are in front of `character` in its cluster; 0 where it begins one.
    int Add(char32_t character);

  private:
    int units_ = 0;
    bool joinsNext_ = false;
};

// More units of a cluster than this are not shaped together. The longest sequences of emoji have
// some twenty, and stream-safe text at most 30 marks on a letter.
constexpr int maxClusterLength = 32;

TextPos HeavyUnits(const TextSource& text, const Document& document, TextPos start, TextPos end);

// Whether so many of the units just before a place are heavy that a paragraph is cut there. Books
// have runs of a word or two, so theirs are not.
constexpr TextPos densePiece = 2 * 1024;
bool IsDenseBefore(const TextSource& text, const Document& document, TextPos place);
