// Computed values: what was declared, made absolute by the styles around the element.
#pragma once

#include "formats/css/css_cascade.h"
#include "formats/css/css_rare_style.h"
#include "formats/css/css_reading.h"

#include <functional>

struct CssComputeContext {
    CssMedium medium;
    float rootFontSize = 16, rootLineHeight = 0;
    bool isRoot = false;
    bool quirks = false; // of the page
    // Numbers of lists, equal ones for equal lists.
    std::function<std::uint32_t(const CssFontFamilies&)> familiesNumber;
    std::function<std::uint32_t(const CssContent&)> contentNumber;
    std::function<std::uint32_t(const CssCounterChanges&)> countersNumber;
    // One object for equal ones.
    std::function<const CssGridTracks*(const CssGridTracks&)> gridTracks;
    std::function<const CssGridAreas*(const CssGridAreas&)> gridAreas;
    std::function<const CssGridName*(const CssGridName&)> gridName;
    std::function<const CssRareStyle*(const CssRareStyle&)> rareStyle;
    bool usedViewport = false;        // a length was relative to the window
    bool usedOuterBackground = false; // a background was the one around it
};

struct CssStyleParts {
    CssInheritedStyle inherited;
    CssBoxStyle box;
};

CssStyleParts ComputeCssStyle(CssCascade& cascade, const CssInheritedStyle& parent,
                              const CssBoxStyle& parentBox, CssComputeContext& context);

// Of one part each; `inherited` is that of the element.
CssInheritedStyle ComputeCssInherited(const CssCascade& cascade, const CssInheritedStyle& parent,
                                      CssComputeContext& context);
CssBoxStyle ComputeCssBox(const CssCascade& cascade, const CssInheritedStyle& inherited,
                          const CssBoxStyle& parentBox, CssComputeContext& context);
void ComputeCssFont(const CssCascade& cascade, const CssInheritedStyle& parent,
                    CssComputeContext& context, CssInheritedStyle& style);
