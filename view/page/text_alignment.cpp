#include "view/page/text_alignment.h"

Alignment AlignmentOf(const CssInheritedStyle& style) {
    const bool rightToLeft = style.direction == CssDirection::RightToLeft;
    switch (style.textAlign) {
    case CssTextAlign::Left:
    case CssTextAlign::HtmlLeft: return Alignment::Left;
    case CssTextAlign::Right:
    case CssTextAlign::HtmlRight: return Alignment::Right;
    case CssTextAlign::Center:
    case CssTextAlign::HtmlCenter: return Alignment::Center;
    case CssTextAlign::Justify: return Alignment::Justified;
    case CssTextAlign::End: return rightToLeft ? Alignment::Left : Alignment::Right;
    default: return rightToLeft ? Alignment::Right : Alignment::Left;
    }
}
