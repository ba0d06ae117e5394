// The port of line layout: the system's fonts and scripts. It shapes the text of one paragraph,
// breaks it into lines, and answers where each character is. Positions are UTF-16 units from the
// paragraph's start; lengths are device pixels.
#pragma once

#include "common/tab_stop.h"
#include "platform/canvas.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct TextFont {
    std::u16string family; // one that is not installed gives the nearest; "" is the system's own
    double points = 10;
    bool bold = false, italic = false;
    // Of a size between two that the system has letters are drawn in the nearer one, but stand as
    // far apart as in this one, where the back end can.
    bool exactSize = false;
    bool operator==(const TextFont&) const = default;
};

// What a text may ask for where it names no family.
enum class GenericFamily { Serif, SansSerif, Monospace, Cursive, Fantasy, SystemUi };

enum class TextBaseline { Normal, Superscript, Subscript }; // the last two in smaller letters

struct TextStyle {
    TextFont font;
    bool underline = false, strikethrough = false, overline = false;
    TextBaseline baseline = TextBaseline::Normal;
    // Pixels by which each character, and besides each space between words, is wider, on one side
    // of it; negative ones make narrower. Of several spaces in a row at least the last one; a mark
    // may count as a character.
    double letterSpacing = 0, wordSpacing = 0;
    // Pixels of the text above the baseline, in letters of the font's own size. The line's ascent
    // and descent are as if it stood on it.
    double raise = 0;
    std::optional<Color> color;      // none: the one that is drawn with
    std::optional<Color> background; // none: nothing is filled
    bool operator==(const TextStyle&) const = default;
};

// A style as the back end has prepared it, with its font opened. Belongs to the LineLayout that
// made it.
class PreparedStyle {
  public:
    virtual ~PreparedStyle() = default;
};
using StyleHandle = std::shared_ptr<const PreparedStyle>;

struct FontMetrics {
    double ascent = 0, descent = 0; // of a line, both positive
    double leading = 0;             // between two lines
    double spaceWidth = 0;
    double Height() const { return ascent + descent; }
};

struct StyledRun {
    TextPos start = 0; // up to the next run's, or to the end
    StyleHandle style;
};

// A place in the line that is left empty, for a picture. Its unit of the text is not drawn; a line
// may break on both sides of it, but not beside U+2060, and it has no direction.
struct InlineBox {
    TextPos at = 0;
    int width = 0;
};

struct ParagraphText {
    std::u16string text; // without the paragraph's break; U+2028 breaks a line
    // Ascending, the first at 0; never empty. One that starts at the text's end is of an empty
    // line.
    std::vector<StyledRun> runs;
    std::vector<InlineBox> boxes; // ascending
    bool rightToLeft = false;     // the direction of the paragraph; within it the text has its own
    // Lines with spaces between words and no tab fill the width, but for the last one and those
    // before a line break.
    bool justified = false;
    // Lines break at `width` without the indent, between words, or anywhere if a word is longer.
    // The indent is at the start edge, which is the right one from right to left.
    int width = 1;
    int firstIndent = 0, indent = 0; // of the first line and of the others
    // From the start edge (not from the indent), ascending. A tab reaches to the next one that is
    // at least a pixel away. One that is not Left stays with the text that stands at it, as far as
    // that has room in a line: the line breaks in front of the tab, not after it.
    // In a line after a wrapped one a tab reaches to the last stop that is not Left.
    std::vector<TabStop> tabStops;
    double tabDistance = 48; // of those after the last one, as multiples from the start edge
};

// One line of a paragraph. 0 is the left edge of its visible text for all x. Trailing spaces of a
// line that was wrapped are not visible: they have no width, and the caret stays at the text's end.
struct TextLine {
    TextPos start = 0, end = 0; // the next line starts at `end`
    // The largest of the line's fonts; boxes do not count.
    double ascent = 0, descent = 0, leading = 0;
    // Of what is visible. It may include what the last letter's ink reaches beyond its advance.
    double width = 0;
    bool justified = false; // the width is the whole one, less the indent
};

struct TextExtent {
    double left = 0, right = 0;
};

struct LinePaint {
    Color text = 0;                     // for styles without a colour
    bool oneColor = false;              // for all styles, and no background is filled
    Rect clip = {};                     // nothing is drawn outside
    std::span<const Rect> within = {};  // not empty: nothing is drawn outside of these either
    std::span<const Rect> without = {}; // nothing is drawn inside of these
};

// A paragraph in lines; there is at least one. Positions outside the line asked for are moved into
// it.
class TextLines {
  public:
    virtual ~TextLines() = default;

    virtual int Count() const = 0;
    virtual const TextLine& Line(int index) const = 0;

    // The caret in front of the character: between two directions, where that character begins.
    virtual double CaretX(int line, TextPos position) const = 0;
    // The nearest place for the caret; of a wrapped line not its end, which is the next one's
    // start.
    virtual TextPos PositionAt(int line, double x) const = 0;
    // The start of the character (of all its units and marks) that is drawn at `x`, or nearest to
    // it.
    virtual TextPos CharacterAt(int line, double x) const = 0;
    // What the character that starts at the position covers; a tab covers its gap, a break and a
    // trailing space nothing.
    virtual TextExtent CharacterExtent(int line, TextPos position) const = 0;
    // What the characters cover, as one stretch for each direction that changes; not sorted, not
    // empty ones.
    virtual std::vector<TextExtent> Extents(int line, TextPos start, TextPos end) const = 0;

    // Places for the caret: between characters with all their marks (grapheme clusters). The same
    // at an end of the text.
    virtual TextPos NextPosition(TextPos position) const = 0;
    virtual TextPos PreviousPosition(TextPos position) const = 0;
    bool IsPosition(TextPos position) const {
        return position == 0 || NextPosition(PreviousPosition(position)) == position;
    }
    // The place of the caret that is seen to the left or right; the same where the text ends there.
    // After an end of a line comes the line before or after.
    virtual TextPos LeftOf(TextPos position) const = 0;
    virtual TextPos RightOf(TextPos position) const = 0;
    // Starts of words (for Ctrl and an arrow); the same at an end of the text.
    virtual TextPos NextWord(TextPos position) const = 0;
    virtual TextPos PreviousWord(TextPos position) const = 0;
    // The word, or a stretch between words, that a position is in (for a double click); of the
    // text's end the last one.
    virtual CharSpan WordAt(TextPos position) const = 0;

    // At the left edge and the baseline of what is visible; with the leaders of its tabs.
    virtual void Draw(Canvas&, int line, int left, int baseline, const LinePaint&) const = 0;
};

class LineLayout {
  public:
    virtual ~LineLayout() = default;

    // Pixels per inch. What was prepared before is not to be used any more.
    virtual void SetResolution(double dpi) = 0;
    // Whether the family is there, in letters of any case, or another one that the system has in
    // its place because its letters are as wide. A font installed later need not be found.
    virtual bool IsInstalled(std::u16string_view family) = 0;
    // The family that browsers of the system use for it, or what comes nearest. It is installed.
    virtual std::u16string FamilyOf(GenericFamily) = 0;
    virtual StyleHandle Prepare(const TextStyle&) = 0;
    virtual FontMetrics Metrics(const PreparedStyle&) const = 0;
    virtual std::unique_ptr<TextLines> BreakLines(const ParagraphText&) = 0;
};
