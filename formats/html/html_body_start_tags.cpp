// Start tags "in body", by kind: blocks, list items, formatting, void elements. Each function
// returns whether the tag was of its kind.
#include "formats/html/html_element_kinds.h"
#include "formats/html/html_tree_builder.h"
#include "formats/html/html_units.h"

using enum HtmlName;

bool HtmlTreeBuilder::StartBlock(HtmlToken& token) {
    if (token.name == P || IsPlainBlock(token.name) || IsHeading(token.name)) {
        CloseParagraphInScope();
        if (IsHeading(token.name) && IsHeading(CurrentName())) Pop();
        InsertElement(token);
        return true;
    }
    switch (token.name) {
    case Pre:
    case Listing:
        CloseParagraphInScope();
        InsertElement(token);
        skipsLineFeed_ = true;
        framesetOk_ = false;
        return true;
    case Form:
        if (form_ != noHtmlNode && !open_.Has(Template)) return true;
        CloseParagraphInScope();
        InsertElement(token);
        if (!open_.Has(Template)) form_ = open_.Current();
        return true;
    default: return false;
    }
}

// Ends the item before it, unless a list has begun within that.
bool HtmlTreeBuilder::StartListItem(HtmlToken& token) {
    if (token.name != Li && token.name != Dd && token.name != Dt) return false;
    framesetOk_ = false;
    for (const HtmlName before : {Li, Dd, Dt}) {
        if ((before == Li) != (token.name == Li)) continue;
        if (!open_.HasInScope(before, HtmlBoundary::ListSpecial)) continue;
        GenerateImpliedEndTags(before);
        PopThrough(before);
        break;
    }
    CloseParagraphInScope();
    InsertElement(token);
    return true;
}

bool HtmlTreeBuilder::StartFormatting(HtmlToken& token) {
    switch (token.name) {
    case A:
        if (const std::size_t other = formatting_.LastOf(A); other != HtmlFormatting::none) {
            const HtmlNodeId id = formatting_[other];
            Adopt(token);
            formatting_.Remove(id);
            open_.Remove(id);
        }
        ReconstructFormatting();
        break;
    case Nobr:
        ReconstructFormatting();
        if (open_.HasInScope(Nobr)) {
            Adopt(token);
            ReconstructFormatting();
        }
        break;
    default:
        if (!IsFormatting(token.name)) return false;
        ReconstructFormatting();
        break;
    }
    formatting_.Push(InsertElement(token));
    return true;
}

bool HtmlTreeBuilder::StartVoid(HtmlToken& token) {
    switch (token.name) {
    case Area:
    case Br:
    case Embed:
    case Img:
    case Keygen:
    case Wbr:
        ReconstructFormatting();
        InsertVoid(token);
        framesetOk_ = false;
        return true;
    case Image: // as people write it
        token.name = Img;
        return StartVoid(token);
    case Input: {
        if (open_.HasInScope(Select)) PopThrough(Select);
        ReconstructFormatting();
        InsertVoid(token);
        const HtmlAttribute* const type = token.Attribute(Type);
        if (type == nullptr || !EqualsAsciiLower(type->Value(), u"hidden")) framesetOk_ = false;
        return true;
    }
    case Param:
    case Source:
    case Track: InsertVoid(token); return true;
    case Hr:
        CloseParagraphInScope();
        if (open_.HasInScope(Select)) GenerateImpliedEndTags();
        InsertVoid(token);
        framesetOk_ = false;
        return true;
    default: return false;
    }
}
