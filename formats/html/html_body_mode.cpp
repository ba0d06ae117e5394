// The insertion mode "in body".
#include "formats/html/html_element_kinds.h"
#include "formats/html/html_tree_builder.h"
#include "formats/html/html_units.h"

using enum HtmlName;

void HtmlTreeBuilder::InBodyMode(HtmlToken& token) {
    switch (token.kind) {
    case HtmlTokenKind::Characters: return InBodyCharacters(token.text, token.source);
    case HtmlTokenKind::Comment: return InsertComment(token);
    case HtmlTokenKind::Doctype: return;
    case HtmlTokenKind::StartTag: return InBodyStartTag(token);
    case HtmlTokenKind::EndTag: return InBodyEndTag(token);
    case HtmlTokenKind::EndOfFile:
        if (templateModes_.empty())
            stopped_ = true;
        else
            InTemplateMode(token);
        return;
    }
}

void HtmlTreeBuilder::InBodyCharacters(std::u16string_view text, HtmlSourceSpan source) {
    if (text.empty() || text.front() == u'\0') return;
    ReconstructFormatting();
    InsertText(text, source);
    if (framesetOk_ && HtmlSpaceLength(text) < text.size()) framesetOk_ = false;
}

void HtmlTreeBuilder::InBodyStartTag(HtmlToken& token) {
    if (IsHeadPart(token.name)) return InHeadStartTag(token);
    switch (token.name) {
    case Html:
        if (!open_.Has(Template)) writer_.AddAttributes(open_[0], token.attributes);
        return;
    case Body:
        if (open_.Count() < 2 || !writer_[open_[1]].Is(Body) || open_.Has(Template)) return;
        framesetOk_ = false;
        return writer_.AddAttributes(open_[1], token.attributes);
    case Frameset: return StartFrameset(token);
    case Caption:
    case Col:
    case Colgroup:
    case Frame:
    case Head:
    case Tbody:
    case Td:
    case Tfoot:
    case Th:
    case Thead:
    case Tr: return; // of a table that there is none of
    default: break;
    }
    if (token.name < FirstOfDocument &&
        (StartBlock(token) || StartListItem(token) || StartFormatting(token) || StartVoid(token) ||
         StartText(token) || StartSelectPart(token) || StartRuby(token) || StartPart(token)))
        return;
    ReconstructFormatting();
    InsertElement(token);
}

// A page of frames that begins late, with nothing but blanks before it.
void HtmlTreeBuilder::StartFrameset(HtmlToken& token) {
    if (open_.Count() < 2 || !writer_[open_[1]].Is(Body) || !framesetOk_) return;
    writer_.Remove(open_[1]);
    open_.PopTo(1);
    InsertElement(token);
    mode_ = Mode::InFrameset;
}
