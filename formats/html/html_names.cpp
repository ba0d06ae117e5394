#include "formats/html/html_names.h"

#include "common/hash.h"
#include "formats/html/html_limits.h"

namespace {

constexpr std::u16string_view knownNames[] = {
    u"",
#define NAME(id, text) text,
#include "formats/html/html_name_list.h"
#undef NAME
};
static_assert(std::size(knownNames) == std::size_t(HtmlName::FirstOfDocument));

std::size_t HashOf(std::u16string_view text) {
    const std::uint32_t hash = Fnv1a(text);
    return hash ^ (hash >> 15);
}

} // namespace

HtmlNames::HtmlNames() : texts_(std::begin(knownNames), std::end(knownNames)), slots_(1024) {
    for (std::size_t name = 1; name < texts_.size(); ++name)
        slots_[SlotOf(texts_[name])] = static_cast<std::uint16_t>(name);
}

HtmlName HtmlNames::Find(std::u16string_view text) const {
    return HtmlName(slots_[SlotOf(text)]);
}

HtmlName HtmlNames::Intern(std::u16string_view text) {
    const std::size_t slot = SlotOf(text);
    if (slots_[slot] != 0 || text.empty()) return HtmlName(slots_[slot]);
    if (texts_.size() > maxHtmlNames) return HtmlName(maxHtmlNames);
    const auto name = static_cast<std::uint16_t>(texts_.size());
    slots_[slot] = name;
    // A name that stands for all that are too many is no name of HTML: it has a space.
    texts_.push_back(ownTexts_.emplace_back(name == maxHtmlNames ? u" " : text));
    if (texts_.size() * 2 > slots_.size()) Grow();
    return HtmlName(name);
}

// Where the text's number stands or would stand.
std::size_t HtmlNames::SlotOf(std::u16string_view text) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = HashOf(text) & mask;
    while (slots_[slot] != 0 && texts_[slots_[slot]] != text)
        slot = (slot + 1) & mask;
    return slot;
}

void HtmlNames::Grow() {
    slots_.assign(slots_.size() * 2, 0);
    for (std::size_t name = 1; name < texts_.size(); ++name)
        slots_[SlotOf(texts_[name])] = static_cast<std::uint16_t>(name);
}
