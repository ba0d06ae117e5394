#include "formats/css/css_media.h"

#include "formats/css/css_length.h"
#include "formats/css/css_limits.h"

#include <optional>
#include <vector>

namespace {

using Kind = CssToken::Kind;

std::optional<float> PixelsOf(const CssToken& token, const CssMedium& medium) {
    const std::optional<CssValue> value = CssLengthOf(token);
    if (!value) return std::nullopt;
    return CssPixels(*value, {medium.fontSize, medium.fontSize, &medium});
}

bool Compare(float size, std::u16string_view relation, float limit) {
    if (relation == u"<") return size < limit;
    if (relation == u"<=") return size <= limit;
    if (relation == u">") return size > limit;
    if (relation == u">=") return size >= limit;
    return size == limit;
}

std::u16string ReadRelation(CssTokenStream& tokens) {
    std::u16string relation;
    while (tokens.Peek().Is(Kind::Delim) && relation.size() < 2)
        relation += tokens.Next().delim;
    return relation;
}

std::u16string Turned(std::u16string relation) {
    if (!relation.empty() && relation[0] == u'<')
        relation[0] = u'>';
    else if (!relation.empty() && relation[0] == u'>')
        relation[0] = u'<';
    return relation;
}

// Of the feature's name, the size of the window that it asks for; nothing for what is not known.
std::optional<float> SizeOf(std::u16string_view name, const CssMedium& medium) {
    if (CssEqual(name, u"width")) return medium.viewportWidth;
    if (CssEqual(name, u"height")) return medium.viewportHeight;
    return std::nullopt;
}

// What is between the parentheses; an unknown feature does not hold.
bool FeatureHolds(CssTokenStream feature, const CssMedium& medium, bool& dependsOnViewport) {
    std::optional<float> left;
    std::u16string leftRelation;
    if (!feature.Peek().Is(Kind::Ident)) { // 400px < width
        left = PixelsOf(feature.Next(), medium);
        leftRelation = ReadRelation(feature);
        if (!left || leftRelation.empty()) return false;
    }
    std::u16string name = CssLowerCase(feature.Next().text);
    std::u16string relation = u"=";
    const bool isMin = name.starts_with(u"min-"), isMax = name.starts_with(u"max-");
    if (isMin || isMax) {
        name.erase(0, 4);
        relation = isMin ? u">=" : u"<=";
    }
    const std::optional<float> size = SizeOf(name, medium);
    if (!size) {
        if (name == u"orientation" && feature.Take(Kind::Colon)) {
            dependsOnViewport = true;
            const bool isPortrait = medium.viewportHeight >= medium.viewportWidth;
            return feature.Peek().IsIdent(isPortrait ? u"portrait" : u"landscape");
        }
        return name == u"color" && feature.AtEnd();
    }
    dependsOnViewport = true;
    if (left && !Compare(*size, Turned(leftRelation), *left)) return false;
    if (feature.AtEnd()) return left.has_value() || (!isMin && !isMax && *size > 0);
    if (!feature.Take(Kind::Colon)) relation = ReadRelation(feature);
    const std::optional<float> right = PixelsOf(feature.Next(), medium);
    return right && feature.AtEnd() && !relation.empty() && Compare(*size, relation, *right);
}

// not, and, or between features in parentheses. An error makes the query false.
bool ConditionHolds(CssTokenStream& query, const CssMedium& medium, CssMediaAnswer& answer,
                    int depth) {
    bool holds = true, isFirst = true, isOr = false;
    while (true) {
        const bool negated = query.TakeIdent(u"not");
        if (!query.Take(Kind::OpenParen)) return false;
        CssTokenStream inner = query.Arguments();
        bool one = false;
        if (inner.Peek().Is(Kind::OpenParen) || inner.Peek().IsIdent(u"not"))
            one = depth < maxCssSelectorDepth && ConditionHolds(inner, medium, answer, depth + 1);
        else
            one = FeatureHolds(inner, medium, answer.dependsOnViewport);
        one = one != negated;
        holds = isFirst ? one : isOr ? holds || one : holds && one;
        isFirst = false;
        if (query.AtEnd()) return holds;
        isOr = query.Peek().IsIdent(u"or");
        if (!isOr && !query.Peek().IsIdent(u"and")) return false;
        query.Next();
    }
}

bool QueryHolds(CssTokenStream query, const CssMedium& medium, CssMediaAnswer& answer) {
    const std::size_t start = query.Place();
    const bool negated = query.TakeIdent(u"not");
    if (!negated) query.TakeIdent(u"only");
    if (!query.Peek().Is(Kind::Ident)) {
        query.GoBack(start);
        return ConditionHolds(query, medium, answer, 0);
    }
    const CssToken& type = query.Next();
    bool holds = type.IsIdent(u"all") || type.IsIdent(medium.isPrint ? u"print" : u"screen");
    if (!query.AtEnd()) {
        if (!query.TakeIdent(u"and")) return false;
        const bool condition = ConditionHolds(query, medium, answer, 0);
        holds = holds && condition;
    }
    return holds != negated;
}

} // namespace

CssMediaAnswer AskCssMedia(CssTokenStream list, const CssMedium& medium) {
    CssMediaAnswer answer;
    if (list.AtEnd()) return answer;
    answer.applies = false;
    while (!list.AtEnd()) {
        const bool holds = QueryHolds(list.UpToComma(), medium, answer);
        answer.applies |= holds;
    }
    return answer;
}

CssMediaAnswer AskCssMedia(std::u16string_view list, const CssMedium& medium) {
    CssTokenizer tokenizer(list.substr(0, maxCssTokens));
    std::vector<CssToken> tokens;
    for (CssToken token = tokenizer.Next(); !token.Is(Kind::End); token = tokenizer.Next())
        tokens.push_back(token);
    return AskCssMedia(CssTokenStream(tokens), medium);
}
