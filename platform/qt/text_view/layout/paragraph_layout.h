// One paragraph laid out in lines.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"
#include "platform/qt/text_view/layout/char_formats.h"
#include "platform/qt/text_view/layout/paragraph_box.h"
#include "platform/qt/text_view/layout/picture_store.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <vector>

// What the layout of a text depends on; all members must outlive it. Pixels are device pixels at
// any scale factor, so that lines, borders and pictures are sharp.
struct LayoutContext {
    const Document& document; // styles, rows and pictures; its text may not be the one displayed
    const ViewStyle& viewStyle;
    CharFormats& formats;
    PictureStore& pictures;
    const TextSource* text = nullptr;
    QPaintDevice* device = nullptr; // provides the font resolution
    bool plain = true;              // plain text: the view's font, and directions by content
    int viewWidth = 1;              // pixels; lines are aligned to it
    int breakWidth = 1;             // pixels; lines are broken at it
    double pixelsPerTwip = 96.0 / 1440;

    // Limits a measure from a file to what a page can hold.
    int Pixels(std::int32_t twips) const;
    int Hairline() const { return std::max(1, Pixels(15)); } // width of thin lines
};

struct PlacedPicture {
    TextPos position = 0;
    QSize size;
};

struct ParagraphLayout {
    TextPos start = 0, end = 0; // without the paragraph break
    std::size_t cell = 0;       // index in its table row
    QPoint origin;              // of the layout's coordinates, relative to the block
    int width = 0;
    // The lines tile the paragraph including its spacing: line i reaches from tops[i] to tops[i +
    // 1]. Relative to the origin.
    std::vector<int> tops;
    int spaceBefore = 0, spaceAfter = 0; // of the first and the last line
    bool continues = false;              // the same paragraph is continued by the next layout
    std::vector<PlacedPicture> pictures;
    ParagraphBox box;
    std::vector<QFont> fonts; // pinned for the text
    std::unique_ptr<QTextLayout> text;

    int Height() const { return tops.back(); }
    int LineCount() const { return int(tops.size()) - 1; }
    TextPos LineStart(int line) const { return start + text->lineAt(line).textStart(); }
    TextPos LineEnd(int line) const; // where the next line starts, or `end`
    int LineOf(TextPos position) const;
    QRect PictureBox(const PlacedPicture& picture) const; // relative to the origin
    // The last caret position in a line: in a wrapped line the position behind the last character
    // is already in the next line.
    TextPos LastCaretPosition(int line) const;
    TextPos TrailingSpacesStart(int line) const; // of a wrapped line; otherwise its end
    int TopWithoutSpace(int line) const { return line == 0 ? spaceBefore : tops[line]; }
    int BottomWithoutSpace(int line) const;
    bool IsRightToLeft() const { return text->textOption().textDirection() == Qt::RightToLeft; }
    QRectF TextBox(int line) const;             // without trailing spaces
    double X(int line, TextPos position) const; // of the caret, relative to the origin
    // The caret position nearest to `x`, and the character at `x`, both relative to the origin.
    TextPos PositionInLine(int line, int x) const;
    TextPos CharacterInLine(int line, double x) const;
    // Adjacent caret positions in the paragraph; the same at its ends.
    TextPos NextCaretPosition(TextPos at) const {
        return start + text->nextCursorPosition(at - start);
    }
    TextPos PreviousCaretPosition(TextPos at) const {
        return start + text->previousCursorPosition(at - start);
    }
};

struct ParagraphPart {
    TextPos start = 0, end = 0;     // without the paragraph break
    bool first = true, last = true; // false inside an over-long paragraph
    int breakWidth = 1, alignWidth = 1;
    std::optional<bool> rightToLeft = {}; // none: as the style says
    bool inCell = false, beginsCell = false;
};

// More than one, each below the last, if lines after the first have tabs.
std::vector<ParagraphLayout> LayOutParagraph(const LayoutContext& context,
                                             const ParagraphPart& part);
