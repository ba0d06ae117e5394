// Rows of tables in rich text (RTF 1.9.1): the words of the row definition give its
// properties, its cells are paragraphs that end with \cell.
#pragma once

#include "formats/rtf/rtf_fonts.h"
#include "formats/rtf/rtf_story.h"
#include "formats/rtf/rtf_words.h"

enum class RtfBorder : std::uint8_t { Unspecified, None, Line };

struct RtfCellDefinition {
    std::int32_t rightEdge = 0; // twips from the page's left margin
    bool mergedLeft = false, mergedAbove = false;
    RtfBorder borders[4]{}; // by RtfBorderSide
    VerticalAlignment verticalAlignment = VerticalAlignment::Top;
    RtfColor background;
};

// The row definition: \trowd and the words after it. Applies to all rows up to the next \trowd.
struct RtfRowDefinition {
    std::int32_t leftEdge = 0, cellGap = 0; // twips
    bool rightToLeft = false;
    RtfBorder borders[static_cast<int>(
        RtfBorderSide::ParagraphLeft)]{}; // by RtfBorderSide; those of cells unused
    std::vector<RtfCellDefinition> cells;

    void Apply(const RtfWordEntry& entry, std::int32_t parameter, const RtfColorTable& colors);
    // Whether a side has a border. A cell's own one wins, then the row's inner one (between cells),
    // then the row's outer one.
    bool HasBorder(RtfBorder cell, RtfBorderSide outer, RtfBorderSide inner, bool isInside) const;

  private:
    void ApplyBorder(RtfBorder border);
    RtfCellDefinition next_; // the cell whose \cellx is still to come
    RtfBorderSide border_ = RtfBorderSide::None;
};

class RtfRowBuilder {
  public:
    RtfRowDefinition definition;

    // Before a paragraph of the story ends with '\n'. One that is not `inTable` leaves a row
    // without \row: its cells become tab-separated text.
    void BeforeParagraphEnd(RtfStory& story, bool inTable);
    void EndCell(RtfStory& story, std::uint32_t charStyle, std::uint32_t paragraphStyle);
    void EndRow(RtfStory& story, std::uint32_t charStyle, std::uint32_t paragraphStyle);
    void EndText(RtfStory& story) { BeforeParagraphEnd(story, false); }
    std::vector<TableRow> ReleaseRows() { return std::move(rows_); }

  private:
    struct OpenCell {
        TextPos start = 0, end = 0;
        std::size_t definition = 0;
        std::uint16_t columnSpan = 1;
    };
    void Open(const RtfStory& story);
    void Close();
    void ConvertToText(RtfStory& story);
    bool JoinsLastCell(std::size_t definitionIndex) const;
    TableRow MakeRow();
    void SetBorders(TableCell& cell, const OpenCell& open, bool isFirstRow);
    void SetBottomBordersAbove();

    std::vector<TableRow> rows_;
    bool isOpen_ = false;
    TextPos rowStart_ = 0;
    std::vector<OpenCell> cells_;
    std::size_t nextDefinition_ = 0;
    std::vector<std::size_t>
        unspecifiedBottoms_; // cells of the last row whose lower border is not specified
};
