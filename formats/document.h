// A styled text: what the RTF reader makes, what a view of our own shows and what the RTF writer
// writes.
//
// The text is UTF-16. u'\n' ends a paragraph, u'\v' breaks a line inside one, u'\t' is a tab,
// U+FFFC stands for a picture. In a table every cell ends with U+0007 (it ends the cell's last
// paragraph) and every row with one u'\n' of its own after its last cell.
#pragma once

#include "common/geometry.h"
#include "common/tab_stop.h"

#include <cstdint>
#include <string>
#include <vector>

enum class Script : std::uint8_t { Normal, Superscript, Subscript };

// Shown as capitals; the text itself stays as written.
enum class Capitals : std::uint8_t { AsWritten, All, Small };

struct CharStyle {
    std::uint16_t font = 0; // index in Document::fonts
    std::uint16_t halfPoints = 24;
    Color foreground = 0, background = 0;
    bool autoForeground = true, autoBackground = true; // none given: the reader's own
    bool bold = false, italic = false, underline = false, strikethrough = false;
    bool rightToLeft = false;
    Script script = Script::Normal;
    Capitals capitals = Capitals::AsWritten;
    std::uint16_t link = 0; // 1-based index in Document::links, 0 for none
    bool operator==(const CharStyle&) const = default;
};

// A line along one side of a paragraph; a width of 0 is none. Twips.
struct ParagraphBorder {
    std::uint16_t width = 0, space = 0; // `space` is between the line and the text
    Color color = 0;
    bool autoColor = true; // the reader's own
    bool operator==(const ParagraphBorder&) const = default;
};

// Neighbours with the same borders and indents are in one box: its top is the first one's, its
// bottom the last one's, and `between` is drawn from one to the next.
struct ParagraphBorders {
    ParagraphBorder left, top, right, bottom, between;
    bool operator==(const ParagraphBorders&) const = default;
};

struct ParagraphStyle {
    Alignment alignment = Alignment::Left;
    bool rightToLeft = false;
    // Twips; the first line's is relative to the left one.
    std::int32_t leftIndent = 0, rightIndent = 0, firstLineIndent = 0;
    std::int32_t spaceBefore = 0, spaceAfter = 0;
    std::int32_t lineSpacing = 0;       // twips; 0 single, < 0 exactly, > 0 at least
    bool lineSpacingIsMultiple = false; // it is then in 240ths of a line
    std::vector<TabStop> tabStops;      // twips from the start edge, ascending
    ParagraphBorders borders;
    Color background = 0;
    bool autoBackground = true;    // none
    std::uint8_t outlineLevel = 0; // of a heading 1 to 9, the highest first; 0: it is none
    bool operator==(const ParagraphStyle&) const = default;
};

// From `start` up to the next run's start (or the end of the text) the style of this index holds.
// A paragraph has the style that holds at its terminating character.
struct StyleRun {
    TextPos start = 0;
    std::uint32_t style = 0;
};

// A document has the first four and Other, a page the others, too, but no metafiles.
enum class PictureFormat : std::uint8_t { Png, Jpeg, Wmf, Emf, Other, Gif, WebP, Bmp, Ico, Svg };

struct Picture {
    TextPos position = 0; // of its U+FFFC
    PictureFormat format = PictureFormat::Other;
    std::int32_t widthTwips = 0, heightTwips = 0; // display size; 0 when the file gives none
    std::string bytes;                            // the image file; empty for Other
    std::u16string file;          // names the image file while that is not read, as the text has it
    std::uint8_t orientation = 1; // by which it is turned for the screen, as Exif numbers it
};

enum class VerticalAlignment : std::uint8_t { Top, Center, Bottom };

struct TableCell {
    TextPos start = 0, end = 0;   // `end` is just past its U+0007
    std::int32_t rightEdge = 0;   // twips from the row's left edge
    std::uint16_t columnSpan = 1; // cells merged into this one horizontally
    bool mergedAbove = false;     // belongs to the cell above; its own text is not shown
    VerticalAlignment verticalAlignment = VerticalAlignment::Top;
    bool borderLeft = false, borderTop = false, borderRight = false, borderBottom = false;
    Color background = 0;
    bool autoBackground = true;
};

struct TableRow {
    TextPos start = 0, end = 0; // `end` is just past the row's u'\n'
    std::int32_t leftEdge = 0;  // twips, may be negative
    std::int32_t cellGap = 0;   // twips, half the space between cells
    bool rightToLeft = false;
    std::vector<TableCell> cells; // in logical order
};

struct Document {
    std::u16string text;
    std::vector<std::u16string> fonts{u""}; // 0 is the document's default; "" is the reader's own
    std::vector<CharStyle> charStyles{CharStyle{}};
    std::vector<ParagraphStyle> paragraphStyles{ParagraphStyle{}};
    std::vector<StyleRun> charRuns{StyleRun{}};      // ascending starts, the first at 0
    std::vector<StyleRun> paragraphRuns{StyleRun{}}; // likewise
    std::vector<std::u16string> links;               // addresses
    std::vector<Picture> pictures;                   // ascending positions
    std::vector<TableRow> rows;                      // ascending, never nested
    std::int32_t defaultTab = 720;                   // twips
};
