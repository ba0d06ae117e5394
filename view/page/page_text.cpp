#include "view/page/page_text.h"

#include "formats/html/html_integer.h"
#include "formats/pictures/svg_tree.h"
#include "view/page/lines_reader.h"
#include "view/page/list_marker.h"
#include "view/page/page_background.h"

LinesText PageText::TextOf(PageBoxId lines) {
    LinesReader reader(tree_, styles_, boxes_, fonts_, lines);
    LinesText text = reader.Read();
    const CssStyle style = reader.FirstLineStyle();
    if (!style.box) return text;
    LinesReader first(tree_, styles_, boxes_, fonts_, lines);
    text.content->firstLine = first.ReadFirstLine(style);
    if (text.content->firstLine->text.size() != text.content->text.text.size())
        text.content->firstLine = nullptr;
    return text;
}

Size PageText::PictureSize(PageBoxId picture) {
    return pictureSize ? pictureSize(boxes_[picture]) : Size{};
}

std::optional<int> PageText::Number(PageBoxId box, HtmlName attribute) {
    const HtmlNodeId node = boxes_[box].node;
    return node == noHtmlNode ? std::nullopt : HtmlInteger(tree_[node], attribute);
}

std::shared_ptr<const InlineContent> PageText::MarkerOf(PageBoxId item) {
    const PageBox& box = boxes_[item];
    const std::u16string marker = ListMarker(box.text->listStyleType, box.number);
    if (marker.empty() || box.text->listStylePosition == CssListStylePosition::Inside)
        return nullptr;
    auto content = PlainContent(item, marker);
    content->wraps = false;
    return content;
}

std::shared_ptr<const InlineContent> PageText::AlternativeOf(PageBoxId picture) {
    const PageBox& box = boxes_[picture];
    if (box.generated) return nullptr;
    if (tree_[box.node].nameSpace == HtmlNamespace::Svg) {
        const std::u16string text = SvgText(tree_, box.node);
        return text.empty() ? nullptr : PlainContent(picture, text);
    }
    const HtmlAttribute* text = tree_[box.node].Attribute(HtmlName::Alt);
    return text ? PlainContent(picture, text->Value()) : nullptr;
}

// In the style of the box.
std::shared_ptr<InlineContent> PageText::PlainContent(PageBoxId id, std::u16string_view text) {
    const PageBox& box = boxes_[id];
    auto content = std::make_shared<InlineContent>();
    content->strut = fonts_.Of(*box.text);
    content->strutLineHeight = fonts_.LineHeight(*box.text);
    content->text.text = text;
    content->text.runs = {{0, fonts_.Of(*box.text, {.background = BackgroundOf(boxes_, id)})}};
    content->text.rightToLeft = box.text->direction == CssDirection::RightToLeft;
    content->runs = {{0, content->strut, content->strutLineHeight, 0}};
    if (IsHidden(box)) content->hidden = {{0, TextPos(text.size())}};
    return content;
}
