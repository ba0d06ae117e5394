#include "common/list_merge.h"

#include <unordered_map>
#include <unordered_set>

namespace {

using KeyOf = std::u16string_view (*)(std::u16string_view);
using Index = std::unordered_map<std::u16string_view, std::u16string_view>;

// The lines by their keys; of several with one key the first.
Index IndexOf(const ListLines& lines, KeyOf keyOf) {
    Index index;
    for (const std::u16string& line : lines)
        index.emplace(keyOf(line), line);
    return index;
}

} // namespace

std::u16string_view KeyOfLine(std::u16string_view line) {
    return line.substr(0, line.find(u'='));
}

std::u16string_view WholeLine(std::u16string_view line) {
    return line;
}

ListLines MergedList(const ListLines& base, const ListLines& ours, const ListLines& theirs,
                     KeyOf keyOf) {
    if (theirs == base) return ours;
    const Index before = IndexOf(base, keyOf), now = IndexOf(theirs, keyOf);
    std::unordered_set<std::u16string_view> known;
    ListLines merged, added;
    for (const std::u16string& line : ours) {
        const auto key = keyOf(line);
        const auto old = before.find(key), other = now.find(key);
        const bool unchanged = old != before.end() && old->second == line;
        merged.emplace_back(unchanged && other != now.end() ? other->second : line);
        known.insert(key);
    }
    for (const std::u16string& line : theirs) {
        const auto key = keyOf(line);
        if (!before.contains(key) && known.insert(key).second) added.push_back(line);
    }
    const auto afterFirst = merged.begin() + (merged.empty() ? 0 : 1);
    merged.insert(afterFirst, added.begin(), added.end());
    return merged;
}
