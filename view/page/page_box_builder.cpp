#include "view/page/page_box_builder.h"

#include "formats/css/css_rare_style.h"
#include "view/page/box_generation.h"
#include "view/page/child_nodes.h"
#include "view/page/list_numbers.h"
#include "view/page/multi_columns.h"
#include "view/page/ruby_segment.h"
#include "view/page/table_builder.h"

#include <utility>

namespace {
// A float without a width whose text lies behind what follows, such as a row of leaders.
bool HangsOut(const CssBoxStyle& style) {
    return style.floats != CssFloat::None && style.width == CssLength::Pixels(0);
}

// Boxes out of the flow, of a page: a book may have the numbers of its pages so. They may all be in
// one place, and then are all laid out together.
constexpr std::size_t maxPositioned = 10'000;

class PageBoxBuilder : private BlockBuilder {
  public:
    PageBoxBuilder(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits,
                   std::function<bool(HtmlNodeId)> showsObject)
        : tree_(tree), styles_(styles), limits_(limits), showsObject_(std::move(showsObject)),
          weights_(tree, styles, limits.whole), boxes_(tree, styles, weights_),
          lines_(tree, styles, limits, boxes_), numbers_(tree, styles),
          tables_(tree, styles, limits, weights_, boxes_, lines_, *this) {}

    PageBoxes Build() {
        BuildBlock(PageBoxKind::Block, tree_.RootElement());
        tables_.CollapseBorders();
        return boxes_.Take();
    }

  private:
    void BuildBlock(PageBoxKind kind, HtmlNodeId node) override {
        boxes_.Open(kind, node);
        if (StaysInFlow(node, *boxes_.Top().style)) boxes_.Top().isTooLong = true;
        if (tree_[node].Is(HtmlName::Body) && boxes_[rootPageBox].style->background.IsTransparent())
            boxes_.MakeTopCanvas();
        if (kind == PageBoxKind::Block) {
            boxes_.Top().isFieldset = tree_[node].Is(HtmlName::Fieldset);
            boxes_.Top().isLegend = tree_[node].Is(HtmlName::Legend) &&
                                    tree_[tree_[node].parent].Is(HtmlName::Fieldset) &&
                                    !IsInLines(*boxes_.Top().style);
        }
        boxes_.Top().dropsQuirkyMargins =
            tree_.Quirks() == HtmlQuirks::Full &&
            (kind == PageBoxKind::Cell || tree_[node].Is(HtmlName::Body));
        const HtmlNodeId after = tree_.NextAfter(node);
        if (boxes_.Top().style->display == CssDisplay::ListItem)
            boxes_.Top().number = numbers_.Next(node);
        if (styles_.FirstLetter(node).box) lines_.ExpectFirstLetter(node);
        BuildGenerated(node, styles_.Before(node), GeneratedPlace::Before, node);
        VisitChildren(node);
        BuildGenerated(node, styles_.After(node), GeneratedPlace::After, after);
        lines_.Close(after);
        if (styles_.FirstLetter(node).box) lines_.ForgetFirstLetter();
        boxes_.FoldLines();
        if (HasColumns(boxes_.Top()) && boxes_.HasMoreUnits(maxUnitsInColumns))
            boxes_.Top().isTooLong = true;
        boxes_.Close();
    }

    void VisitChildren(HtmlNodeId node) {
        for (HtmlNodeId child = tree_[node].firstChild; child != noHtmlNode;) {
            const TableParts parts = tables_.PartsFrom(child);
            if (parts.makeTable) {
                lines_.Close(child);
                tables_.BuildAnonymous(parts.nodes);
            } else {
                ForEach(tree_, parts.nodes, [&](HtmlNodeId part) { Visit(part); });
            }
            child = parts.nodes.after;
        }
    }

    void Visit(HtmlNodeId id) override {
        const HtmlNode& node = tree_[id];
        if (node.IsText() && !lines_.IsEmptyText(id)) {
            lines_.AddText(id);
        } else if (node.IsElement() && !IsNotShown(node))
            VisitElement(id, *styles_.Of(id).box);
    }

    void VisitElement(HtmlNodeId id, const CssBoxStyle& style) {
        if (IsNotShown(style)) {
            const bool dividesLines = style.display == CssDisplay::Block && !IsInLines(style);
            if (dividesLines) lines_.Close(id);
            return;
        }
        const bool leavesFlow = IsOutOfFlow(style) || style.floats != CssFloat::None;
        if (IsOutOfFlow(style)) ++positioned_;
        if (leavesFlow && !StaysInFlow(id, style)) return BuildInLines(id, style);
        switch (style.display) {
        case CssDisplay::None: return;
        case CssDisplay::Inline:
            if (IsPicture(id)) return BuildInLines(id, style);
            return VisitInline(id);
        case CssDisplay::Contents:
        case CssDisplay::RubyText: return VisitInline(id);
        case CssDisplay::Ruby: return VisitRuby(id);
        case CssDisplay::InlineBlock:
        case CssDisplay::InlineTable:
            if (!weights_.IsTooLong(id)) return BuildInLines(id, style);
            break;
        case CssDisplay::TableColumn:
        case CssDisplay::TableColumnGroup: return; // of no table, or of one in blocks
        default: break;
        }
        lines_.Close(id);
        BuildOwn(id, style);
    }

