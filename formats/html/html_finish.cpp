#include "formats/html/html_finish.h"

#include "formats/html/html_limits.h"

using enum HtmlName;

namespace {

// All that is in `id` comes after it.
void Empty(HtmlTreeWriter& writer, HtmlNodeId id) {
    const HtmlPlace after{writer[id].parent, writer[id].nextSibling};
    while (writer[id].firstChild != noHtmlNode) {
        const HtmlNodeId child = writer[id].firstChild;
        writer.Remove(child);
        writer.Insert(child, after);
    }
}

// In one walk through the tree. `depth` is that of `id`'s children.
HtmlNodeId NextLimited(HtmlTreeWriter& writer, HtmlNodeId id, std::uint32_t& depth) {
    if (depth >= maxHtmlDepth) Empty(writer, id);
    if (writer[id].firstChild != noHtmlNode) {
        ++depth;
        return writer[id].firstChild;
    }
    while (id != htmlDocumentNode && writer[id].nextSibling == noHtmlNode) {
        id = writer[id].parent;
        --depth;
    }
    return id == htmlDocumentNode ? noHtmlNode : writer[id].nextSibling;
}

HtmlNodeId FirstIn(const HtmlTree& tree, HtmlNodeId top, HtmlName name) {
    HtmlNodeId id = tree.Next(top, top);
    while (id != noHtmlNode && !tree[id].Is(name))
        id = tree.Next(id, top);
    return id;
}

// The last with `selected`, else the first.
HtmlNodeId ChosenOption(const HtmlTree& tree, HtmlNodeId select) {
    const HtmlName selected = tree.Names().Find(u"selected");
    HtmlNodeId chosen = FirstIn(tree, select, Option);
    for (HtmlNodeId id = chosen; id != noHtmlNode; id = tree.Next(id, select))
        if (tree[id].Is(Option) && selected != None && tree[id].Attribute(selected) != nullptr)
            chosen = id;
    return chosen;
}

// Copies what is in `from` into `to`, which is outside of it.
void CopyChildren(HtmlTreeWriter& writer, HtmlNodeId from, HtmlNodeId to) {
    HtmlNodeId id = writer[from].firstChild, parent = to;
    while (id != noHtmlNode && !writer.IsFull()) {
        const HtmlNodeId copy = writer.CloneNode(id);
        writer.Insert(copy, {parent});
        if (writer[id].firstChild != noHtmlNode) {
            id = writer[id].firstChild;
            parent = copy;
            continue;
        }
        while (id != from && writer[id].nextSibling == noHtmlNode) {
            id = writer[id].parent;
            parent = writer[parent].parent;
        }
        if (id == from) return;
        id = writer[id].nextSibling;
    }
}

} // namespace

void LimitHtmlDepth(HtmlTreeWriter& writer) {
    std::uint32_t depth = 0;
    for (HtmlNodeId id = htmlDocumentNode; id != noHtmlNode;)
        id = NextLimited(writer, id, depth);
}

void FillSelectedContent(HtmlTreeWriter& writer) {
    const HtmlTree& tree = writer.Tree();
    bool isThere = false;
    for (HtmlNodeId id = htmlDocumentNode; id <= tree.NodeCount() && !isThere; ++id)
        isThere = tree[id].Is(Selectedcontent);
    HtmlNodeId id = isThere ? htmlDocumentNode : noHtmlNode;
    while (id != noHtmlNode) {
        if (!tree[id].Is(Select)) {
            id = tree.Next(id);
            continue;
        }
        const HtmlNodeId content = FirstIn(tree, id, Selectedcontent);
        const HtmlNodeId option = ChosenOption(tree, id);
        const bool isApart =
            option != noHtmlNode && FirstIn(tree, option, Selectedcontent) == noHtmlNode;
        if (content != noHtmlNode && isApart) {
            while (tree[content].firstChild != noHtmlNode)
                writer.Remove(tree[content].firstChild);
            CopyChildren(writer, option, content);
        }
        id = tree.NextAfter(id);
    }
}
