// Whether a tree is sound: what its links promise, and its limits.
#pragma once

#include "formats/html/html_limits.h"
#include "formats/html/html_tree.h"

#include <algorithm>
#include <string>

namespace html_tree_check {

inline std::string FaultOfNode(const HtmlTree& tree, HtmlNodeId id) {
    const HtmlNode& node = tree[id];
    if ((node.firstChild == noHtmlNode) != (node.lastChild == noHtmlNode)) return "one end";
    if (node.firstChild != noHtmlNode && tree[node.firstChild].previousSibling != noHtmlNode)
        return "before the first";
    if (node.lastChild != noHtmlNode && tree[node.lastChild].nextSibling != noHtmlNode)
        return "after the last";
    if (node.nextSibling != noHtmlNode && tree[node.nextSibling].previousSibling != id)
        return "siblings";
    if (node.nextSibling != noHtmlNode && tree[node.nextSibling].parent != node.parent)
        return "siblings' parents";
    if (node.firstChild != noHtmlNode && tree[node.firstChild].parent != id) return "parent";
    const bool mayHaveChildren = node.kind == HtmlNodeKind::Document || node.IsElement() ||
                                 node.kind == HtmlNodeKind::Fragment;
    if (!mayHaveChildren && node.firstChild != noHtmlNode) return "children";
    if (node.IsText() && node.length == 0) return "empty text";
    if (node.IsElement() && node.name == HtmlName::None) return "no name";
    if (node.Attributes().size() > maxHtmlAttributes) return "attributes";
    for (const HtmlAttribute& attribute : node.Attributes())
        if (attribute.length > maxHtmlAttributeLength) return "attribute's length";
    const auto isInSource = [&](const HtmlSourceSpan& span) {
        return span.begin <= span.end && span.end <= tree.Source().size();
    };
    if (!isInSource(node.source) || !isInSource(node.endTag)) return "place in the source";
    return "";
}

// Of the deepest element below the document.
inline std::uint32_t Depth(const HtmlTree& tree) {
    std::uint32_t depth = 0, deepest = 0;
    for (HtmlNodeId id = htmlDocumentNode;;) {
        deepest = std::max(deepest, depth);
        if (tree[id].firstChild != noHtmlNode) {
            id = tree[id].firstChild;
            ++depth;
            continue;
        }
        while (id != htmlDocumentNode && tree[id].nextSibling == noHtmlNode) {
            id = tree[id].parent;
            --depth;
        }
        if (id == htmlDocumentNode) return deepest;
        id = tree[id].nextSibling;
    }
}

// "" for none.
inline std::string FirstFault(const HtmlTree& tree) {
    std::size_t count = 0;
    for (HtmlNodeId id = htmlDocumentNode; id != noHtmlNode; id = tree.Next(id)) {
        if (++count > tree.NodeCount()) return "a circle";
        if (const std::string fault = FaultOfNode(tree, id); !fault.empty())
            return fault + " of node " + std::to_string(id);
    }
    if (Depth(tree) > maxHtmlDepth) return "too deep";
    if (tree.NodeCount() > maxHtmlNodes + 1000) return "too many nodes";
    if (tree.RootElement() == noHtmlNode || tree.Head() == noHtmlNode) return "no head";
    return tree.Body() == noHtmlNode ? "no body" : "";
}

} // namespace html_tree_check
