#include "view/page/page_repairs.h"

#include "formats/html/html_units.h"
#include "view/page/page_box_builder.h"

#include <algorithm>

namespace {
// What no style sheet shows.
bool IsNeverRead(const HtmlNode& node) {
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
} // namespace

PageTextShares TextSharesOf(const HtmlTree& tree, const CssPageStyles& styles) {
    PageTextShares shares;
    HtmlNodeId behindPositioned = noHtmlNode;
    bool isPositioned = false;
    for (HtmlNodeId id = tree.RootElement(); id != noHtmlNode;) {
        if (isPositioned && id == behindPositioned) isPositioned = false;
        const HtmlNode& node = tree[id];
        if (node.IsElement()) {
            if (IsNeverRead(node)) {
                id = tree.NextBehind(id);
                continue;
            }
            if (!isPositioned && styles.Of(id).box->position == CssPosition::Absolute) {
                isPositioned = true;
                behindPositioned = tree.NextBehind(id);
            }
        } else if (node.IsText()) {
            const std::u16string_view text = node.Text();
            if (!std::all_of(text.begin(), text.end(), IsHtmlSpace)) {
                const CssStyle style = styles.Of(node.parent);
                shares.all += text.size();
                if (style.box->display == CssDisplay::None ||
                    style.inherited->visibility != CssVisibility::Visible)
                    shares.hidden += text.size();
                else if (isPositioned)
                    shares.positioned += text.size();
            }
        }
        id = tree.Next(id);
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
