// Keywords of longhand properties, and those of their values that no enum of a style has.
#pragma once

#include <cstdint>
#include <string_view>

struct CssKeyword {
    std::u16string_view name;
    std::uint16_t value = 0;
    bool userAgentOnly = false;
};

// Of `display`, beside the CssDisplay: floats stay within the box.
constexpr std::uint16_t cssFlowRoot = 0x100;
// Likewise: a flex container.
constexpr std::uint16_t cssFlexLayout = 0x200;
constexpr std::uint16_t cssGridLayout = 0x400; // a grid container
// Beside the number of a grid's line: it is one of tracks.
constexpr std::uint16_t cssGridSpan = 1;
// Of widths that follow from the content.
constexpr std::uint16_t cssMinContent = 1, cssMaxContent = 2, cssFitContent = 3;
// Of `font-size`, after the eight absolute sizes from xx-small to xxx-large.
constexpr std::uint16_t cssSmaller = 8, cssLarger = 9;
// Of `font-weight`.
constexpr std::uint16_t cssBolder = 1, cssLighter = 2;
