// Reads the properties that say several things of a grid at once, and the way that its items flow.
#include "formats/css/css_grid_readers.h"
#include "formats/css/css_style_values.h"

namespace {
using Kind = CssToken::Kind;
using P = CssProperty;

bool TakeFlow(CssTokenStream& tokens) {
    if (!tokens.TakeIdent(u"auto-flow")) return false;
    tokens.TakeIdent(u"dense");
    return true;
}

struct Template {
    CssGridTracks rows, columns;
    CssGridAreas areas;
    CssGridFlow flow = CssGridFlow::Rows;
};

// Names of lines may stand before a row of areas, and before tracks.
bool BeginsWithArea(CssTokenStream ahead) {
    while (ahead.Take(Kind::OpenSquare))
        while (!ahead.AtEnd() && !ahead.Next().Is(Kind::CloseSquare)) {
        }
    return ahead.Peek().Is(Kind::String);
}

// Rows and columns, rows of areas and columns, or one of them by `auto-flow` (`grid` alone).
bool ReadTemplate(CssShorthandReader& reader, Template& read) {
    CssTokenStream& tokens = reader.tokens;
    const bool flowsInRows = TakeFlow(tokens);
    const bool isArea = !flowsInRows && BeginsWithArea(tokens);
    const bool hasRows = isArea ? ReadCssGridAreaRows(reader, read.areas, &read.rows)
                                : ReadCssGridTrackList(reader, read.rows) || flowsInRows;
    if (!hasRows) return false;
    if (!tokens.Peek().IsDelim(u'/')) return isArea;
    tokens.Next();
    if (!flowsInRows && TakeFlow(tokens)) read.flow = CssGridFlow::Columns;
    return ReadCssGridTrackList(reader, read.columns) || read.flow == CssGridFlow::Columns;
}
} // namespace

bool ReadCssGridTemplate(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    Template read;
    if (!reader.tokens.TakeIdent(u"none") && !ReadTemplate(reader, read)) return false;
    AddCssGridTracks(reader, P::GridTemplateRows, std::move(read.rows));
    AddCssGridTracks(reader, P::GridTemplateColumns, std::move(read.columns));
    AddCssGridAreas(reader, P::GridTemplateAreas, std::move(read.areas));
    if (properties.size() > 3) reader.Add(P::GridAutoFlow, CssValue::Of(read.flow));
    return true;
}

bool ReadCssGridFlow(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    bool flowsInColumns = false;
    for (int count = 0; !reader.tokens.AtEnd(); ++count) {
        const CssToken& word = reader.tokens.Next();
        flowsInColumns = flowsInColumns || word.IsIdent(u"column");
        if (count == 2 ||
            !(word.IsIdent(u"row") || word.IsIdent(u"column") || word.IsIdent(u"dense")))
            return false;
    }
    reader.Add(properties[0],
               CssValue::Of(flowsInColumns ? CssGridFlow::Columns : CssGridFlow::Rows));
    return true;
}
