#include "formats/html/html_formatting.h"

#include "formats/html/html_limits.h"

#include <algorithm>

void HtmlFormatting::ClearToMarker() {
    while (!ids_.empty() && ids_.back() != noHtmlNode)
        ids_.pop_back();
    if (!ids_.empty()) ids_.pop_back();
}

std::size_t HtmlFormatting::GroupBegin() const {
    std::size_t begin = ids_.size();
    while (begin > 0 && ids_[begin - 1] != noHtmlNode)
        --begin;
    steps_ += ids_.size() - begin;
    return begin;
}

void HtmlFormatting::Push(HtmlNodeId id) {
    constexpr int maxEqual = 3;
    const std::size_t begin = GroupBegin();
    std::size_t firstEqual = none;
    int equal = 0;
    for (std::size_t i = ids_.size(); i > begin; --i)
        if (AreEqual(ids_[i - 1], id)) {
            firstEqual = i - 1;
            ++equal;
        }
    if (equal >= maxEqual)
        RemoveAt(firstEqual);
    else if (ids_.size() - begin >= maxHtmlFormatting)
        RemoveAt(begin);
    ids_.push_back(id);
}

std::size_t HtmlFormatting::LastOf(HtmlName name) const {
    for (std::size_t i = ids_.size(), begin = GroupBegin(); i > begin; --i)
        if (tree_[ids_[i - 1]].name == name) return i - 1;
    return none;
}

std::size_t HtmlFormatting::IndexOf(HtmlNodeId id) const {
    for (std::size_t i = ids_.size(); i > 0 && ids_[i - 1] != noHtmlNode; --i, ++steps_)
        if (ids_[i - 1] == id) return i - 1;
    return none;
}

void HtmlFormatting::RemoveAt(std::size_t index) {
    ids_.erase(ids_.begin() + static_cast<std::ptrdiff_t>(index));
}

void HtmlFormatting::Remove(HtmlNodeId id) {
    const std::size_t index = IndexOf(id);
    if (index != none) RemoveAt(index);
}

void HtmlFormatting::InsertAt(std::size_t index, HtmlNodeId id) {
    ids_.insert(ids_.begin() + static_cast<std::ptrdiff_t>(index), id);
}

// The same name and the same attributes, in any order.
bool HtmlFormatting::AreEqual(HtmlNodeId a, HtmlNodeId b) const {
    if (tree_[a].name != tree_[b].name || tree_[a].length != tree_[b].length) return false;
    return std::ranges::all_of(tree_[a].Attributes(), [&](const HtmlAttribute& one) {
        const HtmlAttribute* const other = tree_[b].Attribute(one.name);
        return other != nullptr && other->Value() == one.Value();
    });
}
