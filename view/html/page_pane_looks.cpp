// How a page looks and what it consists of, for those who do not see it.
#include "view/html/page_objects.h"
#include "view/html/page_pane.h"
#include "view/page/page_background.h"
#include "view/page/text_alignment.h"

#include <algorithm>

namespace {
TextBaseline BaselineOf(CssVerticalAlign align) {
    return align == CssVerticalAlign::Super ? TextBaseline::Superscript
           : align == CssVerticalAlign::Sub ? TextBaseline::Subscript
                                            : TextBaseline::Normal;
}
} // namespace

HtmlNodeId PagePane::ElementAt(TextPos position) const {
    const auto& pieces = page_->Counted().pieces;
    return pieces.empty() ? page_->Tree().Body()
                          : page_->Tree()[pieces[page_->PieceAt(position)].node].parent;
}

CharacterLook PagePane::LookOfCharacter(TextPos position) {
    CharacterLook look;
    look.span = StyleSpan(position);
    if (!UpdateLayout()) return look;
    const HtmlTree& tree = page_->Tree();
    const CssPageStyles& styles = shown_->Styles();
    const HtmlNodeId element = ElementAt(position);
    if (element == noHtmlNode) return look;
    const CssStyle style = styles.Of(element);
    look.background = shown_->CanvasColor();
    for (HtmlNodeId around = element; tree[around].IsElement(); around = tree[around].parent) {
        const CssColor background = styles.Of(around).box->background;
        if (!IsDrawn(background)) continue;
        look.background = background.Bgr();
        break;
    }
    look.style = shown_->Fonts().StyleOf(*style.inherited, {.background = look.background});
    look.style.baseline = BaselineOf(style.box->verticalAlign);
    look.foreground = look.style.color.value_or(shown_->TextColor());
    const HtmlNodeId link = LinkAround(element);
    if (link != noHtmlNode) look.link = tree[link].Attribute(HtmlName::Href)->Value();
    return look;
}

ParagraphLook PagePane::LookOfParagraph(TextPos position) {
    ParagraphLook look;
    look.span = ReadingParagraph(position);
    if (!UpdateLayout()) return look;
    const HtmlTree& tree = page_->Tree();
    const HtmlNodeId element = ElementAt(position);
    if (element == noHtmlNode) return look;
    const CssInheritedStyle& style = *shown_->Styles().Of(element).inherited;
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

const ReadingObjects& PagePane::Objects() {
    if (!objects_) {
        objects_.emplace();
        if (UpdateLayout()) objects_ = PageObjects(*page_, shown_->Styles());
    }
    return *objects_;
}

void PagePane::ForgetObjects() {
    objects_.reset();
    ++objectsVersion_;
}

void PagePane::FollowObject(std::size_t index) {
    const ReadingObjects& objects = Objects();
    if (index >= objects.size() || objects[index].kind != ReadingObjectKind::Link) return;
    if (onLink) onLink(objects[index].node);
}

std::size_t PagePane::FocusedObject() {
    const ReadingObjects& objects = Objects();
    const auto found = std::ranges::find_if(objects, [this](const ReadingObject& object) {
        return object.kind == ReadingObjectKind::Link && object.node == focusedLink_;
    });
    return found == objects.end() ? noReadingObject : std::size_t(found - objects.begin());
}
