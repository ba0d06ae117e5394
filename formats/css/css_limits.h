// Limits of style sheets. What exceeds them is left out, as CSS leaves out what it does not
// understand; the rest of the sheet and the page's text are read as ever.
#pragma once

#include <cstddef>
#include <cstdint>

// Of one sheet, in UTF-16 units; the largest that sites serve have two million.
constexpr std::size_t maxCssUnits = std::size_t{16} << 20;

// Of all rules of a sheet. Books have a hundred, sites some ten thousand. A rule takes some 100
// bytes, a declaration 32.
constexpr std::size_t maxCssRules = 150'000;
constexpr std::size_t maxCssDeclarations = 500'000;
constexpr std::size_t maxCssSelectors = 300'000; // with those in the arguments of others
constexpr std::size_t maxCssConditions = 600'000;

// Of one selector list or one declaration's value; the tokens of one stand in memory at a time.
constexpr std::size_t maxCssTokens = 4096;
// Compounds of a selector. People write five.
constexpr std::size_t maxCssCompounds = 64;
// `:not(:is(...))`; each level is a call.
constexpr int maxCssSelectorDepth = 8;
// Nested `@media`; each level is a call.
constexpr int maxCssBlockDepth = 32;

// Of one calc(): values in it, and functions within functions.
constexpr std::size_t maxCssMathSteps = 64;
constexpr int maxCssMathDepth = 16;
// Custom properties of one element, units of a value, and values within values. All those of a page
// together may have as many units as `maxCssVariableStore`.
constexpr std::size_t maxCssVariables = 1024, maxCssVariableUnits = 4096;
constexpr int maxCssVariableDepth = 32;
constexpr std::size_t maxCssVariableStore = std::size_t{8} << 20;

constexpr std::size_t maxCssImports = 64;
// Of a page: files of sheets, sheets that import each other, and the bytes of all together.
constexpr std::size_t maxCssFiles = 64, maxCssImportDepth = 8;
constexpr std::size_t maxCssFileBytes = std::size_t{16} << 20;
constexpr std::size_t maxCssFontFamilies = 32; // of one declaration
constexpr std::size_t maxCssContentItems = 32; // of one declaration

// Tests of compounds, and rules that held with their declarations, on all elements of a page: less
// than half a second. A book of a million elements with fifty rules tested and ten held for each
// has most of it. Elements
// beyond have the default sheet, their attributes and their own `style`.
constexpr std::uint64_t maxCssSteps = 150'000'000;
// Classes of one element that some rule speaks of, and units of its `class` attribute.
constexpr std::size_t maxCssClasses = 64;
constexpr std::size_t maxCssClassUnits = 4096;
// Of `[a*="..."]`: the longest part that is looked for, and how far into an attribute. A search may
// compare all of the one at each place of the other.
constexpr std::size_t maxCssPartUnits = 1024;
constexpr std::size_t maxCssSearchedUnits = 65'536;
// Different lists of fonts, and different contents before and after elements, of a page.
constexpr std::size_t maxCssLists = 16'384;
// Units of an old attribute that are looked at: a colour, a number, the names of some fonts.
constexpr std::size_t maxHtmlHintUnits = 1024;
// Styles that are kept for the next element with the same rules, attributes and parent style, and
// the bytes of what they follow from. A book has some hundreds.
constexpr std::size_t maxCssKeptStyles = 16'384;
constexpr std::size_t maxCssKeyLength = 1024;
// Units of a `style` attribute. One that is too long for the key is read for each element, within
// maxCssSteps.
constexpr std::size_t maxCssAttributeUnits = 65'536;
// Characters and nodes that `dir=auto` looks at for the first letter that has a direction.
constexpr int maxCssDirectionSearch = 1000;

// Of a grid, in each direction, and lines or areas that have a name. Pages have twelve.
constexpr std::size_t maxCssGridTracks = 1000, maxCssGridLines = 256;

// Computed lengths stay within these, in CSS pixels: sums of many of them fit 32 bits.
constexpr float maxCssPixels = 1'000'000;
constexpr float maxCssFontPixels = 10'000;
