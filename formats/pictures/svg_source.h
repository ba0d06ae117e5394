// Drawings in SVG, made fit to be handed to a renderer: one that is given any file may open others
// that it names, and may work on a short one for hours.
#pragma once

#include "formats/html/html_tree.h"

#include <string>
#include <string_view>

struct SvgSize {
    int width = 0, height = 0; // CSS pixels, at least 1; 0 for what is no drawing
};

// Whether the bytes begin a file in SVG.
bool IsSvg(std::string_view bytes);

// Of a drawing that begins so; all of it need not be there.
SvgSize SizeOfSvg(std::string_view bytes);
SvgSize SizeOfSvg(const HtmlTree& tree, HtmlNodeId svg);

// The drawing with nothing but shapes, texts, gradients and pictures that stand in it: no entities,
// no processing instructions, no scripts or animations, no address but of its own parts. UTF-8; ""
// for what is none, or takes more than the limits in svg_limits.h.
std::string SafeSvg(std::string_view bytes);
std::string SafeSvg(const HtmlTree& tree, HtmlNodeId svg);
