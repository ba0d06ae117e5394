// Limits of the RTF reader. What exceeds them is left out; the text is always read to its end. With
// these a file costs at most ten bytes of memory for each of its own, and a constant of some
// megabytes.
#pragma once

#include <cstddef>
#include <cstdint>

// Word processors nest some tens deep. Deeper groups are matched, but share the state of the
// deepest.
constexpr std::size_t maxRtfDepth = 500;

// Character styles hold the font's index in 16 bits; real tables have some hundreds.
constexpr std::size_t maxRtfFonts = 4096;
// Names have 31 characters at most; some files give several.
constexpr std::size_t maxRtfFontNameLength = 128;
constexpr std::size_t maxRtfColors = 65'536;

// A colourful book has some hundreds of each kind, and each link's text is a style of its own. Text
// beyond has the default style.
constexpr std::size_t maxRtfCharStyles = 65'536;
constexpr std::size_t maxRtfParagraphStyles = 16'384;

// Word processors write 64 tab stops at most.
constexpr std::size_t maxRtfTabStops = 64;

// Word processors stop at 63 cells, converters of web pages do not. Further cells become paragraphs
// of the last.
constexpr std::size_t maxRtfRowCells = 256;

// A row of one short cell takes ten times what it takes in the file. Rows beyond are tab-separated
// text.
constexpr std::size_t maxRtfRows = 65'536;

// A picture may be empty and cost more than it takes in the file. Pictures beyond are not shown.
constexpr std::size_t maxRtfPictures = 32'768;
constexpr std::size_t maxRtfPictureBytes = std::size_t{1} << 29; // of all pictures

// A number takes several times what the paragraph takes in the file. Paragraphs beyond have none.
constexpr std::size_t maxRtfNumberedParagraphs = 65'536;
constexpr std::size_t maxRtfNumberFormats = 1024;
constexpr std::size_t maxRtfNumberTextLength = 16; // units before a number, and after it
// A list has an id and nine levels; word processors stop at some thousand lists.
constexpr std::size_t maxRtfLists = 4096;
constexpr std::size_t maxRtfListLevels = 9;
constexpr std::size_t maxRtfLevelTextLength = 32, maxRtfListNumberLength = 64;
constexpr std::int32_t maxRtfNumber = 999'999;
constexpr std::size_t maxRtfFormEntries = 256; // word processors stop at 25

// Character styles hold the link's index in 16 bits.
constexpr std::size_t maxRtfLinks = 65'535;
constexpr std::size_t maxRtfFieldLength = 4096; // units of an instruction: a long address

// Word processors give a drop cap ten lines at most, a border's space 31 points. A drop cap is a
// paragraph of a letter or a word.
constexpr std::int32_t maxRtfDropCapLines = 10;
constexpr std::int32_t maxRtfOutlineLevels = 9;
constexpr std::int32_t maxRtfDropCapLength = 32;
constexpr std::int32_t maxRtfBorderWidth = 255, maxRtfBorderSpace = 620; // twips

// The largest page is 22 inches wide and high.
constexpr std::int32_t maxRtfTwips = 22 * 1440;
constexpr std::int32_t ClampRtfTwips(std::int32_t twips) {
    return twips < -maxRtfTwips ? -maxRtfTwips : twips > maxRtfTwips ? maxRtfTwips : twips;
}
constexpr std::int32_t maxRtfHalfPoints = 2 * 1638;
