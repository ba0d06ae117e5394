#include "formats/css/css_page_names.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_tokenizer.h"

#include <utility>

namespace {
constexpr std::size_t firstSlots = 64; // a power of two
} // namespace

std::uint32_t CssPageNames::Ask(std::u16string_view name) {
    if (slots_.empty()) Gather();
    const std::size_t number = SlotOf(name);
    if (slots_[number].name.empty()) return 0;
    slots_[number].isAsked = true;
    return static_cast<std::uint32_t>(number + 1);
}

std::uint32_t CssPageNames::Asked(std::u16string_view name) const {
    if (slots_.empty()) return 0;
    const std::size_t number = SlotOf(name);
    return slots_[number].isAsked ? static_cast<std::uint32_t>(number + 1) : 0;
}

void CssPageNames::Gather() {
    slots_.resize(firstSlots);
    for (HtmlNodeId id = tree_.RootElement(); id != noHtmlNode; id = tree_.Next(id))
        for (const HtmlAttribute& attribute : tree_[id].Attributes()) {
            if (attribute.nameSpace != HtmlAttributeNamespace::None) continue;
            if (attribute.name == HtmlName::Id) Add(attribute.Value());
            if (attribute.name != HtmlName::Class) continue;
            const std::u16string_view classes = attribute.Value().substr(0, maxCssClassUnits);
            std::size_t at = 0;
            for (auto name = NextCssClass(classes, at); !name.empty();
                 name = NextCssClass(classes, at))
                Add(name);
        }
}

void CssPageNames::Add(std::u16string_view name) {
    Slot& slot = slots_[SlotOf(name)];
    if (name.empty() || !slot.name.empty()) return;
    slot.name = name;
    if (++count_ * 2 > slots_.size()) Grow();
}

void CssPageNames::Grow() {
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    for (const Slot& slot : before)
        if (!slot.name.empty()) slots_[SlotOf(slot.name)] = slot;
}

std::size_t CssPageNames::SlotOf(std::u16string_view name) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = HashOf(name) & mask;
    const auto isName = [&](std::u16string_view other) {
        return ignoreCase_ ? EqualsIgnoringAsciiCase(name, other) : name == other;
    };
    while (!slots_[at].name.empty() && !isName(slots_[at].name))
        at = (at + 1) & mask;
    return at;
}

std::uint64_t CssPageNames::HashOf(std::u16string_view name) const {
    std::uint64_t hash = 14695981039346656037u;
    for (const char16_t unit : name)
        hash = (hash ^ (ignoreCase_ ? AsciiLower(unit) : unit)) * 1099511628211u;
    return hash ^ hash >> 32;
}

std::u16string_view NextCssClass(std::u16string_view classes, std::size_t& at) {
    while (at < classes.size() && IsCssSpace(classes[at]))
        ++at;
    const std::size_t start = at;
    while (at < classes.size() && !IsCssSpace(classes[at]))
        ++at;
    return classes.substr(start, at - start);
}
