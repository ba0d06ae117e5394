// Tab stops of a paragraph, and how the text after a tab stands at one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// Of the text up to the next tab, break or the line's end. Left is the start edge and right the end
// edge: from right to left they change sides.
enum class TabAlignment : std::uint8_t { Left, Right, Center, Decimal };

// What is drawn in the gap of a tab.
enum class TabLeader : std::uint8_t { None, Dots, MiddleDots, Hyphens, Underscores, EqualSigns };

// Twips in a document, pixels in a line layout.
struct TabStop {
    std::int32_t position = 0;
    TabAlignment alignment = TabAlignment::Left;
    TabLeader leader = TabLeader::None;
    bool operator==(const TabStop&) const = default;
};

// The first one at least a pixel after `from`; null after the last one.
const TabStop* NextTabStop(std::span<const TabStop> ascending, double from);
// Of a tab in a line after a wrapped one, where a narrow window puts it: the last stop that is not
// Left, as a number at the edge stays there.
const TabStop* StopAfterWrap(std::span<const TabStop> ascending, double from);

// The text after a tab: its width, and that of what stands before a decimal stop.
struct TabbedText {
    double width = 0, beforeDecimals = 0;
};

// The width of a tab at `pen` to a stop, in a line that ends at `lineEnd`. A stop beyond the line
// is the line's end. Text that is too long for its side of the stop takes the gap, but for what is
// to remain of it, then continues to the other side.
double TabGap(const TabStop&, double pen, double lineEnd, const TabbedText&, double minGap);

// How many units of the text after a decimal tab stand before the stop: a number's up to its
// decimals; all of it where it begins with letters.
std::size_t UnitsBeforeDecimals(std::u16string_view text);

// 0 for none.
char16_t LeaderCharacter(TabLeader);

// The characters in a gap, each `advance` wide. They stand on a grid that begins at the start edge,
// so that those of lines below each other are in columns.
struct LeaderSpan {
    int count = 0;
    double left = 0;
};
LeaderSpan LeaderIn(double left, double right, double advance, double startEdge);
