// The nodes that a node has in it, without those within them.
#pragma once

#include "formats/html/html_tree.h"

// From one up to another, or up to the last one.
struct HtmlSiblings {
    HtmlNodeId first = noHtmlNode, after = noHtmlNode;
};

template <typename Do>
void ForEach(const HtmlTree& tree, HtmlSiblings siblings, Do work) {
    for (HtmlNodeId node = siblings.first; node != siblings.after; node = tree[node].nextSibling)
        work(node);
}

template <typename Do>
void ForChildren(const HtmlTree& tree, HtmlNodeId parent, Do work) {
    ForEach(tree, {tree[parent].firstChild, noHtmlNode}, work);
}
