// A drawing as our reader of pages has it in its tree.
#pragma once

#include "formats/html/html_tree.h"

#include <string>
#include <string_view>

// The first `svg` of SVG; noHtmlNode for none.
HtmlNodeId SvgRoot(const HtmlTree& tree);

// Of no namespace; "" when there is none.
std::u16string_view SvgAttribute(const HtmlTree& tree, HtmlNodeId element,
                                 std::u16string_view name);

// Where `href` of an element leads, with or without the namespace of XLink.
std::u16string_view SvgReference(const HtmlTree& tree, HtmlNodeId element);

// What a drawing says where it cannot be drawn: its titles and texts, in order; "" for none.
std::u16string SvgText(const HtmlTree& tree, HtmlNodeId svg);
