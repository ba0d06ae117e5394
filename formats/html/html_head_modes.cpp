// Insertion modes "in head", "in head noscript" and "after head".
#include "formats/html/html_element_kinds.h"
#include "formats/html/html_tree_builder.h"

using enum HtmlName;

void HtmlTreeBuilder::InHeadMode(HtmlToken& token) {
    if (IsSpace(token)) return InsertText(token.text, token.source);
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token);
    if (token.kind == HtmlTokenKind::Doctype || token.IsStart(Head)) return;
    if (token.IsStart(Html)) return ProcessIn(Mode::InBody, token);
    if (token.IsStart(Noscript)) {
        InsertElement(token);
        mode_ = Mode::InHeadNoscript;
        return;
    }
    if (token.kind == HtmlTokenKind::StartTag && IsHeadPart(token.name))
        return InHeadStartTag(token);
    if (token.IsEnd(Template)) return EndTemplate();
    if (token.IsEnd(Head)) {
        PopThroughEnd(token);
        mode_ = Mode::AfterHead;
        return;
    }
    if (token.kind == HtmlTokenKind::EndTag && token.name != Body && token.name != Html &&
        token.name != Br)
        return;
    Pop(); // the head
    Reprocess(Mode::AfterHead, token);
}

void HtmlTreeBuilder::InHeadStartTag(HtmlToken& token) {
    switch (token.name) {
    case Title: return StartTextElement(token, HtmlContent::Rcdata);
    case Noframes:
    case Style: return StartTextElement(token, HtmlContent::Rawtext);
    case Script: return StartTextElement(token, HtmlContent::ScriptData);
    case Template:
        InsertElement(token);
        formatting_.PushMarker();
        framesetOk_ = false;
        mode_ = Mode::InTemplate;
        templateModes_.push_back(Mode::InTemplate);
        return;
    default: return InsertVoid(token);
    }
}

void HtmlTreeBuilder::EndTemplate() {
    if (!open_.Has(Template)) return;
    GenerateAllImpliedEndTags();
    PopThrough(Template);
    formatting_.ClearToMarker();
    if (!templateModes_.empty()) templateModes_.pop_back();
    ResetMode();
}

void HtmlTreeBuilder::InHeadNoscriptMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Doctype) return;
    if (token.IsStart(Html)) return ProcessIn(Mode::InBody, token);
    if (token.IsEnd(Noscript)) {
        PopThroughEnd(token);
        mode_ = Mode::InHead;
        return;
    }
    if (IsSpace(token) || token.kind == HtmlTokenKind::Comment) return InHeadMode(token);
    if (token.kind == HtmlTokenKind::StartTag) {
        switch (token.name) {
        case Basefont:
        case Bgsound:
        case Link:
        case Meta:
        case Noframes:
        case Style: return InHeadStartTag(token);
        case Head:
        case Noscript: return;
        default: break;
        }
    } else if (token.kind == HtmlTokenKind::EndTag && token.name != Br) {
        return;
    }
    Pop();
    Reprocess(Mode::InHead, token);
}

void HtmlTreeBuilder::AfterHeadMode(HtmlToken& token) {
    if (IsSpace(token)) return InsertText(token.text, token.source);
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token);
    if (token.kind == HtmlTokenKind::Doctype || token.IsStart(Head)) return;
    if (token.IsStart(Html)) return ProcessIn(Mode::InBody, token);
    if (token.IsStart(Body)) {
        InsertElement(token);
        framesetOk_ = false;
        mode_ = Mode::InBody;
        return;
    }
    if (token.IsStart(Frameset)) {
        InsertElement(token);
        mode_ = Mode::InFrameset;
        return;
    }
    if (token.kind == HtmlTokenKind::StartTag && IsHeadPart(token.name)) {
        open_.Push(head_);
        InHeadStartTag(token);
        open_.Remove(head_);
        return;
    }
    if (token.IsEnd(Template)) return EndTemplate();
    if (token.kind == HtmlTokenKind::EndTag && token.name != Body && token.name != Html &&
        token.name != Br)
        return;
    InsertImplied(Body);
    Reprocess(Mode::InBody, token);
}
