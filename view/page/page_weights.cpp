#include "view/page/page_weights.h"

#include "view/page/box_generation.h"

#include <limits>

namespace {
bool IsShown(const HtmlTree& tree, const CssPageStyles& styles, HtmlNodeId id) {
    const HtmlNode& node = tree[id];
    if (!node.IsElement()) return node.IsText();
    return !IsNotShown(node) && !IsNotShown(*styles.Of(id).box);
}

PageWeight Sum(PageWeight a, PageWeight b) {
    const PageWeight max = std::numeric_limits<PageWeight>::max();
    return a > max - b ? max : a + b;
}
} // namespace

PageWeights::PageWeights(const HtmlTree& tree, const CssPageStyles& styles, PageWeight whole)
    : whole_(whole) {
    if (tree.Source().size() + tree.NodeCount() * elementWeight <= whole) return;
    weights_.resize(tree.NodeCount() + 1);
    const HtmlNodeId root = tree.RootElement();
    for (HtmlNodeId id = root; id != noHtmlNode;) {
        const bool shown = IsShown(tree, styles, id);
        const HtmlNode& node = tree[id];
        if (shown) weights_[id] = node.IsText() ? node.length : elementWeight;
        if (shown && node.IsElement() && node.firstChild != noHtmlNode) {
            id = node.firstChild;
            continue;
        }
        while (id != root && tree[id].nextSibling == noHtmlNode) {
            const HtmlNodeId parent = tree[id].parent;
            weights_[parent] = Sum(weights_[parent], weights_[id]);
            id = parent;
        }
        if (id == root) return;
        weights_[tree[id].parent] = Sum(weights_[tree[id].parent], weights_[id]);
        id = tree[id].nextSibling;
    }
}
