#include "formats/html/html_page_text.h"

#include "formats/html/html_units.h"

#include <algorithm>
#include <utility>

namespace {

// Units that most books have less of; a page of pictures may be all markup.
constexpr std::size_t maxReserved = 8 << 20;

bool IsBlock(HtmlName name) {
    using enum HtmlName;
    switch (name) {
    case Address:
    case Article:
    case Aside:
    case Blockquote:
    case Center:
    case Dd:
    case Details:
    case Dialog:
    case Dir:
    case Div:
    case Dl:
    case Dt:
    case Fieldset:
    case Figcaption:
    case Figure:
    case Footer:
    case Form:
    case Frameset:
    case H1:
    case H2:
    case H3:
    case H4:
    case H5:
    case H6:
    case Header:
    case Hgroup:
    case Hr:
    case Legend:
    case Li:
    case Main:
    case Menu:
    case Nav:
    case Ol:
    case P:
    case Pre:
    case Section:
    case Summary:
    case Table:
    case Caption:
    case Thead:
    case Tbody:
    case Tfoot:
    case Tr:
    case Td:
    case Th:
    case Ul: return true;
    default: return false;
    }
}

bool IsSkipped(const HtmlNode& element) {
    using enum HtmlName;
    switch (element.name) {
    case Script:
    case Style:
    case Template:
    case Noscript:
    case Noframes:
    case Title:
    case Select:
    case Textarea:
    case Iframe:
    case Object:
    case Audio:
    case Video:
    case Canvas:
    case Svg:
    case Math: return true;
    default: return element.Attribute(Hidden) != nullptr;
    }
}

enum class WhiteSpace : std::uint8_t { Collapsed, Preserved };

// A break or a blank that is due is added only when more text follows.
class Collector {
  public:
    void Edge() {
        if (!atBreak_) due_ = u'\n';
    }

    void LineBreak(HtmlNodeId node) {
        if (due_ != u'\n') due_ = 0;
        Add(node, u"\n", WhiteSpace::Collapsed);
    }

    void PreText(HtmlNodeId node, std::u16string_view units) {
        Add(node, units, WhiteSpace::Preserved);
    }

    void Text(HtmlNodeId node, std::u16string_view units) {
        const std::size_t first = HtmlSpaceLength(units);
        if (first > 0 && due_ == 0 && !atBreak_) due_ = u' ';
        std::size_t end = units.size();
        while (end > first && IsHtmlSpace(units[end - 1]))
            --end;
        if (end == first) return;
        OpenPiece(node, WhiteSpace::Collapsed);
        AppendCollapsed(units.substr(first, end - first));
        ClosePiece();
        if (end < units.size()) due_ = u' ';
    }

    HtmlCountedText result;

  private:
    void Add(HtmlNodeId node, std::u16string_view units, WhiteSpace whiteSpace) {
        OpenPiece(node, whiteSpace);
        result.text += units;
        ClosePiece();
    }

    void OpenPiece(HtmlNodeId node, WhiteSpace whiteSpace) {
        if (due_ != 0) result.text += due_;
        due_ = 0;
        result.pieces.push_back({node, static_cast<TextPos>(result.text.size()), 0,
                                 whiteSpace == WhiteSpace::Preserved});
    }

    void ClosePiece() {
        result.pieces.back().end = static_cast<TextPos>(result.text.size());
        atBreak_ = result.text.back() == u'\n';
    }

    // Unit by unit into room that is made before: words are too short to be copied one by one.
    void AppendCollapsed(std::u16string_view units) {
        std::size_t end = result.text.size();
        result.text.resize(end + units.size());
        char16_t* const text = result.text.data();
        bool afterBlank = false;
        for (const char16_t unit : units) {
            const bool isBlank = IsHtmlSpace(unit);
            if (isBlank && afterBlank) continue;
            text[end++] = isBlank ? u' ' : unit;
            afterBlank = isBlank;
        }
        result.text.resize(end);
    }

    char16_t due_ = 0;
    bool atBreak_ = true; // after a line feed, or at the start
};

} // namespace

HtmlCountedText HtmlPageText(const HtmlTree& tree) {
    Collector collector;
    collector.result.text.reserve(std::min(tree.Source().size(), maxReserved));
    const HtmlNodeId body = tree.Body();
    int preDepth = 0;
    const auto leave = [&](HtmlNodeId id) {
        if (tree[id].name == HtmlName::Pre) --preDepth;
        if (IsBlock(tree[id].name)) collector.Edge();
    };
    for (HtmlNodeId id = body; id != noHtmlNode;) {
        const HtmlNode& node = tree[id];
        HtmlNodeId inside = noHtmlNode;
        if (node.IsText()) {
            if (preDepth > 0)
                collector.PreText(id, node.Text());
            else
                collector.Text(id, node.Text());
        } else if (node.IsElement() && !IsSkipped(node)) {
            if (node.name == HtmlName::Br) {
                collector.LineBreak(id);
            } else {
                if (IsBlock(node.name)) collector.Edge();
                if (node.name == HtmlName::Pre) ++preDepth;
                inside = node.firstChild;
                if (inside == noHtmlNode) leave(id);
            }
        }
        if (inside != noHtmlNode) {
            id = inside;
            continue;
        }
        while (id != body && tree[id].nextSibling == noHtmlNode) {
            id = tree[id].parent;
            leave(id);
        }
        id = id == body ? noHtmlNode : tree[id].nextSibling;
    }
    return std::move(collector.result);
}

std::size_t HtmlUnitOfCharacter(std::u16string_view nodeText, std::size_t count) {
    std::size_t at = HtmlSpaceLength(nodeText);
    for (; count > 0 && at < nodeText.size(); --count)
        at += std::max<std::size_t>(HtmlSpaceLength(nodeText.substr(at)), 1);
    return at;
}

std::size_t HtmlCharactersBefore(std::u16string_view nodeText, std::size_t unit) {
    unit = std::min(unit, nodeText.size());
    std::size_t count = 0;
    for (std::size_t at = HtmlSpaceLength(nodeText); at < unit; ++count)
        at += std::max<std::size_t>(HtmlSpaceLength(nodeText.substr(at)), 1);
    return count;
}
