// Insertion modes "text", "in template", and those of framesets and after the body.
#include "formats/html/html_element_kinds.h"
#include "formats/html/html_tree_builder.h"

using enum HtmlName;

void HtmlTreeBuilder::TextMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Characters) return InsertText(token.text, token.source);
    NoteEndTag(open_.Current(), token);
    Pop();
    mode_ = originalMode_;
    if (token.kind == HtmlTokenKind::EndOfFile) Dispatch(token);
}

void HtmlTreeBuilder::InTemplateMode(HtmlToken& token) {
    const auto become = [&](Mode mode) {
        if (!templateModes_.empty()) templateModes_.back() = mode;
        Reprocess(mode, token);
    };
    switch (token.kind) {
    case HtmlTokenKind::EndOfFile:
        if (!open_.Has(Template)) {
            stopped_ = true;
            return;
        }
        // All at once: one for each round of dispatching would need a stack as deep as they are.
        while (open_.Has(Template))
            EndTemplate();
        return Dispatch(token);
    case HtmlTokenKind::EndTag:
        if (token.name == Template) EndTemplate();
        return;
    case HtmlTokenKind::StartTag: break;
    default: return InBodyMode(token);
    }
    if (IsHeadPart(token.name)) return InHeadStartTag(token);
    switch (token.name) {
    case Caption:
    case Colgroup:
    case Tbody:
    case Tfoot:
    case Thead: return become(Mode::InTable);
    case Col: return become(Mode::InColumnGroup);
    case Tr: return become(Mode::InTableBody);
    case Td:
    case Th: return become(Mode::InRow);
    default: return become(Mode::InBody);
    }
}

void HtmlTreeBuilder::AfterBodyMode(HtmlToken& token) {
    if (IsSpace(token) || token.IsStart(Html)) return InBodyMode(token);
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token, open_[0]);
    if (token.kind == HtmlTokenKind::Doctype) return;
    if (token.kind == HtmlTokenKind::EndOfFile) {
        stopped_ = true;
        return;
    }
    if (!token.IsEnd(Html)) return Reprocess(Mode::InBody, token);
    NoteEndTag(open_[0], token);
    mode_ = Mode::AfterAfterBody;
}

void HtmlTreeBuilder::InFramesetMode(HtmlToken& token) {
    if (IsSpace(token)) return InsertText(token.text, token.source);
    switch (token.kind) {
    case HtmlTokenKind::Comment: return InsertComment(token);
    case HtmlTokenKind::EndOfFile: stopped_ = true; return;
    case HtmlTokenKind::EndTag:
        if (token.name != Frameset || open_.Count() == 1) return;
        NoteEndTag(open_.Current(), token);
        Pop();
        if (CurrentName() != Frameset) mode_ = Mode::AfterFrameset;
        return;
    case HtmlTokenKind::StartTag:
        if (token.name == Html)
            InBodyMode(token);
        else if (token.name == Frameset)
            InsertElement(token);
        else if (token.name == Frame)
            InsertVoid(token);
        else if (token.name == Noframes)
            InHeadStartTag(token);
        return;
    default: return;
    }
}

void HtmlTreeBuilder::AfterFramesetMode(HtmlToken& token) {
    if (IsSpace(token)) return InsertText(token.text, token.source);
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token);
    if (token.kind == HtmlTokenKind::EndOfFile)
        stopped_ = true;
    else if (token.IsStart(Html))
        InBodyMode(token);
    else if (token.IsStart(Noframes))
        InHeadStartTag(token);
    else if (token.IsEnd(Html))
        mode_ = Mode::AfterAfterFrameset;
}

void HtmlTreeBuilder::AfterAfterBodyMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token, htmlDocumentNode);
    if (token.kind == HtmlTokenKind::Doctype || IsSpace(token) || token.IsStart(Html))
        return InBodyMode(token);
    if (token.kind == HtmlTokenKind::EndOfFile)
        stopped_ = true;
    else
        Reprocess(Mode::InBody, token);
}

void HtmlTreeBuilder::AfterAfterFramesetMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token, htmlDocumentNode);
    if (token.kind == HtmlTokenKind::EndOfFile)
        stopped_ = true;
    else if (IsSpace(token) || token.IsStart(Html))
        InBodyMode(token);
    else if (token.IsStart(Noframes))
        InHeadStartTag(token);
}
