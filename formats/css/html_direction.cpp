#include "formats/css/html_direction.h"

#include "common/unicode.h"
#include "common/utf.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_style.h"
#include "formats/css/css_tokenizer.h"
#include "formats/css/html_hint_values.h"

namespace {

// Of what stands in the element, without parts that have a direction of their own.
CssDirection FirstDirection(const HtmlTree& tree, HtmlNodeId element) {
    int left = maxCssDirectionSearch;
    for (HtmlNodeId id = tree.Next(element, element); id && left > 0; --left) {
        const HtmlNode& node = tree[id];
        const bool isApart = node.Is(HtmlName::Bdi) || node.Is(HtmlName::Script) ||
                             node.Is(HtmlName::Style) || node.Attribute(HtmlName::Dir);
        for (std::u16string_view text = node.IsText() ? node.Text() : std::u16string_view();
             !text.empty() && left > 0; --left) {
            const char32_t character = FirstCharacter(text);
            const BidiClass bidi = BidiClassOf(character);
            if (bidi == BidiClass::L) return CssDirection::LeftToRight;
            if (bidi == BidiClass::R || bidi == BidiClass::AL) return CssDirection::RightToLeft;
            text.remove_prefix(character > 0xFFFF ? 2 : 1);
        }
        id = isApart ? tree.NextAfter(id, element) : tree.Next(id, element);
    }
    return CssDirection::LeftToRight;
}

} // namespace

void ReadDirectionHints(const HtmlTree& tree, HtmlNodeId element, CssBlock& block) {
    const HtmlNode& node = tree[element];
    const HtmlAttribute* dir = node.Attribute(HtmlName::Dir);
    const std::u16string_view value = dir ? dir->Value() : std::u16string_view();
    const bool isLeft = CssEqual(value, u"ltr"), isRight = CssEqual(value, u"rtl");
    const bool isAuto = CssEqual(value, u"auto") || (node.Is(HtmlName::Bdi) && !isLeft && !isRight);
    if (!isLeft && !isRight && !isAuto) return;
    CssDirection direction = isRight ? CssDirection::RightToLeft : CssDirection::LeftToRight;
    if (isAuto) direction = FirstDirection(tree, element);
    AddHint(block, CssProperty::Direction, direction);
    const bool overrides = node.Is(HtmlName::Bdo);
    AddHint(block, CssProperty::UnicodeBidi,
            overrides ? CssUnicodeBidi::IsolateOverride : CssUnicodeBidi::Isolate);
}
