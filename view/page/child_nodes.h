// The nodes that a node has in it, without those within them.
#pragma once

#include "formats/html/html_tree.h"

template <typename Do>
void ForChildren(const HtmlTree& tree, HtmlNodeId parent, Do work) {
    for (HtmlNodeId child = tree[parent].firstChild; child != noHtmlNode;
         child = tree[child].nextSibling)
        work(child);
}
