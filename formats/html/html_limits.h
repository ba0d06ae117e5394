// Limits of a page's tree. What exceeds them is left out or simplified; the text is always read to
// its end.
#pragma once

#include <cstddef>
#include <cstdint>

// Names of elements and attributes that differ; the standard has some hundreds. Those beyond are
// one name, which is no other.
constexpr std::size_t maxHtmlNames = 60'000;

// Some 60 bytes each. An encyclopedia of 100 MB has three million. From there on tags are skipped,
// and all text goes into the element that is open.
constexpr std::size_t maxHtmlNodes = 4'000'000;

// Of the tree; browsers have about the same. Elements nested deeper stay as empty ones, each before
// what stood in it.
constexpr std::uint32_t maxHtmlDepth = 512;

// A picture within a page is an attribute ("data:"), a scanned page some millions of units.
constexpr std::size_t maxHtmlAttributeLength = 16'000'000; // units; the rest is cut off
constexpr std::size_t maxHtmlAttributes = 256;             // of an element

// Formatting elements that each new paragraph opens again, outermost ones forgotten first. Pages
// made by hand have some tens of FONT that they never close.
constexpr std::size_t maxHtmlFormatting = 128;
// How many such elements a page may have, for its length in units: two tags opened again for each
// paragraph of some 50 units are much.
constexpr std::size_t htmlUnitsPerClone = 16;
constexpr std::size_t minHtmlClones = 65'536;

// How far below the innermost open element an end tag's own one is looked for where all between
// must be looked at: a formatting element around blocks, an element of SVG. One farther out stays
// open.
constexpr std::size_t maxHtmlReach = 64;
