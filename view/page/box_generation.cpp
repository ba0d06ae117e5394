#include "view/page/box_generation.h"

#include "formats/css/css_rare_style.h"
#include "view/page/page_box.h"

bool IsNotShown(const HtmlNode& node) {
    if (node.nameSpace == HtmlNamespace::Svg) return node.name != HtmlName::Svg;
    if (node.nameSpace != HtmlNamespace::Html) return false;
    switch (node.name) {
    case HtmlName::Audio:
    case HtmlName::Canvas:
    case HtmlName::Embed:
    case HtmlName::Iframe:
    case HtmlName::Input:
    case HtmlName::Select:
    case HtmlName::Textarea:
    case HtmlName::Video: return true;
    default: return false;
    }
}

namespace {
bool IsPoint(const CssLength& length) {
    constexpr float point = 1; // CSS pixels
    return length.kind == CssLength::Kind::Pixels && length.value <= point;
}

// Above the page or beside it, where nobody is to see it, such as a link for screen readers.
bool IsOffPage(const CssBoxStyle& style) {
    constexpr float far = -500; // CSS pixels
    const auto isFar = [&](CssSide side) {
        const CssLength& inset = style.inset[side];
        return inset.kind == CssLength::Kind::Pixels && inset.value < far;
    };
    return isFar(cssLeft) || isFar(cssTop);
}

// It shows at most a point of its content, to the side.
bool HasNoWidth(const CssBoxStyle& style) {
    const bool isBlock = style.display == CssDisplay::Block ||
                         style.display == CssDisplay::InlineBlock ||
                         style.display == CssDisplay::ListItem;
    const bool grows =
        style.rare->flexGrow > 0 || !(style.minWidth.IsAuto() || IsPoint(style.minWidth));
    return isBlock && IsPoint(style.width) && !grows;
}
} // namespace

bool IsNotShown(const CssBoxStyle& style) {
    if (style.display == CssDisplay::None) return true;
    const bool hides = style.overflow != CssOverflow::Visible;
    if (hides && HasNoWidth(style)) return true;
    if (style.position != CssPosition::Absolute && style.position != CssPosition::Fixed)
        return false;
    return IsOffPage(style) || (hides && (IsPoint(style.height) || IsPoint(style.maxHeight)));
}

bool IsInLines(const CssBoxStyle& style) {
    return IsOutOfFlow(style) || style.floats != CssFloat::None ||
           style.display == CssDisplay::InlineBlock || style.display == CssDisplay::InlineTable;
}