    bool StaysInFlow(HtmlNodeId id, const CssBoxStyle& style) const {
        return weights_.IsTooLong(id) || (IsOutOfFlow(style) && positioned_ > maxPositioned);
    }

    bool IsPicture(HtmlNodeId id) const {
        const HtmlNode& node = tree_[id];
        if (node.Is(HtmlName::Object)) return showsObject_ && showsObject_(id);
        return node.Is(HtmlName::Img) ||
               (node.nameSpace == HtmlNamespace::Svg && node.name == HtmlName::Svg);
    }

    void VisitRuby(HtmlNodeId id) {
        lines_.AddInline(id);
        lines_.AddGenerated(styles_.Before(id), id);
        lines_.AddGenerated(styles_.After(id), id);
        for (HtmlNodeId child = tree_[id].firstChild; child != noHtmlNode;) {
            RubySegment segment = RubySegmentFrom(tree_, styles_, child);
            const bool isWord = segment.annotation != noHtmlNode &&
                                IsRubyWord(tree_, styles_, segment) &&
                                segment.weight <= limits_.lines;
            if (isWord)
                BuildRuby(id, segment);
            else
                VisitAll({segment.first, segment.next});
            child = segment.next;
        }
    }

    void VisitAll(HtmlSiblings nodes) {
        ForEach(tree_, nodes, [&](HtmlNodeId node) { Visit(node); });
    }

    void BuildRuby(HtmlNodeId id, const RubySegment& segment) {
        lines_.AddRuby(segment.first, segment.weight);
        lines_.ForgetFirstLetter();
        boxes_.OpenRuby(PageBoxKind::Ruby, segment.first, segment.after, styles_.Of(id));
        boxes_.OpenRuby(PageBoxKind::Lines, segment.first, segment.annotation, styles_.Of(id));
        VisitAll({segment.first, segment.annotation});
        boxes_.Close();
        boxes_.OpenRuby(PageBoxKind::Lines, segment.annotation, segment.after,
                        styles_.Of(segment.annotation));
        VisitAll({segment.annotation, segment.next});
        boxes_.Close();
        boxes_.Close();
    }

    void VisitInline(HtmlNodeId id) {
        const CssStyle before = styles_.Before(id), after = styles_.After(id);
        if (HasOwnBox(before)) BuildGenerated(id, before, GeneratedPlace::Before, id);
        if (tree_[id].Is(HtmlName::Br))
            lines_.AddBreak(id);
        else
            lines_.AddInline(id);
        if (!HasOwnBox(before)) lines_.AddGenerated(before, id);
        if (!HasOwnBox(after)) lines_.AddGenerated(after, id);
        if (!HasOwnBox(before)) lines_.AddGeneratedPictures(before, id);
        VisitChildren(id);
        if (HasOwnBox(after))
            BuildGenerated(id, after, GeneratedPlace::After, tree_.NextAfter(id));
        else
            lines_.AddGeneratedPictures(after, id);
    }

    // Before or after what is in an element; in lines that would begin with the node `at`.
    void BuildGenerated(HtmlNodeId id, CssStyle style, GeneratedPlace place,
                        HtmlNodeId at) override {
        if (!HasOwnBox(style)) {
            lines_.AddGenerated(style, at);
            return lines_.AddGeneratedPictures(style, id);
        }
        if (IsNotShown(*style.box) || HangsOut(*style.box)) return;
        const bool isInLines = IsInLines(*style.box);
        if (isInLines)
            lines_.AddBox(at, *style.box, 0);
        else
            lines_.Close(at);
        boxes_.OpenGenerated(id, style, place);
        lines_.AddGeneratedPictures(style, id);
        boxes_.Close();
    }

    void BuildInLines(HtmlNodeId id, const CssBoxStyle& style) {
        lines_.AddBox(id, style, weights_.Of(id));
        const HtmlNodeId letterOf = lines_.FirstLetterOf();
        lines_.ForgetFirstLetter();
        BuildOwn(id, style);
        if (IsOutOfFlow(style) || style.floats != CssFloat::None)
            lines_.ExpectFirstLetter(letterOf);
    }

    void BuildOwn(HtmlNodeId id, const CssBoxStyle& style) {
        if (IsPicture(id)) {
            boxes_.Open(PageBoxKind::Picture, id);
            return boxes_.Close();
        }
        if (style.display == CssDisplay::Table || style.display == CssDisplay::InlineTable)
            return tables_.Build(id);
        BuildBlock(PageBoxKind::Block, id);
    }

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageLimits limits_;
    const std::function<bool(HtmlNodeId)> showsObject_;
    const PageWeights weights_;
    PageBoxStack boxes_;
    LinesBuilder lines_;
    ListNumbers numbers_;
    TableBuilder tables_;
    std::size_t positioned_ = 0; // boxes so far
};
} // namespace

PageBoxes BoxesOf(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits,
                  std::function<bool(HtmlNodeId)> showsObject) {
    return PageBoxBuilder(tree, styles, limits, std::move(showsObject)).Build();
}
