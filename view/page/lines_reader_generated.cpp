// What stands in lines by their styles: markers, first letters and generated content.
#include "view/page/box_generation.h"
#include "view/page/lines_reader.h"
#include "view/page/list_marker.h"
#include "view/page/page_background.h"
#include "view/page/page_weights.h"
#include "view/page/text_raise.h"

// Of a pseudo-element with this style.
TextPlace LinesReader::PlaceWithin(HtmlNodeId element, CssStyle style) {
    TextPlace place = PlaceOf(element);
    AddOwnPlace(style, styles_.Of(element), fonts_, place);
    // NOLINTNEXTLINE(clang-analyzer-core.NonNullParamChecker): what is generated has a style
    if (IsDrawn(style.box->background)) place.background = style.box->background.Bgr();
    return place;
}

void LinesReader::AddFirstLetter(HtmlNodeId text, const PageFirstLetter& letter) {
    const CssStyle style = styles_.FirstLetter(letter.block);
    const HtmlNode& node = tree_[text];
    const TextPlace place = PlaceWithin(node.parent, style);
    OpenDecoration(noHtmlNode, style, InlineEdge::Here, place);
    AddSide(*style.box, cssLeft);
    writer_.SetNode(text);
    writer_.AddText(node.Text().substr(0, letter.end), *style.inherited, place, letter.start);
    writer_.SetNode(noHtmlNode);
    AddSide(*style.box, cssRight);
    CloseDecoration(noHtmlNode, InlineEdge::Here);
}

// The marker of a list's item, if these are its first lines.
void LinesReader::AddMarker() {
    const PageBoxId item = lines_.node != noHtmlNode ? id_ : lines_.parent;
    if (boxes_[item].style->display != CssDisplay::ListItem) return;
    if (item != id_ && boxes_.FirstChild(item) != id_) return;
    writer_.Content().hasMarker = true;
    if (boxes_[item].text->listStylePosition != CssListStylePosition::Inside) return;
    const std::u16string marker = ListMarker(boxes_[item].text->listStyleType, boxes_[item].number);
    if (!marker.empty())
        writer_.AddText(marker + u" ", *boxes_[item].text, {.background = background_});
}

// Before or after what is in an element.
void LinesReader::AddGenerated(CssStyle style, HtmlNodeId element, GeneratedPlace generatedPlace) {
    if (!style.box) return;
    if (HasOwnBox(style)) {
        const PageBox& box = boxes_[nextBox_];
        if (box.node == element && box.generatedPlace == generatedPlace) AddBox();
        return;
    }
    const TextPlace place = PlaceWithin(element, style);
    OpenDecoration(noHtmlNode, style, InlineEdge::Here, place);
    AddSide(*style.box, cssLeft);
    AddContent(style, element, generatedPlace, place);
    AddSide(*style.box, cssRight);
    CloseDecoration(noHtmlNode, InlineEdge::Here);
}

void LinesReader::AddContent(CssStyle style, HtmlNodeId element, GeneratedPlace generatedPlace,
                             const TextPlace& place) {
    for (const CssContentItem& item : styles_.Content(style.box->content)) {
        const bool isNext = nextBox_ != noPageBox && boxes_[nextBox_].generated == &item;
        if (item.kind != CssContentItem::Kind::Picture)
            writer_.AddText(generated_.Of(item, element, generatedPlace).substr(0, maxGenerated),
                            *style.inherited, place);
        else if (isNext)
            AddBox();
    }
}
