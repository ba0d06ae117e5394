// A page as it was read: nothing of it depends on a window.
#pragma once

#include "common/heading.h"
#include "formats/html/html_page_text.h"
#include "formats/html/html_tree.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class LoadedPage {
  public:
    // `systemCodePage` is for pages that do not say their charset.
    LoadedPage(std::u16string path, std::string bytes, int systemCodePage);

    const std::u16string& Path() const { return path_; }
    const HtmlTree& Tree() const { return tree_; }
    int CodePage() const { return codePage_; }
    std::u16string Title() const; // "" where it has none

    // Its text as platform/html_view.h counts it: counted when it is asked for first, because the
    // first screen of a long page is sooner there without it.
    const HtmlCountedText& Counted() const { return CountedNow().text; }
    const std::u16string& Text() const { return Counted().text; }
    TextPos Length() const { return TextPos(Text().size()); }
    bool IsCounted() const { return counted_.has_value(); }

    // Of the pieces of the counted text: of a node, of the character at a position or the last one
    // before it, and the first one in or after an element. Nothing where there is none.
    const HtmlTextPiece* PieceOf(HtmlNodeId node) const;
    std::size_t PieceAt(TextPos position) const;
    std::optional<std::size_t> PieceFrom(HtmlNodeId element) const;

    // What a piece's position is in its node's own units, and the other way round.
    std::size_t UnitOf(const HtmlTextPiece& piece, TextPos position) const;
    TextPos PositionOf(const HtmlTextPiece& piece, std::size_t unit) const;

    std::vector<Heading> Headings() const; // with a text, `maxHeadings` at most
    std::optional<HtmlNodeId>
    Anchor(std::u16string_view name) const;  // an element's id, or `a name`
    std::u16string_view BaseAddress() const; // of the `base` element, as it is written

  private:
    struct CountedPage {
        HtmlCountedText text;
        std::vector<std::uint32_t> pieceOfNode; // their numbers from 1; 0 for none
    };
    const CountedPage& CountedNow() const;

    std::u16string path_;
    HtmlTree tree_;
    int codePage_ = 0;
    mutable std::optional<CountedPage> counted_;
};

// As browsers name a charset: "ISO-8859-8" for each page in visual order.
std::string HtmlCharsetName(int codePage);

// From 1 to 6; 0 for what is no heading.
int HeadingLevelOf(const HtmlNode& node);
