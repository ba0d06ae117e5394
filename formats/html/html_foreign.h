// Names of SVG and MathML, which the tokenizer has in small letters, as those languages write them.
#pragma once

#include "formats/html/html_tree.h"

#include <string_view>

// The same text where it is written in small letters.
std::u16string_view SvgElementName(std::u16string_view lower);
std::u16string_view SvgAttributeName(std::u16string_view lower);

struct ForeignAttributeName {
    HtmlAttributeNamespace nameSpace = HtmlAttributeNamespace::None;
    std::u16string_view local;
};
// "xlink:href" is `href` of XLink.
ForeignAttributeName SplitForeignAttribute(std::u16string_view name);
