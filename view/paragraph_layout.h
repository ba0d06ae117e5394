// One paragraph laid out in lines.
#pragma once

#include "view/geometry.h"
#include "view/layout_context.h"
#include "view/paragraph_box.h"

#include <algorithm>
#include <memory>
#include <vector>

struct PlacedPicture {
    TextPos position = 0;
    Size size;
};

struct PlacedLine {
    int top = 0; // the lines tile the paragraph including its spacing
    int left = 0, baseline = 0;
};

struct ParagraphLayout {
    TextPos start = 0, end = 0; // without the paragraph break
    std::size_t cell = 0;       // index in its table row
    Point origin;               // relative to the block
    int width = 0, height = 0;
    int spaceBefore = 0, spaceAfter = 0; // of the first and the last line
    bool continues = false;              // the same paragraph is continued by the next layout
    bool rightToLeft = false;
    std::size_t runs = 0;          // of styles
    std::vector<PlacedLine> lines; // relative to the origin
    std::vector<PlacedPicture> pictures;
    ParagraphBox box;
    std::unique_ptr<TextLines> text;

    int LineCount() const { return int(lines.size()); }
    TextPos LineStart(int line) const { return start + text->Line(line).start; }
    TextPos LineEnd(int line) const { return start + text->Line(line).end; }
    int LineOf(TextPos position) const;
    int LineTop(int line) const { return lines[std::size_t(line)].top; }
    int LineBottom(int line) const { return line + 1 < LineCount() ? LineTop(line + 1) : height; }
    int TopWithoutSpace(int line) const { return line == 0 ? spaceBefore : LineTop(line); }
    int BottomWithoutSpace(int line) const;
    // The last caret position in a line: in a wrapped line the position after the last character
    // is already in the next line.
    TextPos LastCaretPosition(int line) const;
    double X(int line, TextPos position) const; // of the caret, relative to the origin
    // The caret position nearest to `x`, and the character at `x`, both relative to the origin.
    TextPos PositionInLine(int line, int x) const;
    TextPos CharacterInLine(int line, double x) const;
    // Of the characters' glyphs or their picture.
    Rect CharacterBox(int line, TextPos position) const;
    Rect PictureBox(const PlacedPicture& picture) const;
    // Adjacent caret positions in the paragraph; the same at its ends.
    TextPos NextCaretPosition(TextPos at) const { return start + text->NextPosition(at - start); }
    TextPos PreviousCaretPosition(TextPos at) const {
        return start + text->PreviousPosition(at - start);
    }
};

ParagraphLayout LayOutParagraph(const LayoutContext& context, const ParagraphPart& part);
