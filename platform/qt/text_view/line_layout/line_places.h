// Where the characters of a line are drawn, and where the caret stands in front of them. Positions
// are relative to the layout, x to the line's left edge. A character is one with its marks (a
// grapheme cluster).
#pragma once

#include "platform/line_layout.h"

#include <QTextLayout>

#include <optional>
#include <vector>

class LinePlaces {
  public:
    // A line of one direction, that of its paragraph, is asked for single characters; of others all
    // are asked for at once, which takes quadratic time in their number.
    LinePlaces(QTextLayout& layout, const QTextLine& line, bool isUnidirectional);

    bool IsUnidirectional() const { return isUnidirectional_; }
    int TextEnd() const { return textEnd_; } // where trailing spaces start, which are not seen
    double Width() const;                    // of the text
    double CaretX(int at) const;             // after the text its end
    TextExtent ExtentOf(int at) const;
    std::vector<TextExtent> Extents(int from, int to) const; // from left to right
    int CharacterAt(double x) const;                         // the nearest one that has a width
    int CaretAt(double x) const; // the nearest one; the first of several
    // Starts of the characters, by the x of their carets; those at the same x in the direction of
    // the paragraph.
    std::vector<int> CaretOrder() const;

  private:
    struct Character {
        int start = 0;
        double caret = 0;
        TextExtent extent;
        bool rightToLeft = false, isTab = false;
    };

    void Place();
    bool IsStretched() const;
    double DrawnWidth() const; // from the line's left edge, without what is not drawn
    std::optional<bool> DrawnRightToLeft(int at) const; // none: it is not drawn
    void MoveAfterCutItem();
    std::size_t StartOfLastItem() const;
    void JoinLigatures();
    void SetOrder();
    void JoinNeighbours();
    void DropSpaces();
    void SetEnds();
    const Character* At(int at) const;
    double QueryCaret(int at) const;
    double Along(int at) const;
    int FirstAlong(double distance) const;
    int CharacterAlong(double distance) const;
    int CaretAlong(double distance) const;

    QTextLayout& layout_;
    QTextLine line_;
    bool isUnidirectional_ = false;
    int drawnEnd_ = 0; // what is after it has its width beside the line
    int textEnd_ = 0;
    double origin_ = 0;                 // of the text, right of spaces that are not drawn
    std::vector<Character> characters_; // in the order of the text; none if unidirectional
    std::vector<std::size_t> order_;    // of those, from left to right
    double endCaret_ = 0;
};
