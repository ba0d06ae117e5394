#include "formats/css/css_element.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_tokenizer.h"

#include <algorithm>

std::uint32_t CssElementReader::AddName(std::u16string_view name) {
    return ignoreCase_ ? names_.Add(CssLowerCase(name)) : names_.Add(name);
}

std::uint32_t CssElementReader::NumberOf(std::u16string_view name) const {
    return ignoreCase_ ? names_.Find(CssLowerCase(name)) : names_.Find(name);
}

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
        if (attribute.name == HtmlName::Id) element.idNumber = NumberOf(value);
        if (attribute.name == HtmlName::Lang) element.language = value;
        if (attribute.name != HtmlName::Class) continue;
        value = value.substr(0, maxCssClassUnits);
        for (std::size_t at = 0;
             at < value.size() && element.classNumbers.size() < maxCssClasses;) {
            while (at < value.size() && IsCssSpace(value[at]))
                ++at;
            const std::size_t start = at;
            while (at < value.size() && !IsCssSpace(value[at]))
                ++at;
            const std::uint32_t number = NumberOf(value.substr(start, at - start));
            if (number &&
                std::ranges::find(element.classNumbers, number) == element.classNumbers.end())
                element.classNumbers.push_back(number);
        }
    }
}

bool IsHtmlLink(const HtmlNode& node) {
    return (node.Is(HtmlName::A) || node.Is(HtmlName::Area)) && node.Attribute(HtmlName::Href);
}

bool HasCssWord(std::u16string_view text, std::u16string_view word, bool ignoreCase) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        while (at < text.size() && !IsCssSpace(text[at]))
            ++at;
        const std::u16string_view one = text.substr(start, at - start);
        if (!one.empty() && (ignoreCase ? EqualsIgnoringAsciiCase(one, word) : one == word))
            return true;
        ++at;
    }
    return false;
}
