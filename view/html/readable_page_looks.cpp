// How a page looks and what it consists of, for those who do not see it.
#include "view/html/page_objects.h"
#include "view/html/readable_page.h"
#include "view/page/page_background.h"
#include "view/page/text_alignment.h"

#include <algorithm>

namespace {
TextBaseline BaselineOf(CssVerticalAlign align) {
    return align == CssVerticalAlign::Super ? TextBaseline::Superscript
           : align == CssVerticalAlign::Sub ? TextBaseline::Subscript
                                            : TextBaseline::Normal;
}

HtmlNodeId ElementAt(const LoadedPage& page, TextPos position) {
    const auto& pieces = page.Counted().pieces;
    return pieces.empty() ? page.Tree().Body()
                          : page.Tree()[pieces[page.PieceAt(position)].node].parent;
}
} // namespace

CharacterLook ReadablePage::LookOfCharacter(TextPos position) {
    CharacterLook look;
    look.span = StyleSpan(position);
    const auto view = Viewport();
    if (!view) return look;
    ShownPage& shown = view->shown;
    const HtmlTree& tree = view->page.Tree();
    const CssPageStyles& styles = shown.Styles();
    const HtmlNodeId element = ElementAt(view->page, position);
    if (element == noHtmlNode) return look;
    const CssStyle style = styles.Of(element);
    look.background = shown.CanvasColor();
    for (HtmlNodeId around = element; tree[around].IsElement(); around = tree[around].parent) {
        const CssColor background = styles.Of(around).box->background;
        if (!IsDrawn(background)) continue;
        look.background = background.Bgr();
        break;
    }
    look.style = shown.Fonts().StyleOf(*style.inherited, {.background = look.background});
    look.style.baseline = BaselineOf(style.box->verticalAlign);
    look.foreground = look.style.color.value_or(shown.TextColor());
    const HtmlNodeId link = LinkAround(tree, element);
    if (link != noHtmlNode) look.link = tree[link].Attribute(HtmlName::Href)->Value();
    return look;
}

ParagraphLook ReadablePage::LookOfParagraph(TextPos position) {
    ParagraphLook look;
    look.span = ReadingParagraph(position);
    const auto view = Viewport();
    if (!view) return look;
    const HtmlTree& tree = view->page.Tree();
    const HtmlNodeId element = ElementAt(view->page, position);
    if (element == noHtmlNode) return look;
    const CssInheritedStyle& style = *view->shown.Styles().Of(element).inherited;
    look.alignment = AlignmentOf(style);
    look.rightToLeft = style.direction == CssDirection::RightToLeft;
    for (HtmlNodeId around = element; tree[around].IsElement(); around = tree[around].parent) {
        if (look.headingLevel == 0) look.headingLevel = HeadingLevelOf(tree[around]);
        if (tree[around].Is(HtmlName::Li)) look.isListItem = true;
        if (!tree[around].Is(HtmlName::Ul) && !tree[around].Is(HtmlName::Ol)) continue;
        look.isNumbered = look.isListItem && tree[around].Is(HtmlName::Ol);
        break;
    }
    return look;
}

const ReadingObjects& ReadablePage::Objects() {
    if (!objects_) {
        objects_.emplace();
        if (const auto view = Viewport()) objects_ = PageObjects(view->page, view->shown.Styles());
    }
    return *objects_;
}

void ReadablePage::ForgetObjects() {
    objects_.reset();
    ++objectsVersion_;
}
