// Whether the conditions of a compound hold at the element that is being opened.
#include "formats/css/css_matcher.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_tokenizer.h"

#include <algorithm>

namespace {

using Kind = CssCondition::Kind;

bool Equal(std::u16string_view a, std::u16string_view b, CssCase letters) {
    return letters == CssCase::Insensitive ? EqualsIgnoringAsciiCase(a, b) : a == b;
}

bool IsOrStarts(std::u16string_view text, std::u16string_view start, CssCase letters) {
    if (!Equal(text.substr(0, start.size()), start, letters)) return false;
    return text.size() == start.size() || text[start.size()] == u'-';
}

bool HasPart(std::u16string_view text, std::u16string_view part, CssCase letters) {
    if (letters == CssCase::Sensitive) return text.find(part) != text.npos;
    return CssLowerCase(text).find(CssLowerCase(part)) != text.npos;
}

bool Compare(Kind kind, std::u16string_view text, std::u16string_view value, CssCase letters) {
    // An empty value is in nothing, but it may be all of one.
    if (value.empty() && kind != Kind::AttributeIs && kind != Kind::AttributeDash) return false;
    switch (kind) {
    case Kind::AttributeIs: return Equal(text, value, letters);
    case Kind::AttributeWord: return HasCssWord(text, value, letters);
    case Kind::AttributeDash: return IsOrStarts(text, value, letters);
    case Kind::AttributeStart: return Equal(text.substr(0, value.size()), value, letters);
    case Kind::AttributeEnd:
        return text.size() >= value.size() &&
               Equal(text.substr(text.size() - value.size()), value, letters);
    case Kind::AttributePart: return HasPart(text, value, letters);
    default: return false;
    }
}

} // namespace

bool CssMatcher::AttributeHolds(const CssIndexedCondition& condition) {
    const bool isHtml = element_.node->nameSpace == HtmlNamespace::Html;
    const HtmlName name = isHtml ? condition.name : condition.exactName;
    if (name == HtmlName::None) return false;
    const HtmlAttribute* attribute = element_.node->Attribute(name);
    if (!attribute || condition.condition.kind == Kind::HasAttribute) return attribute;
    constexpr std::uint64_t unitsOfStep = 16;
    std::u16string_view text = attribute->Value();
    steps_ += text.size() / unitsOfStep;
    if (condition.condition.kind == Kind::AttributePart) {
        if (condition.value.size() > maxCssPartUnits) return false;
        text = text.substr(0, maxCssSearchedUnits);
        steps_ += text.size() * condition.value.size() / unitsOfStep;
    }
    return Compare(condition.condition.kind, text, condition.value,
                   condition.condition.caseOf == CssCondition::Case::Ignored ? CssCase::Insensitive
                                                                             : CssCase::Sensitive);
}

bool CssMatcher::IsEmpty() {
    HtmlNodeId child = element_.node->firstChild;
    for (; child && !tree_[child].IsElement() && !tree_[child].IsText(); ++steps_)
        child = tree_[child].nextSibling;
    return child == noHtmlNode;
}

bool CssMatcher::IsNth(const CssIndexedCondition& condition) {
    const CssSiblingPlace& place = places_.Of(element_.id);
    std::int64_t number = place.child;
    if (condition.condition.kind == Kind::NthLastChild) number = place.lastChild;
    if (condition.condition.kind == Kind::NthOfType) number = place.ofType;
    if (condition.condition.kind == Kind::NthLastOfType) number = place.lastOfType;
    const std::int64_t a = condition.condition.a, after = number - condition.condition.b;
    return a == 0 ? after == 0 : after % a == 0 && after / a >= 0;
}

bool CssMatcher::HoldsHere(const CssIndexedCondition& condition) {
    const auto holds = [this](std::uint32_t compound) { return Holds(compound); };
    switch (condition.condition.kind) {
    case Kind::Class:
        return std::ranges::find(element_.classNumbers, condition.condition.name) !=
               element_.classNumbers.end();
    case Kind::Id: return element_.idNumber == condition.condition.name;
    case Kind::NthChild:
    case Kind::NthLastChild:
    case Kind::NthOfType:
    case Kind::NthLastOfType: return IsNth(condition);
    case Kind::Root: return parent_ == htmlDocumentNode;
    case Kind::Empty: return IsEmpty();
    case Kind::Link: return IsHtmlLink(*element_.node);
    case Kind::Language:
        return !condition.value.empty() &&
               IsOrStarts(element_.language, condition.value, CssCase::Insensitive);
    case Kind::Is: return std::ranges::any_of(index_.AlternativesOf(condition), holds);
    case Kind::Not: return std::ranges::none_of(index_.AlternativesOf(condition), holds);
    case Kind::Never: return false;
    default: return AttributeHolds(condition);
    }
}
