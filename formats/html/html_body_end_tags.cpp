// End tags "in body".
#include "formats/html/html_element_kinds.h"
#include "formats/html/html_tree_builder.h"

#include <algorithm>
#include <utility>

using enum HtmlName;

void HtmlTreeBuilder::InBodyEndTag(HtmlToken& token) {
    switch (token.name) {
    case Template: return EndTemplate();
    case Body:
    case Html:
        if (!open_.HasInScope(Body)) return;
        NoteEndTag(open_[token.name == Html ? 0 : open_.LastOf(Body)], token);
        mode_ = Mode::AfterBody;
        if (token.name == Html) Dispatch(token);
        return;
    case Button:
    case Listing:
    case Pre:
    case Select: return EndBlock(token);
    case Form: return EndForm(token);
    case P:
        if (!open_.HasInScope(P, HtmlBoundary::ButtonScope)) InsertImplied(P);
        NoteEndTag(open_[open_.LastOf(P)], token);
        return CloseParagraph();
    case Li: return EndListItem(token, HtmlBoundary::ListScope);
    case Dd:
    case Dt: return EndListItem(token, HtmlBoundary::Scope);
    case A:
    case Nobr: return Adopt(token);
    case Applet:
    case Marquee:
    case Object:
        if (!open_.HasInScope(token.name)) return;
        EndBlock(token);
        return formatting_.ClearToMarker();
    case Br: // "</br>" is "<br>"
        token.attributes.clear();
        return InBodyStartTag(token);
    default: break;
    }
    if (IsPlainBlock(token.name)) return EndBlock(token);
    if (IsHeading(token.name)) return EndHeading(token);
    if (IsFormatting(token.name)) return Adopt(token);
    AnyOtherEndTag(token);
}

void HtmlTreeBuilder::EndBlock(HtmlToken& token) {
    if (!open_.HasInScope(token.name)) return;
    GenerateImpliedEndTags();
    PopThroughEnd(token);
}

void HtmlTreeBuilder::EndForm(HtmlToken& token) {
    if (open_.Has(Template)) return EndBlock(token);
    const HtmlNodeId form = std::exchange(form_, noHtmlNode);
    if (form == noHtmlNode || !open_.Contains(form) || !open_.HasInScope(Form)) return;
    GenerateImpliedEndTags();
    NoteEndTag(form, token);
    open_.Remove(form);
}

void HtmlTreeBuilder::EndListItem(HtmlToken& token, HtmlBoundary scope) {
    if (!open_.HasInScope(token.name, scope)) return;
    GenerateImpliedEndTags(token.name);
    PopThroughEnd(token);
}

// Of any level: "<h1>...</h2>".
void HtmlTreeBuilder::EndHeading(HtmlToken& token) {
    constexpr HtmlName headings[] = {H1, H2, H3, H4, H5, H6};
    const HtmlName innermost = *std::ranges::max_element(
        headings, {}, [&](HtmlName heading) { return open_.LastOf(heading); });
    if (!open_.HasInScope(innermost)) return;
    GenerateImpliedEndTags();
    NoteEndTag(open_[open_.LastOf(innermost)], token);
    PopThrough(innermost);
}

// Ends the innermost element of this name, unless something larger than a phrase has begun in it.
void HtmlTreeBuilder::AnyOtherEndTag(HtmlToken& token) {
    if (!open_.HasInScope(token.name, HtmlBoundary::Special)) return;
    GenerateImpliedEndTags(token.name);
    PopThroughEnd(token);
}
