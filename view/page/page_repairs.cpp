#include "view/page/page_repairs.h"

#include "formats/html/html_units.h"
#include "view/page/box_generation.h"

#include <algorithm>

namespace {
// What no style sheet shows.
bool IsNeverShown(const HtmlNode& node) {
    if (IsNotShown(node)) return true;
    switch (node.name) {
    case HtmlName::Head:
    case HtmlName::Script:
    case HtmlName::Style:
    case HtmlName::Template:
    case HtmlName::Title: return true;
    default: return false;
    }
}

bool IsSeen(CssStyle style) {
    return style.box->display != CssDisplay::None &&
           style.inherited->visibility == CssVisibility::Visible;
}

void AddShare(std::u16string_view text, CssStyle style, bool isPositioned, PageTextShares& shares) {
    if (std::all_of(text.begin(), text.end(), IsHtmlSpace)) return;
    shares.all += text.size();
    if (!IsSeen(style))
        shares.hidden += text.size();
    else if (isPositioned)
        shares.positioned += text.size();
}
} // namespace

PageTextShares TextSharesOf(const HtmlTree& tree, const CssPageStyles& styles) {
    PageTextShares shares;
    bool isPositioned = false; // up to `positionedEnd`
    HtmlNodeId positionedEnd = noHtmlNode;
    const auto next = [&](HtmlNodeId id) {
        return tree[id].IsElement() && IsNeverShown(tree[id]) ? tree.NextAfter(id) : tree.Next(id);
    };
    for (HtmlNodeId id = tree.RootElement(); id != noHtmlNode; id = next(id)) {
        const HtmlNode& node = tree[id];
        if (isPositioned && id == positionedEnd) isPositioned = false;
        if (node.IsText()) AddShare(node.Text(), styles.Of(node.parent), isPositioned, shares);
        if (isPositioned || !node.IsElement()) continue;
        isPositioned = styles.Of(id).box->position == CssPosition::Absolute;
        if (isPositioned) positionedEnd = tree.NextAfter(id);
    }
    return shares;
}

std::u16string RepairingSheet(const PageTextShares& shares) {
    std::u16string sheet;
    if (shares.hidden > shares.all / 2)
        sheet += u"*{display:revert!important;visibility:visible!important}"
                 u"[hidden]{display:block!important}";
    if (shares.positioned > (shares.all - shares.hidden) / 2)
        sheet += u"*{position:static!important}";
    return sheet;
}
