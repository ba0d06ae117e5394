// Closing elements, and which mode follows.
#include "formats/html/html_tree_builder.h"

#include <algorithm>

using enum HtmlName;

HtmlName HtmlTreeBuilder::CurrentName() const {
    if (open_.Count() == 0) return None;
    const HtmlNode& node = writer_[open_.Current()];
    return node.nameSpace == HtmlNamespace::Html ? node.name : None;
}

bool HtmlTreeBuilder::CurrentIs(Names names) const {
    return std::ranges::find(names, CurrentName()) != names.end();
}

// No rule takes off `html`, with which the stack begins.
void HtmlTreeBuilder::PopThrough(HtmlName name) {
    open_.PopTo(std::max(open_.LastOf(name), 1));
}

void HtmlTreeBuilder::NoteEndTag(HtmlNodeId id, const HtmlToken& endTag) {
    if (endTag.kind == HtmlTokenKind::EndTag) writer_[id].endTag = endTag.source;
}

void HtmlTreeBuilder::PopThroughEnd(const HtmlToken& endTag) {
    NoteEndTag(open_[open_.LastOf(endTag.name)], endTag);
    PopThrough(endTag.name);
}

// Back to one of these, which stays.
void HtmlTreeBuilder::PopUntilOne(Names names) {
    while (open_.Count() > 1 && !CurrentIs(names))
        Pop();
}

void HtmlTreeBuilder::GenerateImpliedEndTags(HtmlName except) {
    while (CurrentName() != except &&
           CurrentIs({Dd, Dt, Li, Optgroup, HtmlName::Option, P, Rb, Rp, Rt, Rtc}))
        Pop();
}

void HtmlTreeBuilder::GenerateAllImpliedEndTags() {
    while (CurrentIs({Caption, Colgroup, Dd, Dt, Li, Optgroup, HtmlName::Option, P, Rb, Rp, Rt, Rtc,
                      Tbody, Td, Tfoot, Th, Thead, Tr}))
        Pop();
}

void HtmlTreeBuilder::CloseParagraph() {
    GenerateImpliedEndTags(P);
    PopThrough(P);
}

void HtmlTreeBuilder::CloseParagraphInScope() {
    if (open_.HasInScope(P, HtmlBoundary::ButtonScope)) CloseParagraph();
}

void HtmlTreeBuilder::ResetMode() {
    const int innermost = open_.Nearest(HtmlBoundary::Mode);
    mode_ =
        innermost == HtmlOpenElements::none ? Mode::InBody : ModeOf(writer_[open_[innermost]].name);
}

HtmlTreeBuilder::Mode HtmlTreeBuilder::ModeOf(HtmlName innermost) const {
    switch (innermost) {
    case Td:
    case Th: return Mode::InCell;
    case Tr: return Mode::InRow;
    case Tbody:
    case Thead:
    case Tfoot: return Mode::InTableBody;
    case Caption: return Mode::InCaption;
    case Colgroup: return Mode::InColumnGroup;
    case Table: return Mode::InTable;
    case Template: return templateModes_.empty() ? Mode::InBody : templateModes_.back();
    case Head: return Mode::InHead;
    case Frameset: return Mode::InFrameset;
    case Html: return head_ == noHtmlNode ? Mode::BeforeHead : Mode::AfterHead;
    default: return Mode::InBody;
    }
}
