// The RTF writer's walk over the paragraphs, rows and pictures of a document.
#pragma once

#include "formats/rtf/rtf_write_tables.h"

class RtfTextWriter {
  public:
    RtfTextWriter(const Document& document, const DocumentStyles& styles,
                  const RtfWriteTables& tables, std::string& rtf);
    void Write(TextPos start, TextPos end);

  private:
    using Rows = std::vector<TableRow>::const_iterator;

    TextPos WriteParagraph(TextPos start, TextPos end);
    void WriteRow(Rows row);
    void WriteCellText(const TableCell& cell);
    std::string RowWords(Rows row) const;
    bool IsMergedBelow(Rows row, const TableCell& cell) const;

    // From `start` up to the character at `end`, which `terminator` stands for.
    void WriteText(TextPos start, TextPos end, bool inTable, std::string_view terminator);
    void UseParagraphStyle(std::uint32_t style, bool inTable);
    void UseCharStyle(std::uint32_t style);
    void CloseRun();
    void OpenLink(std::uint16_t link);
    void CloseLink();
    void WriteRun(TextPos start, TextPos end);
    void WritePicture(const Picture& picture);
    TextPos ParagraphEnd(TextPos at, TextPos limit) const;

    const Document& document_;
    const DocumentStyles& styles_;
    const RtfWriteTables& tables_;
    std::string& rtf_;
    StyleCursor charStyles_, paragraphStyles_;
    std::vector<Picture>::const_iterator picture_;

    // The properties written last; `none` when unknown.
    static constexpr std::uint32_t none = 0xFFFF'FFFF;
    std::uint32_t charStyle_ = none, paragraphStyle_ = none;
    bool inTable_ = false;
    bool isRunOpen_ = false; // a group of its own
    std::uint16_t link_ = 0;
};

// The words of a style, all that differ from the defaults that \plain and \pard set.
std::string CharStyleWords(const CharStyle& style, const RtfWriteTables& tables);
std::string ParagraphStyleWords(const ParagraphStyle& style, bool inTable,
                                const RtfWriteTables& tables);
