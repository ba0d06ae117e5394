// Makes the boxes of a page from its elements and their styles.
#pragma once

#include "formats/css/css_page_styles.h"
#include "view/page/page_box.h"
#include "view/page/page_weights.h"

#include <functional>

// The result refers to both; the root is the box of `html`. There is at least the root.
// `showsObject` tells which `object` is a picture; without it none is.
PageBoxes BoxesOf(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits = {},
                  std::function<bool(HtmlNodeId)> showsObject = {});

// Whether an element stands for something that is not shown. What is in it is for programs that
// know it even less.
bool IsNotShown(const HtmlNode& node);
// By its style: not displayed, or cut off to a point that only screen readers come by.
bool IsNotShown(const CssBoxStyle& style);
// Whether what stands before or after what is in an element is a box, and no part of its lines.
bool HasOwnBox(CssStyle generated);
// A float, a block in a line, or a box out of the flow.
bool IsInLines(const CssBoxStyle& style);
