// Where elements and texts are inserted.
#include "formats/html/html_limits.h"
#include "formats/html/html_tree_builder.h"

using enum HtmlName;

HtmlPlace HtmlTreeBuilder::InsideOf(HtmlNodeId id) const {
    return {writer_[id].Is(Template) ? writer_[id].firstChild : id};
}

HtmlPlace HtmlTreeBuilder::PlaceFor(HtmlNodeId target) {
    const HtmlNode& node = writer_[target];
    if (fosterParenting_ &&
        (node.Is(Table) || node.Is(Tbody) || node.Is(Tfoot) || node.Is(Thead) || node.Is(Tr)))
        return FosterPlace();
    return InsideOf(target);
}

// What stands in a table but in no cell goes before the table.
HtmlPlace HtmlTreeBuilder::FosterPlace() {
    const int table = open_.LastOf(Table), lastTemplate = open_.LastOf(Template);
    if (lastTemplate != HtmlOpenElements::none && lastTemplate > table)
        return InsideOf(open_[lastTemplate]);
    if (table == HtmlOpenElements::none) return {open_[0]};
    const HtmlNodeId parent = writer_[open_[table]].parent;
    if (parent != noHtmlNode) return {parent, open_[table]};
    return InsideOf(open_[table - 1]);
}

void HtmlTreeBuilder::PushInserted(HtmlNodeId id) {
    writer_.Insert(id,
                   open_.Count() == 0 ? HtmlPlace{htmlDocumentNode} : PlaceFor(open_.Current()));
    open_.Push(id);
}

HtmlNodeId HtmlTreeBuilder::InsertElement(const HtmlToken& token) {
    const HtmlNodeId id =
        writer_.NewElement(token.name, HtmlNamespace::Html, token.attributes, token.source);
    PushInserted(id);
    if (token.name == Template)
        writer_.Insert(writer_.NewNode(HtmlNodeKind::Fragment, token.source), {id});
    return id;
}

HtmlNodeId HtmlTreeBuilder::InsertImplied(HtmlName name) {
    const HtmlNodeId id = writer_.NewElement(name, HtmlNamespace::Html, {}, {});
    PushInserted(id);
    return id;
}

void HtmlTreeBuilder::InsertVoid(const HtmlToken& token) {
    InsertElement(token);
    Pop();
}

void HtmlTreeBuilder::InsertText(std::u16string_view text, HtmlSourceSpan source) {
    const HtmlPlace place = PlaceFor(open_.Current());
    if (place.parent != htmlDocumentNode)
        writer_.InsertText(text, writer_.SpanOf(text, source), place);
}

void HtmlTreeBuilder::InsertComment(const HtmlToken& token) {
    writer_.Insert(writer_.NewComment(token.text, token.source), PlaceFor(open_.Current()));
}

void HtmlTreeBuilder::InsertComment(const HtmlToken& token, HtmlNodeId parent) {
    writer_.Insert(writer_.NewComment(token.text, token.source), {parent});
}

void HtmlTreeBuilder::StartTextElement(const HtmlToken& token, HtmlContent content) {
    InsertElement(token);
    tokenizer_.SetContent(content);
    originalMode_ = mode_;
    mode_ = Mode::Text;
}

HtmlNodeId HtmlTreeBuilder::Clone(HtmlNodeId id) {
    ++cloneCount_;
    return writer_.CloneNode(id);
}

void HtmlTreeBuilder::ReconstructFormatting() {
    std::size_t first = formatting_.Count();
    while (first > 0 && formatting_[first - 1] != noHtmlNode &&
           !open_.Contains(formatting_[first - 1]))
        --first;
    steps_ += formatting_.Count() - first;
    if (writer_.IsFull()) return;
    for (; first < formatting_.Count() && HasClones(); ++first) {
        const HtmlNodeId clone = Clone(formatting_[first]);
        PushInserted(clone);
        formatting_[first] = clone;
    }
}
