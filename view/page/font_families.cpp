#include "view/page/font_families.h"

#include "formats/css/css_tokenizer.h"

#include <array>
#include <optional>
#include <utility>

namespace {
// Pairs of families of which pages name the one that another system has.
constexpr std::array<std::pair<std::u16string_view, std::u16string_view>, 3> alike = {{
    {u"times", u"times new roman"},
    {u"helvetica", u"arial"},
    {u"courier", u"courier new"},
}};

std::u16string_view AlikeTo(std::u16string_view family) {
    for (const auto& [one, other] : alike) {
        if (CssEqual(family, one)) return other;
        if (CssEqual(family, other)) return one;
    }
    return {};
}

// Nothing for those that browsers know by name alone.
std::optional<GenericFamily> KindOf(std::u16string_view name) {
    if (name == u"serif") return GenericFamily::Serif;
    if (name == u"sans-serif") return GenericFamily::SansSerif;
    if (name == u"monospace") return GenericFamily::Monospace;
    if (name == u"cursive") return GenericFamily::Cursive;
    if (name == u"fantasy") return GenericFamily::Fantasy;
    if (name == u"system-ui") return GenericFamily::SystemUi;
    return std::nullopt;
}
} // namespace

std::u16string FamilyOf(const CssFontFamilies& list, LineLayout& system) {
    for (const CssFontFamily& family : list) {
        if (family.generic) {
            if (const auto kind = KindOf(family.name)) return system.FamilyOf(*kind);
            continue;
        }
        if (system.IsInstalled(family.name)) return family.name;
        const std::u16string_view other = AlikeTo(family.name);
        if (!other.empty() && system.IsInstalled(other)) return std::u16string(other);
    }
    return system.FamilyOf(GenericFamily::Serif);
}
