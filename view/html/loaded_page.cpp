#include "view/html/loaded_page.h"

#include "formats/codepages/code_pages.h"
#include "formats/html/html_frames.h"
#include "formats/html/html_reader.h"
#include "formats/html/html_units.h"

#include <algorithm>
#include <utility>

namespace {
// Blanks at the ends go, others become one.
std::u16string Collapsed(std::u16string_view text) {
    std::u16string result;
    for (const char16_t unit : text) {
        if (!IsHtmlSpace(unit))
            result += unit;
        else if (!result.empty() && result.back() != u' ')
            result += u' ';
    }
    if (!result.empty() && result.back() == u' ') result.pop_back();
    return result;
}

HtmlFile ReadPage(std::string bytes, int systemCodePage) {
    HtmlFile file = ReadHtmlFile(std::move(bytes), 0, systemCodePage);
    if (auto links = LinksOfFrames(file.tree)) file.tree = ReadHtml(*std::move(links));
    return file;
}
} // namespace

LoadedPage::LoadedPage(std::u16string path, std::string bytes, int systemCodePage)
    : path_(std::move(path)) {
    HtmlFile page = ReadPage(std::move(bytes), systemCodePage);
    tree_ = std::move(page.tree);
    codePage_ = page.codePage;
}

const LoadedPage::CountedPage& LoadedPage::CountedNow() const {
    if (counted_) return *counted_;
    counted_ = CountedPage{HtmlPageText(tree_), std::vector<std::uint32_t>(tree_.NodeCount() + 1)};
    const auto& pieces = counted_->text.pieces;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        counted_->pieceOfNode[pieces[i].node] = std::uint32_t(i + 1);
    return *counted_;
}

std::u16string LoadedPage::Title() const {
    for (HtmlNodeId id = tree_.RootElement(); id != noHtmlNode; id = tree_.Next(id)) {
        if (!tree_[id].Is(HtmlName::Title)) continue;
        std::u16string text;
        for (HtmlNodeId child = tree_[id].firstChild; child != noHtmlNode;
             child = tree_[child].nextSibling)
            text += tree_[child].Text();
        return Collapsed(text);
    }
    return {};
}

const HtmlTextPiece* LoadedPage::PieceOf(HtmlNodeId node) const {
    const CountedPage& counted = CountedNow();
    const std::uint32_t number = counted.pieceOfNode[node];
    return number == 0 ? nullptr : &counted.text.pieces[number - 1];
}

std::size_t LoadedPage::PieceAt(TextPos position) const {
    const auto& pieces = Counted().pieces;
    const auto after = std::ranges::upper_bound(
        pieces, position, {}, [](const HtmlTextPiece& piece) { return piece.start; });
    return after == pieces.begin() ? 0 : std::size_t(after - pieces.begin()) - 1;
}

std::optional<std::size_t> LoadedPage::PieceFrom(HtmlNodeId element) const {
    for (HtmlNodeId id = element; id != noHtmlNode; id = tree_.Next(id))
        if (const std::uint32_t number = CountedNow().pieceOfNode[id]) return number - 1;
    return std::nullopt;
}

std::size_t LoadedPage::UnitOf(const HtmlTextPiece& piece, TextPos position) const {
    const auto count = std::size_t(std::clamp(position, piece.start, piece.end) - piece.start);
    if (!tree_[piece.node].IsText() || piece.isPre) return count;
    return HtmlUnitOfCharacter(tree_[piece.node].Text(), count);
}

TextPos LoadedPage::PositionOf(const HtmlTextPiece& piece, std::size_t unit) const {
    const bool counts = tree_[piece.node].IsText() && !piece.isPre;
    const std::size_t before = counts ? HtmlCharactersBefore(tree_[piece.node].Text(), unit) : unit;
    return TextPos(std::min(std::size_t(piece.start) + before, std::size_t(piece.end)));
}

std::vector<Heading> LoadedPage::Headings() const {
    std::vector<Heading> headings;
    const HtmlNodeId body = tree_.Body();
    for (HtmlNodeId id = body; id != noHtmlNode && headings.size() < maxHeadings;
         id = tree_.Next(id, body)) {
        const int level = HeadingLevelOf(tree_[id]);
        if (level == 0) continue;
        TextPos start = -1, end = -1;
        for (HtmlNodeId inside = id; inside != noHtmlNode; inside = tree_.Next(inside, id))
            if (const HtmlTextPiece* piece = PieceOf(inside)) {
                if (start < 0) start = piece->start;
                end = piece->end;
            }
        if (start < 0) continue;
        const auto text =
            std::u16string_view(Text()).substr(std::size_t(start), std::size_t(end - start));
        if (std::u16string line = HeadingText(text); !line.empty())
            headings.push_back({start, level, std::move(line)});
    }
    return headings;
}

std::optional<HtmlNodeId> LoadedPage::Anchor(std::u16string_view name) const {
    if (name.empty()) return std::nullopt;
    std::optional<HtmlNodeId> named;
    for (HtmlNodeId id = tree_.RootElement(); id != noHtmlNode; id = tree_.Next(id)) {
        const HtmlNode& node = tree_[id];
        if (!node.IsElement()) continue;
        const HtmlAttribute* attribute = node.Attribute(HtmlName::Id);
        if (attribute && attribute->Value() == name) return id;
        attribute = node.Is(HtmlName::A) ? node.Attribute(HtmlName::Name) : nullptr;
        if (!named && attribute && attribute->Value() == name) named = id;
    }
    return named;
}

std::u16string_view LoadedPage::BaseAddress() const {
    const HtmlNodeId head = tree_.Head();
    for (HtmlNodeId id = head; id != noHtmlNode; id = tree_.Next(id, head))
        if (tree_[id].Is(HtmlName::Base))
            if (const HtmlAttribute* address = tree_[id].Attribute(HtmlName::Href))
                return address->Value();
    return {};
}

std::string HtmlCharsetName(int codePage) {
    if (IsVisualOrder(codePage)) return "ISO-8859-8"; // the only one that browsers know
    switch (codePage) {
    case 65001: return "UTF-8";
    case 1200: return "UTF-16LE";
    case 1201: return "UTF-16BE";
    case 932: return "Shift_JIS";
    case 936: return "GBK";
    case 949: return "EUC-KR";
    case 950: return "Big5";
    case 54936: return "gb18030";
    case 20932:
    case 51932: return "EUC-JP";
    case 50220:
    case 50221:
    case 50222: return "ISO-2022-JP";
    case 866: return "IBM866";
    case 20866: return "KOI8-R";
    case 21866: return "KOI8-U";
    case 10000: return "macintosh";
    case 10007: return "x-mac-cyrillic";
    case logicalIsoPage: return "ISO-8859-8-I";
    default: break;
    }
    if (codePage > 28590 && codePage <= 28606)
        return "ISO-8859-" + std::to_string(codePage - 28590);
    return "windows-" + std::to_string(codePage);
}

int HeadingLevelOf(const HtmlNode& node) {
    const int level = int(node.name) - int(HtmlName::H1) + 1;
    return node.IsElement() && node.nameSpace == HtmlNamespace::Html && level >= 1 && level <= 6
               ? level
               : 0;
}
