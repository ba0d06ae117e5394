#include "view/page/page_text.h"

#include "common/find_text.h"
#include "common/text.h"
#include "formats/html/html_integer.h"
#include "formats/html/html_units.h"
#include "view/layout_cost.h"
#include "view/page/bidi_isolation.h"
#include "view/page/list_marker.h"
#include "view/page/page_box_builder.h"
#include "view/page/page_weights.h"
#include "view/page/text_case.h"
#include "view/page/text_cut.h"
#include "view/page/text_raise.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr char16_t lineSeparator = u'\u2028', objectReplacement = u'\uFFFC';
// Neither is of the page's text: both keep a line from breaking.
constexpr char16_t noBreakSpace = u'\u00A0', wordJoiner = u'\u2060';

bool Wraps(CssWhiteSpace whiteSpace) {
    return whiteSpace != CssWhiteSpace::NoWrap && whiteSpace != CssWhiteSpace::Pre;
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
        if (lines_.first == lines_.behind && lines_.behindUnit > 0) {
            AddUpTo(lines_.behind, lines_.firstUnit, lines_.behindUnit);
        } else if (lines_.first == container_) {
            AddGenerated(styles_.Before(container_), container_);
            const HtmlNodeId child = tree_[container_].firstChild;
            if (child == noHtmlNode) AddGenerated(styles_.After(container_), container_);
            ReadFrom(child);
        } else if (lines_.first == lines_.behind) {
            AddGenerated(styles_.After(container_), container_);
        } else {
            ReadFrom(lines_.first);
        }
        RemoveTrailingSpace();
        TruncateClusters(Text());
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
        Content().text.tabDistance = fonts_.TabDistance(style);
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
        if (lines_.behindUnit > 0) AddUpTo(lines_.behind, 0, lines_.behindUnit);
    }

    void AddUpTo(HtmlNodeId text, std::size_t from, std::size_t end) {
        const HtmlNode& node = tree_[text];
        node_ = text;
        AddText(node.Text().substr(0, end), *styles_.Of(node.parent).inherited,
                PlaceOf(node.parent), from);
        node_ = noHtmlNode;
    }

    // Whether what is in the node is read next.
    bool Enter(HtmlNodeId id) {
        const HtmlNode& node = tree_[id];
        if (node.IsText()) {
            AddUpTo(id, id == lines_.first ? lines_.firstUnit : 0, node.length);
            return false;
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
            AddClear(styles_.Of(id).box->clear);
        }
        AddControls(OpeningControls(styles_.Of(id)));
        AddSide(id, cssLeft);
        AddGenerated(styles_.Before(id), id);
        return true;
    }

    void AddClear(CssClear clear) {
        if (clear == CssClear::None) return;
        Content().clears.push_back({Length(), clear != CssClear::Right, clear != CssClear::Left});
    }

    void AddControls(std::u16string_view controls) {
        if (!lines_.hasText) return;
        for (const char16_t control : controls)
            AddUnit(control, 0);
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
            AddGenerated(styles_.After(element), element);
            if (element == container_) return;
            AddSide(element, cssRight);
            AddControls(ClosingControls(styles_.Of(element)));
        }
    }

    void AddBox() {
        const PageBox& box = boxes_[nextBox_];
        const bool inLine = !IsOutOfFlow(*box.style) && box.style->floats == CssFloat::None;
        result_.boxes.push_back({Length(), nextBox_, inLine});
        if (inLine) {
            StartRun(*lines_.text, {}, false);
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
        if (!marker.empty()) AddText(marker + u" ", *boxes_[item].text, {});
    }

    // Before or behind what is in an element.
    void AddGenerated(CssStyle style, HtmlNodeId element) {
        if (!style.box) return;
        TextPlace place = PlaceOf(element);
        AddOwnPlace(style, styles_.Of(element), fonts_, place);
        for (const CssContentItem& item : styles_.Content(style.box->content))
            AddText(GeneratedText(item, element).substr(0, maxGenerated), *style.inherited, place);
    }

    std::u16string_view GeneratedText(const CssContentItem& item, HtmlNodeId element) const {
        switch (item.kind) {
        case CssContentItem::Kind::Text: return item.text;
        case CssContentItem::Kind::Attribute: {
            const HtmlAttribute* found = tree_[element].Attribute(tree_.Names().Find(item.text));
            return found ? found->Value() : std::u16string_view();
        }
        case CssContentItem::Kind::OpenQuote: return IsQuoteWithin(element) ? u"\u2018" : u"\u201C";
        case CssContentItem::Kind::CloseQuote:
            return IsQuoteWithin(element) ? u"\u2019" : u"\u201D";
        case CssContentItem::Kind::Picture: break;
        }
        return {};
    }

    // Whether a quotation stands in another one, of an odd number of them.
    bool IsQuoteWithin(HtmlNodeId element) const {
        bool within = false;
        while ((element = tree_[element].parent) != noHtmlNode && tree_[element].IsElement())
            within ^= OpensQuote(styles_.Before(element));
        return within;
    }
    bool OpensQuote(CssStyle before) const {
        if (!before.box) return false;
        const CssContent& content = styles_.Content(before.box->content);
        return std::any_of(content.begin(), content.end(), [](const CssContentItem& item) {
            return item.kind == CssContentItem::Kind::OpenQuote;
        });
    }

    // Of the text that stands in an element.
    TextPlace PlaceOf(HtmlNodeId element) {
        TextPlace place;
        for (; tree_[element].IsElement() && element != container_ && IsInline(element);
             element = tree_[element].parent)
            AddOwnPlace(styles_.Of(element), styles_.Of(tree_[element].parent), fonts_, place);
        return place;
    }
    bool IsInline(HtmlNodeId element) const {
        const CssDisplay display = styles_.Of(element).box->display;
        return display == CssDisplay::Inline || display == CssDisplay::Contents;
    }

    void AddText(std::u16string_view text, const CssInheritedStyle& style, const TextPlace& place,
                 std::size_t from = 0) {
        StartRun(style, place, false);
        const TextPos start = Length();
        const bool keepsSpaces = KeepsSpaces(style.whiteSpace);
        const bool keepsBreaks = KeepsBreaks(style.whiteSpace);
        const bool wraps = WrapsIn(style);
        for (std::size_t i = from; i < text.size(); ++i) {
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
                if (!wraps && i > from) JoinWords(unit);
                AddLetter(unit, i, style, place);
                whiteSpaceEnds_ = false;
            }
        }
        if (style.visibility != CssVisibility::Visible) Hide(start);
    }

    void Hide(TextPos start) {
        auto& hidden = Content().hidden;
        if (start >= Length()) return;
        if (!hidden.empty() && hidden.back().end >= start)
            hidden.back().end = Length();
        else
            hidden.push_back({start, Length()});
    }

    bool WrapsIn(const CssInheritedStyle& style) const {
        return !Content().wraps || Wraps(style.whiteSpace);
    }

    void AddLetter(char16_t unit, std::size_t number, const CssInheritedStyle& style,
                   const TextPlace& place) {
        char16_t shown = TransformedUnit(unit, style.textTransform, Text());
        if (style.fontCaps == CssFontCaps::Small) {
            const char16_t capital = FoldCase(shown);
            StartRun(style, place, capital != shown);
            shown = capital;
        }
        AddUnit(shown, number);
    }

    void StartRun(const CssInheritedStyle& style, const TextPlace& place, bool smallCapital) {
        const PageTextUse use{place.raise + place.shift, smallCapital, place.background};
        AddRun(Content().text.runs, StyledRun{Length(), fonts_.Of(style, use)},
               [](const StyledRun& a, const StyledRun& b) { return a.style == b.style; });
        AddRun(Content().runs,
               InlineRun{Length(), fonts_.Of(style), fonts_.LineHeight(style), place.raise},
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
        if (Text().back() != u' ' && Text().back() != noBreakSpace) return;
        Text().pop_back();
        auto& origins = Content().origins;
        if (!origins.empty() && origins.back().start >= Length()) origins.pop_back();
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
    return node == noHtmlNode ? std::nullopt : HtmlInteger(tree_[node], attribute);
}

std::shared_ptr<const InlineContent> PageText::MarkerOf(PageBoxId item) {
    const PageBox& box = boxes_[item];
    const std::u16string marker = ListMarker(box.text->listStyleType, box.number);
    if (marker.empty() || box.text->listStylePosition == CssListStylePosition::Inside)
        return nullptr;
    auto content = PlainContent(box, marker);
    content->wraps = false;
    return content;
}

std::shared_ptr<const InlineContent> PageText::AlternativeOf(PageBoxId picture) {
    const PageBox& box = boxes_[picture];
    const HtmlAttribute* text = tree_[box.node].Attribute(HtmlName::Alt);
    return text ? PlainContent(box, text->Value()) : nullptr;
}

// In the style of the box.
std::shared_ptr<InlineContent> PageText::PlainContent(const PageBox& box,
                                                      std::u16string_view text) {
    auto content = std::make_shared<InlineContent>();
    content->strut = fonts_.Of(*box.text);
    content->strutLineHeight = fonts_.LineHeight(*box.text);
    content->text.text = text;
    content->text.runs = {{0, content->strut}};
    content->text.rightToLeft = box.text->direction == CssDirection::RightToLeft;
    content->runs = {{0, content->strut, content->strutLineHeight, 0}};
    if (IsHidden(box)) content->hidden = {{0, TextPos(text.size())}};
    return content;
}
