#include "view/page/ruby_segment.h"

#include "formats/html/html_units.h"
#include "view/page/box_generation.h"
#include "view/page/page_box.h"

#include <algorithm>

namespace {
// Of base and annotation together: dictionaries of idioms have some thirty units.
constexpr PageWeight maxUnits = 256;
constexpr int maxNodes = 64;

bool IsAnnotation(const HtmlTree& tree, const CssPageStyles& styles, HtmlNodeId id) {
    return tree[id].IsElement() && !IsNotShown(tree[id]) &&
           styles.Of(id).box->display == CssDisplay::RubyText;
}

// Between two annotations.
bool IsNothing(const HtmlTree& tree, const CssPageStyles& styles, HtmlNodeId id) {
    const HtmlNode& node = tree[id];
    if (node.IsText()) {
        const std::u16string_view text = node.Text();
        return std::all_of(text.begin(), text.end(), IsHtmlSpace);
    }
    return !node.IsElement() || IsNotShown(node) || IsNotShown(*styles.Of(id).box);
}

bool IsTextual(const HtmlNode& node, const CssBoxStyle& style) {
    const bool isInline = style.display == CssDisplay::Inline ||
                          style.display == CssDisplay::RubyText ||
                          style.display == CssDisplay::None;
    return isInline && !IsOutOfFlow(style) && style.floats == CssFloat::None &&
           !node.Is(HtmlName::Br);
}
} // namespace

RubySegment RubySegmentFrom(const HtmlTree& tree, const CssPageStyles& styles, HtmlNodeId first) {
    RubySegment segment;
    segment.first = first;
    HtmlNodeId id = first;
    while (id != noHtmlNode && !IsAnnotation(tree, styles, id))
        id = tree[id].nextSibling;
    segment.annotation = id;
    HtmlNodeId last = noHtmlNode;
    for (; id != noHtmlNode; id = tree[id].nextSibling) {
        if (IsAnnotation(tree, styles, id))
            last = id;
        else if (!IsNothing(tree, styles, id))
            break;
    }
    if (last == noHtmlNode) return segment;
    segment.next = tree[last].nextSibling;
    segment.after = tree.NextAfter(last);
    return segment;
}

bool IsRubyWord(const HtmlTree& tree, const CssPageStyles& styles, RubySegment& segment) {
    int nodes = 0;
    segment.weight = 0;
    for (HtmlNodeId id = segment.first; id != noHtmlNode && id != segment.after;
         id = tree.Next(id)) {
        const HtmlNode& node = tree[id];
        if (++nodes > maxNodes) return false;
        if (node.IsText()) segment.weight += node.length;
        if (segment.weight > maxUnits) return false;
        if (node.IsElement() && !IsTextual(node, *styles.Of(id).box)) return false;
    }
    segment.weight += PageWeight(nodes) * boxInLinesWeight; // they may all be pictures
    return true;
}
