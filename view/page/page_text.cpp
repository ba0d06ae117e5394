#include "view/page/page_text.h"

#include "common/find_text.h"
#include "common/text.h"
#include "formats/html/html_units.h"
#include "view/page/html_number.h"
#include "view/page/list_marker.h"
#include "view/page/page_box_builder.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr char16_t lineSeparator = u'\u2028', objectReplacement = u'\uFFFC';
// Neither is of the page's text: both keep a line from breaking.
constexpr char16_t noBreakSpace = u'\u00A0', wordJoiner = u'\u2060';

// Of one block's text; each breaks the lines behind it anew. What is beyond stands in its line.
constexpr int maxFloats = 200;

bool KeepsSpaces(CssWhiteSpace whiteSpace) {
    return whiteSpace == CssWhiteSpace::Pre || whiteSpace == CssWhiteSpace::PreWrap ||
           whiteSpace == CssWhiteSpace::BreakSpaces;
}
bool Wraps(CssWhiteSpace whiteSpace) {
    return whiteSpace != CssWhiteSpace::NoWrap && whiteSpace != CssWhiteSpace::Pre;
}
bool KeepsBreaks(CssWhiteSpace whiteSpace) {
    return KeepsSpaces(whiteSpace) || whiteSpace == CssWhiteSpace::PreLine;
}

class LinesReader {
  public:
    LinesReader(const HtmlTree& tree, const CssPageStyles& styles, const PageBoxes& boxes,
                PageFonts& fonts, PageBoxId lines)
        : tree_(tree), styles_(styles), boxes_(boxes), fonts_(fonts), id_(lines),
          lines_(boxes[lines]) {
        result_.content = std::make_shared<InlineContent>();
        nextBox_ = boxes.FirstChild(lines);
        PageBoxId box = lines;
        while (boxes[box].node == noHtmlNode)
            box = boxes[box].parent;
        container_ = boxes[box].node;
    }

    LinesText Read() {
        SetUp();
        AddMarkerInside();
        if (lines_.first == container_) {
            AddGenerated(styles_.Before(container_));
            const HtmlNodeId child = tree_[container_].firstChild;
            if (child == noHtmlNode) AddGenerated(styles_.After(container_));
            ReadFrom(child);
        } else if (lines_.first == lines_.behind) {
            AddGenerated(styles_.After(container_));
        } else {
            ReadFrom(lines_.first);
        }
        RemoveTrailingSpace();
        return std::move(result_);
    }

  private:
    InlineContent& Content() { return *result_.content; }
    const InlineContent& Content() const { return *result_.content; }
    std::u16string& Text() { return Content().text.text; }
    TextPos Length() { return TextPos(Text().size()); }

    void SetUp() {
        const CssInheritedStyle& style = *lines_.text;
        Content().strut = fonts_.Of(style);
        Content().strutLineHeight = fonts_.LineHeight(style);
        Content().xHeight = fonts_.Pixels(style.fontSize) / 2;
        Content().text.rightToLeft = style.direction == CssDirection::RightToLeft;
        Content().wraps = Wraps(style.whiteSpace);
        Content().alignment = AlignmentOf(style);
        Content().text.runs = {{0, Content().strut}};
        Content().runs = {{0, Content().strut, Content().strutLineHeight, 0}};
        whiteSpaceEnds_ = true;
    }

