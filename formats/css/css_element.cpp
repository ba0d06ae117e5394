#include "formats/css/css_element.h"

#include "formats/css/css_limits.h"
#include "formats/html/html_units.h"

#include <algorithm>

void CssElementReader::Read(HtmlNodeId id, std::u16string_view parentLanguage,
                            CssElement& element) const {
    element.id = id;
    element.node = &tree_[id];
    element.idNumber = 0;
    element.classNumbers.clear();
    element.language = parentLanguage;
    for (const HtmlAttribute& attribute : element.node->Attributes()) {
        if (attribute.nameSpace != HtmlAttributeNamespace::None) continue;
        std::u16string_view value = attribute.Value();
        if (attribute.name == HtmlName::Id) element.idNumber = names_.Asked(value);
        if (attribute.name == HtmlName::Lang) element.language = value;
        if (attribute.name != HtmlName::Class) continue;
        value = value.substr(0, maxCssClassUnits);
        std::size_t at = 0;
        while (element.classNumbers.size() < maxCssClasses) {
            const std::u16string_view name = NextCssClass(value, at);
            if (name.empty()) break;
            const std::uint32_t number = names_.Asked(name);
            if (number &&
                std::ranges::find(element.classNumbers, number) == element.classNumbers.end())
                element.classNumbers.push_back(number);
        }
    }
}

bool IsHtmlLink(const HtmlNode& node) {
    return (node.Is(HtmlName::A) || node.Is(HtmlName::Area)) && node.Attribute(HtmlName::Href);
}

bool HasCssWord(std::u16string_view text, std::u16string_view word, CssCase letters) {
    std::size_t at = 0;
    std::u16string_view one = NextCssClass(text, at);
    while (!one.empty()) {
        if (letters == CssCase::Insensitive ? EqualsIgnoringAsciiCase(one, word) : one == word)
            return true;
        one = NextCssClass(text, at);
    }
    return false;
}
