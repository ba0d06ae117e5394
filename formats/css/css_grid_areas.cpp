// Reads the named areas of grids.
#include "formats/css/css_grid_readers.h"
#include "formats/css/css_limits.h"

#include <algorithm>

namespace {
using Kind = CssToken::Kind;

// Areas of rows that come one after the other: names, and dots for cells of none.
class AreaReader {
  public:
    explicit AreaReader(CssGridAreas& areas) : areas_(areas) {}

    // False where it is not as long as the others, or too long.
    bool AddRow(std::u16string_view row) {
        std::int32_t column = 0;
        for (std::size_t at = 0; at < row.size();) {
            const std::size_t end =
                std::size_t(std::find_if(row.begin() + at, row.end(), IsCssSpace) - row.begin());
            if (end > at) AddCell(row.substr(at, end - at), column++);
            at = end + 1;
            if (std::size_t(column) > maxCssGridTracks || areas_.size() > maxCssGridLines)
                return false;
        }
        if (column == 0 || (rows_ > 0 && column != columns_)) return false;
        columns_ = column;
        ++rows_;
        return true;
    }

    std::int32_t Rows() const { return rows_; }

    // Each area is a rectangle.
    bool Finish() const {
        for (std::size_t i = 0; i < areas_.size(); ++i) {
            const CssGridArea& area = areas_[i];
            if (cells_[i] != (area.columnEnd - area.column) * (area.rowEnd - area.row))
                return false;
        }
        return rows_ > 0;
    }

  private:
    void AddCell(std::u16string_view name, std::int32_t column) {
        if (name.front() == u'.') return;
        const auto known = std::ranges::find(areas_, name, &CssGridArea::name);
        if (known == areas_.end()) {
            areas_.push_back({std::u16string(name), column, rows_, column + 1, rows_ + 1});
            cells_.push_back(1);
            return;
        }
        known->column = std::min(known->column, column);
        known->columnEnd = std::max(known->columnEnd, column + 1);
        known->rowEnd = rows_ + 1;
        ++cells_[std::size_t(known - areas_.begin())];
    }

    CssGridAreas& areas_;
    std::vector<std::int32_t> cells_; // of each area
    std::int32_t columns_ = 0, rows_ = 0;
};

bool IsAtTrack(CssTokenStream& tokens) {
    return !AtCssGridEnd(tokens) && !tokens.Peek().Is(Kind::String) &&
           !tokens.Peek().Is(Kind::OpenSquare);
}
} // namespace

bool ReadCssGridAreaRows(CssShorthandReader& reader, CssGridAreas& areas, CssGridTracks* rows) {
    AreaReader read(areas);
    while (!AtCssGridEnd(reader.tokens)) {
        const auto number = std::size_t(read.Rows());
        if (rows && reader.tokens.Peek().Is(Kind::OpenSquare)) {
            if (!ReadCssGridLineNames(reader.tokens, number, rows->lines)) return false;
            continue;
        }
        const CssToken row = reader.tokens.Next();
        if (!row.Is(Kind::String) || number >= maxCssGridTracks || !read.AddRow(row.text))
            return false;
        if (!rows) continue;
        CssGridTrack track{CssValue::OfKeyword(0), CssValue::OfKeyword(0)};
        if (IsAtTrack(reader.tokens) && !ReadCssGridTrack(reader, track)) return false;
        rows->tracks.push_back(track);
    }
    return read.Finish();
}

void AddCssGridAreas(CssShorthandReader& reader, CssProperty property, CssGridAreas areas) {
    if (areas.empty()) return reader.Add(property, CssValue::OfKeyword(0));
    reader.Add(property, reader.block.Store(CssValue::Kind::GridAreas, &CssBlock::gridAreas,
                                            std::move(areas)));
}

bool ReadCssGridAreas(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    CssGridAreas areas;
    if (!reader.tokens.TakeIdent(u"none") && !ReadCssGridAreaRows(reader, areas, nullptr))
        return false;
    AddCssGridAreas(reader, properties[0], std::move(areas));
    return true;
}
