// Where the characters of a page are on the screen, and which ones are at a point.
//
// Heights are device pixels from the top of a zone of the page's flow, as only some zones are laid
// out; lengths to the side are from the page's left edge.
#pragma once

#include "view/caret_moves.h"
#include "view/html/shown_page.h"

// A block of lines in the laid-out zone that it is in, with its own top left corner.
struct PlacedBlock {
    std::size_t zone = 0;
    double left = 0, top = 0;
    const PlacedLines* lines = nullptr;
    PageFragmentPtr fragment; // that keeps it

    const InlineContent& Content() const { return *lines->content; }
    // The line of a unit of the content; there must be a line.
    std::size_t LineOf(TextPos unit) const;
    const InlineLine& Line(std::size_t line) const { return lines->layout.lines[line]; }
    const TextLines& Piece(std::size_t line) const {
        return *lines->layout.pieces[Line(line).piece].lines;
    }
    TextPos PieceStart(std::size_t line) const {
        return lines->layout.pieces[Line(line).piece].start;
    }
    double CaretX(std::size_t line, TextPos unit) const; // from the page's left edge
};

// Which line stands for a point. From there on: lines that end above it do not count while there
// are others, nor what stands beside the text.
enum class LineChoice : std::uint8_t { Nearest, FromThere };

// A character in a block.
struct CharacterPlace {
    PlacedBlock block;
    std::size_t line = 0;
    TextPos unit = 0;           // of the block's content
    double x = 0;               // of the caret before it
    double top = 0, height = 0; // of its letters, from the zone's top

    double LineTop() const { return block.top + block.Line(line).top; }
    double LineBottom() const { return LineTop() + block.Line(line).height; }
};

class PagePlaces {
  public:
    PagePlaces(const LoadedPage& page, ShownPage& shown) : page_(page), shown_(shown) {}

    // Of the counted character, or of the nearest one that is shown. Lays out its zone. Nothing on
    // a page that shows no text.
    std::optional<CharacterPlace> PlaceOf(TextPos position);
    // Of a unit of the content of lines: the counted character that it shows, or the nearest one.
    TextPos PositionOf(const InlineContent& content, TextPos unit) const;

    // The line at a height of a zone that is nearest to a point, in that zone or its neighbours;
    // nothing where there is no text some screens up and down.
    std::optional<CharacterPlace> NearestLine(std::size_t zone, double x, double y, LineChoice);
    // The counted place for a caret in its line that is nearest to `x`, and the unit that is drawn
    // there.
    TextPos PositionInLine(const CharacterPlace& place, double x) const;
    TextPos UnitInLine(const CharacterPlace& place, double x) const; // of the content
    // What a unit of a line shows; noHtmlNode for what is of no node.
    HtmlNodeId NodeAt(const InlineContent& content, TextPos unit) const;

    // The counted characters in the lines of a laid-out zone that are partly between two heights of
    // it; nothing where no line shows any.
    std::optional<TextSpan> TextBetween(const PageFragment& zone, double top, double bottom) const;

    // The units of the content that show characters of a stretch of the text.
    UnitSpan SelectedUnits(const InlineContent& content, TextPos start, TextPos end) const;

  private:
    std::optional<CharacterPlace> PlaceIn(const HtmlTextPiece& piece, TextPos position);
    std::optional<PlacedBlock> FindBlock(PageBoxId box, HtmlNodeId node);

    const LoadedPage& page_;
    ShownPage& shown_;
};

// The element of the picture at a point of a laid-out zone; noHtmlNode for none.
HtmlNodeId PictureAt(const PageFragment& fragment, const PageBoxes& boxes, double x, double y);
