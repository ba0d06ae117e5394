// One paragraph laid out in lines.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"
#include "platform/qt/text_view/layout/char_formats.h"
#include "platform/qt/text_view/layout/picture_store.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <vector>

// What every layout of a text depends on. All is observed. Pixels are the screen's own, whatever
// the scale of the widgets: so lines, borders and pictures lie on whole ones.
struct LayoutContext {
    const Document& document; // styles, rows and pictures; its own text may not be what is shown
    const ViewLook& look;
    CharFormats& formats;
    PictureStore& pictures;
    const TextSource* text = nullptr;
    QPaintDevice* device = nullptr; // gives fonts their resolution
    bool plain = true;              // plain text: the view's font holds, directions are found out
    int viewWidth = 1;              // pixels; lines are aligned in it
    int breakWidth = 1;             // pixels; lines break at it
    double pixelsPerTwip = 96.0 / 1440;

    // Of a measure that a file gives: kept within what a page can hold.
    int Pixels(std::int32_t twips) const;
    int Hairline() const { return std::max(1, Pixels(15)); } // how thick thin lines are
};

struct PlacedPicture {
    TextPos position = 0;
    QSize size;
};

struct ParagraphLayout {
    TextPos start = 0, end = 0; // without the paragraph break
    std::size_t cell = 0;       // index in its table row
    QPoint origin;              // of the layout's coordinates, in its block
    int width = 0;
    // The lines tile the paragraph from top to bottom, its spacing included: line i goes from
    // tops[i] to tops[i + 1]. Measured from the origin.
    std::vector<int> tops;
    int spaceBefore = 0, spaceAfter = 0; // of the first and the last line
    bool continues = false;              // what comes next is of the same paragraph
    std::vector<PlacedPicture> pictures;
    std::vector<QFont> fonts; // held for the text
    std::unique_ptr<QTextLayout> text;

    int Height() const { return tops.back(); }
    int LineCount() const { return int(tops.size()) - 1; }
    TextPos LineStart(int line) const { return start + text->lineAt(line).textStart(); }
    TextPos LineEnd(int line) const; // where the next line starts, or `end`
    int LineOf(TextPos position) const;
    QRect PictureBox(const PlacedPicture& picture) const; // measured from the origin
    // Of the caret in a line: where the paragraph goes on, the place behind the line's last
    // character is already in the next one.
    TextPos LastPlace(int line) const;
    TextPos BlanksStart(int line) const; // of those at a wrapped line's end; else where it ends
    int TopWithoutSpace(int line) const { return line == 0 ? spaceBefore : tops[line]; }
    int BottomWithoutSpace(int line) const;
    bool IsRightToLeft() const { return text->textOption().textDirection() == Qt::RightToLeft; }
    QRectF TextBox(int line) const;             // of its text, without the blanks at its end
    double X(int line, TextPos position) const; // where the caret stands, measured from the origin
    // The caret's place in a line that is nearest to `x`, measured from the origin, and the
    // character that is drawn there.
    TextPos PositionInLine(int line, int x) const;
    TextPos CharacterInLine(int line, double x) const;
    // The next place of the caret in the paragraph and the one before; the same at its ends.
    TextPos NextPlace(TextPos at) const { return start + text->nextCursorPosition(at - start); }
    TextPos PlaceBefore(TextPos at) const {
        return start + text->previousCursorPosition(at - start);
    }
};

struct ParagraphPart {
    TextPos start = 0, end = 0;     // without the paragraph break
    bool first = true, last = true; // false inside an over-long paragraph
    int breakWidth = 1, alignWidth = 1;
    std::optional<bool> rightToLeft = {}; // none: as the paragraph says
};

// More than one, each below the last, where other lines than the first have tabs.
std::vector<ParagraphLayout> LayOutParagraph(const LayoutContext& context,
                                             const ParagraphPart& part);
