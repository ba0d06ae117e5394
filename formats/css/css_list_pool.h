// Lists of names or of contents by number, equal ones once. Number 0 is the empty list, and what
// is beyond the limit.
#pragma once

#include "formats/css/css_limits.h"
#include "formats/css/css_value.h"

#include <deque>
#include <string>
#include <unordered_map>

// Texts that differ where the lists do.
inline void AppendCssKey(std::u16string& key, const CssFontFamily& family) {
    key += family.name;
    key += family.generic ? u'\1' : u'\0';
}
inline void AppendCssKey(std::u16string& key, const CssContentItem& item) {
    key += item.text;
    key += static_cast<char16_t>(item.kind);
    key += static_cast<char16_t>(item.numberStyle);
    key += item.separator;
}
inline void AppendCssKey(std::u16string& key, const CssCounterChange& change) {
    key += change.name;
    key += u'\uFFFE';
    key += static_cast<char16_t>(change.value);
    key += static_cast<char16_t>(change.value >> 16);
}
template <typename List>
std::u16string CssKeyOf(const List& list) {
    std::u16string key;
    for (const auto& one : list) {
        AppendCssKey(key, one);
        key += u'\uFFFF';
    }
    return key;
}

template <typename List>
class CssListPool {
  public:
    CssListPool() : lists_(1) {}
    std::uint32_t NumberOf(const List& list) {
        if (list.empty()) return 0;
        const std::u16string key = CssKeyOf(list);
        const auto known = numbers_.find(key);
        if (known != numbers_.end()) return known->second;
        if (lists_.size() >= maxCssLists) return 0;
        lists_.push_back(list);
        return numbers_.emplace(key, static_cast<std::uint32_t>(lists_.size() - 1)).first->second;
    }
    const List& Find(const List& list) { return lists_[NumberOf(list)]; }
    const List& operator[](std::uint32_t number) const { return lists_[number]; }
    std::size_t Count() const { return lists_.size(); } // with the empty one

  private:
    std::deque<List> lists_;
    std::unordered_map<std::u16string, std::uint32_t> numbers_;
};