    static Alignment AlignmentOf(const CssInheritedStyle& style) {
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

    // In document order, up to the node behind the lines.
    void ReadFrom(HtmlNodeId id) {
        while (id != noHtmlNode && id != lines_.behind) {
            const bool within = Enter(id);
            const HtmlNodeId next = within ? tree_.Next(id) : tree_.NextBehind(id);
            Leave(within ? id : tree_[id].parent, next);
            id = next;
        }
    }

    // Whether what is in the node is read next.
    bool Enter(HtmlNodeId id) {
        const HtmlNode& node = tree_[id];
        if (node.IsText()) {
            node_ = id;
            AddText(node.Text(), *styles_.Of(node.parent).inherited, RaiseOf(node.parent));
        }
        node_ = noHtmlNode;
        if (!node.IsElement() || IsNotShown(node)) return false;
        if (styles_.Of(id).box->display == CssDisplay::None) return false;
        if (nextBox_ != noPageBox && boxes_[nextBox_].node == id) {
            AddBox();
            return false;
        }
        if (node.Is(HtmlName::Br)) {
            node_ = id;
            AddBreak(0);
            node_ = noHtmlNode;
        }
        AddSide(id, cssLeft);
        AddGenerated(styles_.Before(id));
        return true;
    }

    // What an element takes on a side in its line: margin, border and padding.
    void AddSide(HtmlNodeId element, CssSide side) {
        const CssBoxStyle& style = *styles_.Of(element).box;
        if (style.display != CssDisplay::Inline || !lines_.hasText) return;
        const float css =
            style.margin[side].Of(0) + style.borderWidth[side] + style.padding[side].Of(0);
        const int width = int(std::lround(fonts_.Pixels(css)));
        if (width <= 0) return;
        node_ = noHtmlNode;
        if (!whiteSpaceEnds_) AddUnit(wordJoiner, 0);
        Content().text.boxes.push_back({Length(), width});
        AddUnit(objectReplacement, 0);
        if (side == cssLeft) AddUnit(wordJoiner, 0);
    }

    // The elements that end before the next node, from this one outwards.
    void Leave(HtmlNodeId element, HtmlNodeId next) {
        const HtmlNodeId around = next == noHtmlNode ? noHtmlNode : tree_[next].parent;
        for (; element != noHtmlNode && element != around; element = tree_[element].parent) {
            AddGenerated(styles_.After(element));
            if (element == container_) return;
            AddSide(element, cssRight);
        }
    }

    void AddBox() {
        const PageBox& box = boxes_[nextBox_];
        const bool isFloat = box.style->floats != CssFloat::None && floats_++ < maxFloats;
        const bool inLine = !IsOutOfFlow(*box.style) && !isFloat;
        result_.boxes.push_back({Length(), nextBox_, inLine});
        if (inLine) {
            StartRun(*lines_.text, 0, false);
            const HtmlNodeId around = tree_[box.node].parent;
            const bool joined = !WrapsIn(*styles_.Of(around).inherited);
            if (joined && !Text().empty() && Text().back() != u' ') AddUnit(wordJoiner, 0);
            node_ = box.node;
            AddUnit(objectReplacement, 0);
            node_ = noHtmlNode;
            if (joined && tree_[box.node].nextSibling != noHtmlNode) AddUnit(wordJoiner, 0);
            whiteSpaceEnds_ = false;
        }
        nextBox_ = box.nextSibling;
    }

    void AddBreak(std::size_t unit) {
        RemoveTrailingSpace();
        AddUnit(lineSeparator, unit);
        whiteSpaceEnds_ = true;
    }

    // One that stands for a unit of the node that is read.
    void AddUnit(char16_t shown, std::size_t unit) {
        auto& origins = Content().origins;
        const InlineOrigin origin{Length(), node_, std::uint32_t(unit)};
        while (!origins.empty() && origins.back().start >= origin.start)
            origins.pop_back(); // of a space that went
        if (origins.empty() || !GoesOn(origins.back(), origin)) origins.push_back(origin);
        Text() += shown;
    }

    static bool GoesOn(const InlineOrigin& before, const InlineOrigin& origin) {
        const auto distance = std::uint32_t(origin.start - before.start);
        return before.node == origin.node &&
               (origin.node == noHtmlNode || before.unit + distance == origin.unit);
    }

    // The marker of a list's item, where it is part of its first line.
    void AddMarkerInside() {
        const PageBoxId item = lines_.node != noHtmlNode ? id_ : lines_.parent;
        if (boxes_[item].style->display != CssDisplay::ListItem) return;
        if (boxes_[item].text->listStylePosition != CssListStylePosition::Inside) return;
        if (item != id_ && boxes_.FirstChild(item) != id_) return;
        const std::u16string marker =
            ListMarker(boxes_[item].text->listStyleType, boxes_[item].number);
        if (!marker.empty()) AddText(marker + u" ", *boxes_[item].text, 0);
    }

    void AddGenerated(CssStyle style) {
        if (!style.box) return;
        for (const CssContentItem& item : styles_.Content(style.box->content))
            if (item.kind == CssContentItem::Kind::Text) AddText(item.text, *style.inherited, 0);
    }

    // How far the baseline of an element's text is above that of the lines.
    double RaiseOf(HtmlNodeId element) const {
        double raise = 0;
        for (; tree_[element].IsElement() && !IsContainer(element);
             element = tree_[element].parent) {
            const CssBoxStyle& style = *styles_.Of(element).box;
            const float around = styles_.Of(tree_[element].parent).inherited->fontSize;
            if (style.verticalAlign == CssVerticalAlign::Super)
                raise += around / 3;
            else if (style.verticalAlign == CssVerticalAlign::Sub)
                raise -= around / 5;
            else if (style.verticalAlign == CssVerticalAlign::Length)
                raise += style.verticalShift.Of(styles_.Of(element).inherited->fontSize);
        }
        return fonts_.Pixels(float(raise));
    }
    bool IsContainer(HtmlNodeId element) const {
        return styles_.Of(element).box->display != CssDisplay::Inline &&
               styles_.Of(element).box->display != CssDisplay::Contents;
    }

    void AddText(std::u16string_view text, const CssInheritedStyle& style, double raise) {
        StartRun(style, raise, false);
        const bool keepsSpaces = KeepsSpaces(style.whiteSpace);
        const bool keepsBreaks = KeepsBreaks(style.whiteSpace);
        const bool wraps = WrapsIn(style);
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char16_t unit = text[i];
            if (unit == u'\n' && keepsBreaks) {
                if (keepsSpaces)
                    AddUnit(lineSeparator, i);
                else
                    AddBreak(i);
                whiteSpaceEnds_ = true;
            } else if (!keepsSpaces && IsHtmlSpace(unit)) {
                if (!whiteSpaceEnds_) AddUnit(wraps ? u' ' : noBreakSpace, i);
                whiteSpaceEnds_ = true;
            } else {
                if (!wraps && i > 0) JoinWords(unit);
                AddLetter(unit, i, style, raise);
                whiteSpaceEnds_ = false;
            }
        }
    }

