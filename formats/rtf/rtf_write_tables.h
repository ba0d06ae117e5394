// What the RTF writer numbers: the fonts and colours that a stretch of a document uses.
#pragma once

#include "formats/style_overrides.h"

#include <map>

// Finds the style at positions asked for in ascending order.
class StyleCursor {
  public:
    explicit StyleCursor(const std::vector<StyleRun>& runs) : runs_(&runs) {}
    std::uint32_t At(TextPos position) {
        while (index_ + 1 < runs_->size() && (*runs_)[index_ + 1].start <= position)
            ++index_;
        return (*runs_)[index_].style;
    }
    // Where the style found last ends, at most `end`.
    TextPos RunEnd(TextPos end) const {
        return index_ + 1 < runs_->size() && (*runs_)[index_ + 1].start < end
                   ? (*runs_)[index_ + 1].start
                   : end;
    }

  private:
    const std::vector<StyleRun>* runs_;
    std::size_t index_ = 0;
};

class RtfWriteTables {
  public:
    RtfWriteTables(const Document& document, const DocumentStyles& used, TextPos start,
                   TextPos end);
    std::string FontTable() const;
    std::string ColorTable() const;
    std::size_t FontNumber(std::uint16_t font) const { return fontNumbers_.at(font); }
    std::size_t ColorNumber(Color color) const { return colorNumbers_.at(color); }

  private:
    void AddParagraphColors(const Document& document, TextPos start, TextPos end);
    void AddColor(Color color);
    void AddFont(std::uint16_t font);

    const DocumentStyles& styles_;
    std::vector<std::uint16_t> fonts_;
    std::vector<Color> colors_; // the first of the table is number 1, 0 being the automatic one
    std::map<std::uint16_t, std::size_t> fontNumbers_;
    std::map<Color, std::size_t> colorNumbers_;
};
