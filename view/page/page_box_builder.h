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
