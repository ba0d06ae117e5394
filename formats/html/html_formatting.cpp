#include "formats/html/html_formatting.h"

#include "formats/html/html_limits.h"

#include <algorithm>
#include <functional>
#include <string_view>

void HtmlFormatting::ClearToMarker() {
    while (!entries_.empty() && entries_.back().id != noHtmlNode)
        entries_.pop_back();
    if (!entries_.empty()) entries_.pop_back();
}

std::size_t HtmlFormatting::GroupBegin() const {
    std::size_t begin = entries_.size();
    while (begin > 0 && entries_[begin - 1].id != noHtmlNode)
        --begin;
    steps_ += entries_.size() - begin;
    return begin;
}

void HtmlFormatting::Push(HtmlNodeId id) {
    constexpr int maxEqual = 3;
    const std::size_t begin = GroupBegin();
    const Entry entry{id, HashOf(id)};
    std::size_t firstEqual = none;
    int equal = 0;
    for (std::size_t i = entries_.size(); i > begin; --i)
        if (AreEqual(entries_[i - 1], entry)) {
            firstEqual = i - 1;
            ++equal;
        }
    if (equal >= maxEqual)
        RemoveAt(firstEqual);
    else if (entries_.size() - begin >= maxHtmlFormatting)
        RemoveAt(begin);
    entries_.push_back(entry);
}

std::size_t HtmlFormatting::LastOf(HtmlName name) const {
    for (std::size_t i = entries_.size(), begin = GroupBegin(); i > begin; --i)
        if (tree_[entries_[i - 1].id].name == name) return i - 1;
    return none;
}

std::size_t HtmlFormatting::IndexOf(HtmlNodeId id) const {
    for (std::size_t i = entries_.size(); i > 0 && entries_[i - 1].id != noHtmlNode; --i, ++steps_)
        if (entries_[i - 1].id == id) return i - 1;
    return none;
}

void HtmlFormatting::RemoveAt(std::size_t index) {
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
}

void HtmlFormatting::Remove(HtmlNodeId id) {
    const std::size_t index = IndexOf(id);
    if (index != none) RemoveAt(index);
}

void HtmlFormatting::Move(std::size_t index, std::size_t before, HtmlNodeId clone) {
    entries_[index].id = clone;
    const auto entry = entries_.begin() + static_cast<std::ptrdiff_t>(index);
    const auto place = entries_.begin() + static_cast<std::ptrdiff_t>(before);
    if (index < before)
        std::rotate(entry, entry + 1, place);
    else
        std::rotate(place, entry, entry + 1);
}

// The same for attributes in any order.
std::uint64_t HtmlFormatting::HashOf(HtmlNodeId id) const {
    constexpr std::uint64_t factor = 0x9E37'79B9'7F4A'7C15;
    std::uint64_t hash = std::uint64_t(tree_[id].name);
    for (const HtmlAttribute& one : tree_[id].Attributes())
        hash += (std::hash<std::u16string_view>()(one.Value()) ^ std::uint64_t(one.name)) * factor;
    return hash;
}

// The same name and the same attributes, in any order. Most of what differs is told by the hash.
bool HtmlFormatting::AreEqual(const Entry& a, const Entry& b) const {
    const HtmlNode &first = tree_[a.id], &second = tree_[b.id];
    if (a.hash != b.hash || first.name != second.name || first.length != second.length)
        return false;
    return std::ranges::all_of(first.Attributes(), [&](const HtmlAttribute& one) {
        const HtmlAttribute* const other = second.Attribute(one.name);
        steps_ += other ? std::uint64_t(other - second.attributes) : 1;
        return other != nullptr && other->Value() == one.Value();
    });
}
