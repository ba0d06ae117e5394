// The formats and the structure of a page, for assistive technology.
#include "view/html/page_objects.h"
#include "view/html/readable_page.h"
#include "view/page/page_background.h"
#include "view/page/text_alignment.h"

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

CharacterFormat ReadablePage::CharacterFormatAt(TextPos position) {
    CharacterFormat format;
    format.span = StyleSpan(position);
    const auto view = Viewport();
    if (!view) return format;
    ShownPage& shown = view->shown;
    const HtmlTree& tree = view->page.Tree();
    const CssPageStyles& styles = shown.Styles();
    const HtmlNodeId element = ElementAt(view->page, position);
    if (element == noHtmlNode) return format;
    const CssStyle style = styles.Of(element);
    format.background = shown.CanvasColor();
    for (HtmlNodeId around = element; tree[around].IsElement(); around = tree[around].parent) {
        const CssColor background = styles.Of(around).box->background;
        if (!IsDrawn(background)) continue;
        format.background = background.Bgr();
        break;
    }
    format.style = shown.Fonts().StyleOf(*style.inherited, {.background = format.background});
    format.style.baseline = BaselineOf(style.box->verticalAlign);
    format.foreground = format.style.color.value_or(shown.TextColor());
    const HtmlNodeId link = LinkAround(tree, element);
    if (link != noHtmlNode) format.link = tree[link].Attribute(HtmlName::Href)->Value();
    return format;
}

ParagraphFormat ReadablePage::ParagraphFormatAt(TextPos position) {
    ParagraphFormat format;
    format.span = ReadingParagraph(position);
    const auto view = Viewport();
    if (!view) return format;
    const HtmlTree& tree = view->page.Tree();
    const HtmlNodeId element = ElementAt(view->page, position);
    if (element == noHtmlNode) return format;
    const CssInheritedStyle& style = *view->shown.Styles().Of(element).inherited;
    format.alignment = AlignmentOf(style);
    format.rightToLeft = style.direction == CssDirection::RightToLeft;
    for (HtmlNodeId around = element; tree[around].IsElement(); around = tree[around].parent) {
        if (format.headingLevel == 0) format.headingLevel = HeadingLevelOf(tree[around]);
        if (tree[around].Is(HtmlName::Li)) format.isListItem = true;
        if (!tree[around].Is(HtmlName::Ul) && !tree[around].Is(HtmlName::Ol)) continue;
        format.isNumbered = format.isListItem && tree[around].Is(HtmlName::Ol);
        break;
    }
    return format;
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