    bool WrapsIn(const CssInheritedStyle& style) const {
        return !Content().wraps || Wraps(style.whiteSpace);
    }

    void AddLetter(char16_t unit, std::size_t number, const CssInheritedStyle& style,
                   double raise) {
        const char16_t capital = FoldCase(unit);
        if (style.fontCaps == CssFontCaps::Small) {
            StartRun(style, raise, capital != unit);
            unit = capital;
        }
        const bool isCapital = style.textTransform == CssTextTransform::Uppercase ||
                               (style.textTransform == CssTextTransform::Capitalize &&
                                (whiteSpaceEnds_ || Text().empty() || Text().back() == u' '));
        AddUnit(isCapital ? capital : unit, number);
    }

    void StartRun(const CssInheritedStyle& style, double raise, bool smallCapital) {
        const TextBaseline baseline = raise > 0   ? TextBaseline::Superscript
                                      : raise < 0 ? TextBaseline::Subscript
                                                  : TextBaseline::Normal;
        AddRun(Content().text.runs, StyledRun{Length(), fonts_.Of(style, baseline, smallCapital)},
               [](const StyledRun& a, const StyledRun& b) { return a.style == b.style; });
        AddRun(Content().runs,
               InlineRun{Length(), fonts_.Of(style), fonts_.LineHeight(style), raise},
               [](const InlineRun& a, const InlineRun& b) {
                   return a.font == b.font && a.lineHeight == b.lineHeight && a.raise == b.raise;
               });
    }

    // In the place of one that begins there, or behind it by a space that went.
    template <typename Run, typename Equal>
    static void AddRun(std::vector<Run>& runs, Run run, Equal equal) {
        if (runs.back().start >= run.start)
            runs.back() = std::move(run);
        else if (!equal(runs.back(), run))
            runs.push_back(std::move(run));
    }

    // Where a line could break between two that are no letters of a word.
    void JoinWords(char16_t next) {
        const auto isLetter = [](char16_t unit) { return unit < 0x250 && IsWordUnit(unit); };
        const char16_t before = Text().empty() ? u' ' : Text().back();
        if (before == u' ' || before == noBreakSpace || (isLetter(before) && isLetter(next)))
            return;
        const HtmlNodeId node = std::exchange(node_, noHtmlNode);
        AddUnit(wordJoiner, 0);
        node_ = node;
    }

    void RemoveTrailingSpace() {
        if (!whiteSpaceEnds_ || Text().empty()) return;
        if (Text().back() == u' ' || Text().back() == noBreakSpace) Text().pop_back();
    }

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageBoxes& boxes_;
    PageFonts& fonts_;
    const PageBoxId id_;
    const PageBox& lines_;
    LinesText result_;
    HtmlNodeId node_ = noHtmlNode;      // that is read
    HtmlNodeId container_ = noHtmlNode; // the element that the lines are in
    PageBoxId nextBox_ = noPageBox;
    int floats_ = 0;
    bool whiteSpaceEnds_ = true; // collapsible: at the start, behind a space or a break
};
} // namespace

LinesText PageText::TextOf(PageBoxId lines) {
    return LinesReader(tree_, styles_, boxes_, fonts_, lines).Read();
}

Size PageText::PictureSize(PageBoxId picture) {
    return pictureSize ? pictureSize(boxes_[picture].node) : Size{};
}

std::optional<int> PageText::Number(PageBoxId box, HtmlName attribute) {
    const HtmlNodeId node = boxes_[box].node;
    return node == noHtmlNode ? std::nullopt : HtmlNumber(tree_[node], attribute);
}

std::shared_ptr<const InlineContent> PageText::MarkerOf(PageBoxId item) {
    const PageBox& box = boxes_[item];
    const std::u16string marker = ListMarker(box.text->listStyleType, box.number);
    if (marker.empty() || box.text->listStylePosition == CssListStylePosition::Inside)
        return nullptr;
    auto content = std::make_shared<InlineContent>();
    content->strut = fonts_.Of(*box.text);
    content->text.text = marker;
    content->text.runs = {{0, content->strut}};
    content->text.rightToLeft = box.text->direction == CssDirection::RightToLeft;
    content->runs = {{0, content->strut, fonts_.LineHeight(*box.text), 0}};
    content->wraps = false;
    return content;
}
