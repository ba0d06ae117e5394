#include "formats/html/html_tree_writer.h"

#include "formats/html/html_limits.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

HtmlTreeWriter::HtmlTreeWriter(HtmlTree& tree, std::u16string source) : tree_(tree) {
    *tree_.source_ = std::move(source);
    // Books have a node for some 60 units; so most have room enough from the start.
    tree_.nodes_.reserve(std::min(Source().size() / 48 + 64, maxHtmlNodes));
}

bool HtmlTreeWriter::IsFull() const {
    return tree_.nodes_.size() >= maxHtmlNodes;
}

HtmlNodeId HtmlTreeWriter::NewNode(HtmlNodeKind kind, HtmlSourceSpan source) {
    const auto id = static_cast<HtmlNodeId>(tree_.nodes_.size());
    HtmlNode& node = tree_.nodes_.emplace_back();
    node.kind = kind;
    node.source = source;
    return id;
}

HtmlNodeId HtmlTreeWriter::NewElement(HtmlName name, HtmlNamespace nameSpace,
                                      std::span<const HtmlAttribute> attributes,
                                      HtmlSourceSpan source) {
    const HtmlNodeId id = NewNode(HtmlNodeKind::Element, source);
    HtmlNode& node = (*this)[id];
    node.name = name;
    node.nameSpace = nameSpace;
    if (attributes.empty()) return id;
    HtmlAttribute* const own = Arena().Attributes(attributes.size());
    std::ranges::copy(attributes, own);
    node.attributes = own;
    node.length = static_cast<std::uint32_t>(attributes.size());
    return id;
}

HtmlNodeId HtmlTreeWriter::NewComment(std::u16string_view units, HtmlSourceSpan source) {
    const HtmlNodeId id = NewNode(HtmlNodeKind::Comment, source);
    (*this)[id].units = units.data();
    (*this)[id].length = static_cast<std::uint32_t>(units.size());
    return id;
}

HtmlNodeId HtmlTreeWriter::CloneNode(HtmlNodeId id) {
    HtmlNode clone = (*this)[id];
    clone.parent = clone.firstChild = clone.lastChild = noHtmlNode;
    clone.previousSibling = clone.nextSibling = noHtmlNode;
    clone.endTag = {};
    tree_.nodes_.push_back(clone);
    return static_cast<HtmlNodeId>(tree_.nodes_.size() - 1);
}

void HtmlTreeWriter::Insert(HtmlNodeId id, HtmlPlace place) {
    ++steps_;
    HtmlNode& node = (*this)[id];
    HtmlNode& parent = (*this)[place.parent];
    node.parent = place.parent;
    node.nextSibling = place.before;
    node.previousSibling =
        place.before == noHtmlNode ? parent.lastChild : (*this)[place.before].previousSibling;
    (node.previousSibling == noHtmlNode ? parent.firstChild
                                        : (*this)[node.previousSibling].nextSibling) = id;
    (place.before == noHtmlNode ? parent.lastChild : (*this)[place.before].previousSibling) = id;
}

void HtmlTreeWriter::Remove(HtmlNodeId id) {
    HtmlNode& node = (*this)[id];
    if (node.parent == noHtmlNode) return;
    HtmlNode& parent = (*this)[node.parent];
    (node.previousSibling == noHtmlNode ? parent.firstChild
                                        : (*this)[node.previousSibling].nextSibling) =
        node.nextSibling;
    (node.nextSibling == noHtmlNode ? parent.lastChild
                                    : (*this)[node.nextSibling].previousSibling) =
        node.previousSibling;
    node.parent = node.previousSibling = node.nextSibling = noHtmlNode;
}

void HtmlTreeWriter::MoveChildren(HtmlNodeId from, HtmlNodeId to) {
    while ((*this)[from].firstChild != noHtmlNode) {
        const HtmlNodeId child = (*this)[from].firstChild;
        Remove(child);
        Insert(child, {to});
    }
}

void HtmlTreeWriter::InsertText(std::u16string_view units, HtmlSourceSpan source, HtmlPlace place) {
    if (units.empty()) return;
    const HtmlNodeId before = place.before == noHtmlNode ? (*this)[place.parent].lastChild
                                                         : (*this)[place.before].previousSibling;
    if (before != noHtmlNode && (*this)[before].IsText()) {
        AppendUnits((*this)[before], units);
        (*this)[before].source.end = source.end;
        return;
    }
    const HtmlNodeId id = NewNode(HtmlNodeKind::Text, source);
    (*this)[id].units = units.data();
    if (IsOfSource(units.data()))
        (*this)[id].length = static_cast<std::uint32_t>(units.size());
    else
        AppendUnits((*this)[id], units);
    Insert(id, place);
}

bool HtmlTreeWriter::IsOfSource(const char16_t* units) const {
    const std::less<const char16_t*> before;
    return !before(units, Source().data()) && before(units, Source().data() + Source().size());
}

HtmlSourceSpan HtmlTreeWriter::SpanOf(std::u16string_view units, HtmlSourceSpan other) const {
    if (!IsOfSource(units.data())) return other;
    const auto begin = static_cast<std::uint32_t>(units.data() - Source().data());
    return {begin, begin + static_cast<std::uint32_t>(units.size())};
}

// A text is a view of the source or, where it stands in pieces, a copy. The room of a copy is the
// power of two that its length needs, so that many small pieces cost no more than a few copies.
void HtmlTreeWriter::AppendUnits(HtmlNode& text, std::u16string_view units) {
    constexpr std::size_t minRoom = 16;
    const std::size_t length = text.length + units.size();
    const bool isView = text.length > 0 && IsOfSource(text.units);
    if (isView && text.units + text.length == units.data()) {
        text.length = static_cast<std::uint32_t>(length);
        return;
    }
    const std::size_t room = std::max(std::bit_ceil(std::size_t{text.length}), minRoom);
    if (isView || text.length == 0 || length > room) {
        char16_t* const copy = Arena().Units(std::max(std::bit_ceil(length), minRoom));
        std::copy_n(text.units, text.length, copy);
        steps_ += text.length;
        text.units = copy;
    }
    std::ranges::copy(units, const_cast<char16_t*>(text.units) + text.length);
    text.length = static_cast<std::uint32_t>(length);
}

void HtmlTreeWriter::AddAttributes(HtmlNodeId id, std::span<const HtmlAttribute> attributes) {
    std::vector<HtmlAttribute> all((*this)[id].Attributes().begin(),
                                   (*this)[id].Attributes().end());
    for (const HtmlAttribute& attribute : attributes)
        if ((*this)[id].Attribute(attribute.name) == nullptr && all.size() < maxHtmlAttributes)
            all.push_back(attribute);
    if (all.size() == (*this)[id].length) return;
    HtmlAttribute* const own = Arena().Attributes(all.size());
    std::ranges::copy(all, own);
    (*this)[id].attributes = own;
    (*this)[id].length = static_cast<std::uint32_t>(all.size());
}
