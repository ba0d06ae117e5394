// What a block of a page has in its lines: text in styles, boxes and floats (CSS 2.1, 9.4.2).
// Positions are UTF-16 units of its text; lengths are device pixels.
#pragma once

#include "formats/css/css_style.h"
#include "platform/line_layout.h"
#include "view/page/float_context.h"

#include <memory>
#include <optional>
#include <vector>

enum class VerticalAlign { Baseline, BaselineMiddle, Middle, Top, Bottom };

// From `start` up to the next one.
struct InlineRun {
    TextPos start = 0;
    StyleHandle font;                 // whose height counts
    std::optional<double> lineHeight; // none: the font's own
    double raise = 0;                 // of the baseline above the block's
};

// A picture or a block in a line. The text has one unit for it.
struct InlineAtom {
    TextPos at = 0;
    double width = 0, height = 0; // with its margins
    double belowBaseline = 0;     // of the height
    VerticalAlign align = VerticalAlign::Baseline;
    double raise = 0;
};

// Units of a content, from one up to another.
struct UnitSpan {
    TextPos start = 0, end = 0;
    bool IsEmpty() const { return start >= end; }
};

// Its place in the text is before the unit at `at`; the text has none for it.
struct InlineFloat {
    TextPos at = 0;
    FloatSide side = FloatSide::Left;
    double width = 0, height = 0;               // with its margins
    bool belowLeft = false, belowRight = false; // than earlier floats of these sides
};

// From `start` up to the next one the units are those of a node of the page, one after the other,
// from this one on; of no node, they are none of the page's text.
struct InlineOrigin {
    TextPos start = 0;
    std::uint32_t node = 0;
    std::uint32_t unit = 0;
};

// A line that ends there is followed below floats.
struct InlineClear {
    TextPos at = 0;
    bool left = false, right = false;
};

// The background and the borders of an element within lines. What it takes beside its letters is in
// its units.
struct InlineDecoration {
    TextPos start = 0, end = 0;
    const CssBoxStyle* style = nullptr;
    double ascent = 0, descent = 0;    // of its font
    double raise = 0;                  // of its baseline above the block's
    bool begins = false, ends = false; // there, and not in other lines before or after
};

// The same units as they are in the first line, which may have a style of its own.
struct InlineFirstLine {
    std::u16string text; // as long as the content's
    std::vector<StyledRun> styles;
    std::vector<InlineRun> runs;
};

struct InlineContent {
    // Width and justification are set by the layout. Its boxes are `atoms`, its runs are of the
    // same text as `runs` but need not start at the same places.
    ParagraphText text;
    std::vector<InlineRun> runs;               // ascending, the first at 0
    std::vector<InlineAtom> atoms;             // ascending
    std::vector<InlineFloat> floats;           // ascending
    std::vector<InlineClear> clears;           // ascending
    std::vector<InlineOrigin> origins;         // ascending
    std::vector<UnitSpan> hidden;              // ascending: they take their room, and are not drawn
    std::vector<InlineDecoration> decorations; // ascending, the outer ones first
    std::shared_ptr<const InlineFirstLine> firstLine; // none for most
    StyleHandle strut; // of the block: no line is lower than its font
    std::optional<double> strutLineHeight;
    bool needsText = false; // in quirks mode, for the block's font to count in a line
    bool hasMarker = false; // beside the first line, in the block's font
    double xHeight = 0;     // of the block's font, for `Middle`
    Alignment alignment = Alignment::Left; // absolute
    double textIndent = 0;                 // of the first line; negative: it hangs out
    bool wraps = true;
};

// The content from a unit on, as one of its own. There must be a run at 0.
ParagraphText TextFrom(const InlineContent& content, TextPos start, TextPos end);
void SortBoxes(std::vector<InlineBox>& boxes);
