// The text of a page as its characters are counted: by the names of elements, whatever the style
// sheet says. platform/html_view.h has the rule.
#pragma once

#include "common/geometry.h"
#include "formats/html/html_tree.h"

#include <string>
#include <string_view>
#include <vector>

// What a text node or a `br` gives to the text.
struct HtmlTextPiece {
    HtmlNodeId node = noHtmlNode;
    TextPos start = 0, end = 0; // in the text; a break or a blank may stand between two pieces
    bool isPre = false;         // each unit of the node counts
};

struct HtmlCountedText {
    std::u16string text;
    std::vector<HtmlTextPiece> pieces; // in order, none empty
};

HtmlCountedText HtmlPageText(const HtmlTree& tree);

// Of a text node that is not in `pre`: where character `count` of its piece is in its own units,
// and how many characters of its piece stand before a unit.
std::size_t HtmlUnitOfCharacter(std::u16string_view nodeText, std::size_t count);
std::size_t HtmlCharactersBefore(std::u16string_view nodeText, std::size_t unit);
