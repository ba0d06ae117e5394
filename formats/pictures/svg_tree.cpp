#include "formats/pictures/svg_tree.h"

#include "formats/html/html_units.h"

namespace {
constexpr std::size_t maxText = 4096; // units

// Blanks are one, and none is at the start.
void AppendCollapsed(std::u16string& all, std::u16string_view text) {
    for (const char16_t unit : text) {
        const bool blank = IsHtmlSpace(unit);
        if (blank && (all.empty() || all.back() == u' ')) continue;
        all += blank ? u' ' : unit;
    }
}

bool IsText(std::u16string_view name) {
    return name == u"title" || name == u"text" || name == u"tspan";
}
} // namespace

HtmlNodeId SvgRoot(const HtmlTree& tree) {
    for (HtmlNodeId id = tree.RootElement(); id != noHtmlNode; id = tree.Next(id))
        if (tree[id].IsElement() && tree[id].nameSpace == HtmlNamespace::Svg &&
            tree[id].name == HtmlName::Svg)
            return id;
    return noHtmlNode;
}

std::u16string_view SvgAttribute(const HtmlTree& tree, HtmlNodeId element,
                                 std::u16string_view name) {
    for (const HtmlAttribute& attribute : tree[element].Attributes())
        if (attribute.nameSpace == HtmlAttributeNamespace::None &&
            tree.Name(attribute.name) == name)
            return attribute.Value();
    return {};
}

std::u16string_view SvgReference(const HtmlTree& tree, HtmlNodeId element) {
    std::u16string_view reference;
    for (const HtmlAttribute& attribute : tree[element].Attributes()) {
        if (attribute.name != HtmlName::Href) continue;
        if (attribute.nameSpace == HtmlAttributeNamespace::None) return attribute.Value();
        if (attribute.nameSpace == HtmlAttributeNamespace::XLink) reference = attribute.Value();
    }
    return reference;
}

std::u16string SvgText(const HtmlTree& tree, HtmlNodeId svg) {
    std::u16string all;
    for (HtmlNodeId id = svg; id != noHtmlNode && all.size() < maxText; id = tree.Next(id, svg)) {
        if (!tree[id].IsText() || !IsText(tree.Name(tree[tree[id].parent].name))) continue;
        AppendCollapsed(all, tree[id].Text());
        if (!all.empty() && all.back() != u' ') all += u' ';
    }
    while (!all.empty() && all.back() == u' ')
        all.pop_back();
    return all;
}
