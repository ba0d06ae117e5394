#include "formats/html/html_selection.h"

#include "formats/html/html_escape.h"
#include "formats/html/html_finish.h"

#include <algorithm>
#include <vector>

namespace {
bool IsVoid(HtmlName name) {
    using enum HtmlName;
    switch (name) {
    case Area:
    case Base:
    case Br:
    case Col:
    case Embed:
    case Hr:
    case Img:
    case Input:
    case Link:
    case Meta:
    case Param:
    case Source:
    case Track:
    case Wbr: return true;
    default: return false;
    }
}

bool IsLeftOut(const HtmlNode& node) {
    return node.Is(HtmlName::Script) || node.Is(HtmlName::Style) || node.Is(HtmlName::Template);
}

class SourceWriter {
  public:
    SourceWriter(const HtmlTree& tree, const HtmlCountedText& counted, TextPos start, TextPos end)
        : tree_(tree), counted_(counted), start_(start), end_(end) {}

    std::u16string Write() {
        const auto& pieces = counted_.pieces;
        const auto first = std::ranges::find_if(
            pieces, [&](const HtmlTextPiece& piece) { return piece.end > start_; });
        if (first == pieces.end() || first->start >= end_) return {};
        piece_ = std::size_t(first - pieces.begin());
        OpenAround(first->node);
        for (HtmlNodeId id = first->node; id != noHtmlNode && HasMore();) {
            CloseUpTo(tree_[id].parent);
            id = WriteNode(id) ? tree_.Next(id) : tree_.NextAfter(id);
        }
        CloseUpTo(noHtmlNode);
        return std::move(source_);
    }

  private:
    bool HasMore() const {
        return piece_ < counted_.pieces.size() && counted_.pieces[piece_].start < end_;
    }

    // Whether what is in it comes next.
    bool WriteNode(HtmlNodeId id) {
        const HtmlNode& node = tree_[id];
        if (IsLeftOut(node)) return false;
        const bool isCounted = counted_.pieces[piece_].node == id;
        if (node.IsText())
            WriteText(isCounted ? Selected(counted_.pieces[piece_]) : node.Text());
        else if (node.IsElement())
            Open(id);
        if (isCounted) ++piece_;
        return true;
    }

    std::u16string_view Selected(const HtmlTextPiece& piece) const {
        const std::u16string_view text = tree_[piece.node].Text();
        const auto unitOf = [&](TextPos position) {
            const auto count = std::size_t(position - piece.start);
            return piece.isPre ? count : HtmlUnitOfCharacter(text, count);
        };
        const std::size_t from = start_ >= piece.start ? unitOf(start_) : 0;
        const std::size_t to = end_ <= piece.end ? unitOf(end_) : text.size();
        return text.substr(from, to - from);
    }

    void OpenAround(HtmlNodeId id) {
        std::vector<HtmlNodeId> around;
        for (HtmlNodeId parent = tree_[id].parent; parent != noHtmlNode && parent != tree_.Body();
             parent = tree_[parent].parent)
            around.push_back(parent);
        for (auto element = around.rbegin(); element != around.rend(); ++element)
            if (tree_[*element].IsElement()) Open(*element);
    }

    void Open(HtmlNodeId id) {
        const HtmlNode& node = tree_[id];
        source_ += u'<';
        source_ += tree_.Name(node.name);
        for (const HtmlAttribute& attribute : node.Attributes()) {
            source_ += u' ';
            source_ += tree_.Name(attribute.name);
            source_ += u"=\"";
            AppendHtmlAttribute(source_, attribute.Value());
            source_ += u'"';
        }
        source_ += u'>';
        if (!IsVoid(node.name)) open_.push_back(id);
    }

    // Ends the elements that are not around what stands in `parent`.
    void CloseUpTo(HtmlNodeId parent) {
        while (!open_.empty() && open_.back() != parent) {
            source_ += u"</";
            source_ += tree_.Name(tree_[open_.back()].name);
            source_ += u'>';
            open_.pop_back();
        }
    }

    void WriteText(std::u16string_view text) { AppendHtmlText(source_, text); }

    const HtmlTree& tree_;
    const HtmlCountedText& counted_;
    const TextPos start_, end_;
    std::size_t piece_ = 0;        // the next one to come
    std::vector<HtmlNodeId> open_; // from outside
    std::u16string source_;
};
} // namespace

std::u16string HtmlSourceOf(const HtmlTree& tree, const HtmlCountedText& counted, TextPos start,
                            TextPos end) {
    return SourceWriter(tree, counted, start, end).Write();
}
