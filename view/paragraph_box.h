// The box of a paragraph's borders and shading.
#pragma once

#include "view/layout_context.h"

// In pixels. Neighbours with the same borders and indents are in one box.
struct ParagraphBox {
    const ParagraphStyle* style = nullptr; // null: nothing to draw
    bool joinsAbove = false, joinsBelow = false;
    int left = 0, right = 0; // the outer edges, from the layout's origin
    // What of the space before and after the paragraph is out of the box.
    int spaceAbove = 0, spaceBelow = 0;
    // From the outer edges to the text.
    int insetLeft = 0, insetTop = 0, insetRight = 0, insetBottom = 0;
};

// `style` is the paragraph's. The edges and the space are the shape's to set.
ParagraphBox BoxOf(const LayoutContext& context, const ParagraphPart& part,
                   const ParagraphStyle& style);

int BorderThickness(const LayoutContext& context, const ParagraphBorder& border); // 0: none
