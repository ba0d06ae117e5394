// Insertion modes before the head: "initial", "before html", "before head".
#include "formats/html/html_quirks.h"
#include "formats/html/html_tree_builder.h"

#include <utility>

using enum HtmlName;

void HtmlTreeBuilder::InitialMode(HtmlToken& token) {
    if (IsSpace(token)) return;
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token, htmlDocumentNode);
    if (token.kind == HtmlTokenKind::Doctype) {
        writer_.Insert(writer_.NewNode(HtmlNodeKind::Doctype, token.source), {htmlDocumentNode});
        writer_.Quirks() = QuirksOf(token.doctype);
        writer_.Doctype() = std::move(token.doctype.ids);
        mode_ = Mode::BeforeHtml;
        return;
    }
    writer_.Quirks() = HtmlQuirks::Full;
    Reprocess(Mode::BeforeHtml, token);
}

void HtmlTreeBuilder::BeforeHtmlMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Doctype || IsSpace(token)) return;
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token, htmlDocumentNode);
    if (token.IsStart(Html)) {
        InsertElement(token);
        mode_ = Mode::BeforeHead;
        return;
    }
    if (token.kind == HtmlTokenKind::EndTag && token.name != Head && token.name != Body &&
        token.name != Html && token.name != Br)
        return;
    InsertImplied(Html);
    Reprocess(Mode::BeforeHead, token);
}

void HtmlTreeBuilder::BeforeHeadMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Doctype || IsSpace(token)) return;
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token);
    if (token.IsStart(Html)) return ProcessIn(Mode::InBody, token);
    if (token.IsStart(Head)) {
        head_ = InsertElement(token);
        mode_ = Mode::InHead;
        return;
    }
    if (token.kind == HtmlTokenKind::EndTag && token.name != Head && token.name != Body &&
        token.name != Html && token.name != Br)
        return;
    head_ = InsertImplied(Head);
    Reprocess(Mode::InHead, token);
}
