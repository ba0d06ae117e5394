// Insertion modes "in table", "in table text", "in caption" and "in column group".
#include "formats/html/html_tree_builder.h"
#include "formats/html/html_units.h"

#include <algorithm>
#include <utility>

using enum HtmlName;

void HtmlTreeBuilder::InTableMode(HtmlToken& token) {
    switch (token.kind) {
    case HtmlTokenKind::Characters:
        if (!CurrentIs({Table, Tbody, Template, Tfoot, Thead, Tr})) break;
        tableText_.clear();
        originalMode_ = mode_;
        return Reprocess(Mode::InTableText, token);
    case HtmlTokenKind::Comment: return InsertComment(token);
    case HtmlTokenKind::Doctype: return;
    case HtmlTokenKind::StartTag:
        if (InTableStartTag(token)) return;
        break;
    case HtmlTokenKind::EndTag:
        switch (token.name) {
        case Table:
            if (!open_.HasInScope(Table, HtmlBoundary::TableScope)) return;
            PopThroughEnd(token);
            return ResetMode();
        case Body:
        case Caption:
        case Col:
        case Colgroup:
        case Html:
        case Tbody:
        case Td:
        case Tfoot:
        case Th:
        case Thead:
        case Tr: return;
        case Template: return EndTemplate();
        default: break;
        }
        break;
    case HtmlTokenKind::EndOfFile: return InBodyMode(token);
    }
    InTableElse(token);
}

// What belongs in no table goes before it.
void HtmlTreeBuilder::InTableElse(HtmlToken& token) {
    fosterParenting_ = true;
    InBodyMode(token);
    fosterParenting_ = false;
}

bool HtmlTreeBuilder::InTableStartTag(HtmlToken& token) {
    const auto enter = [&](Mode mode) {
        PopUntilOne({Table, Template, Html});
        mode_ = mode;
    };
    switch (token.name) {
    case Caption:
        enter(Mode::InCaption);
        formatting_.PushMarker();
        InsertElement(token);
        return true;
    case Colgroup:
        enter(Mode::InColumnGroup);
        InsertElement(token);
        return true;
    case Col:
        enter(Mode::InColumnGroup);
        InsertImplied(Colgroup);
        Dispatch(token);
        return true;
    case Tbody:
    case Tfoot:
    case Thead:
        enter(Mode::InTableBody);
        InsertElement(token);
        return true;
    case Td:
    case Th:
    case Tr:
        enter(Mode::InTableBody);
        InsertImplied(Tbody);
        Dispatch(token);
        return true;
    case Table:
        if (!open_.HasInScope(Table, HtmlBoundary::TableScope)) return true;
        PopThrough(Table);
        ResetMode();
        Dispatch(token);
        return true;
    case Style:
    case Script:
    case Template: InHeadStartTag(token); return true;
    case Input: {
        const HtmlAttribute* const type = token.Attribute(Type);
        if (type == nullptr || !EqualsAsciiLower(type->Value(), u"hidden")) return false;
        InsertVoid(token);
        return true;
    }
    case Form:
        if (form_ != noHtmlNode || open_.Has(Template)) return true;
        form_ = InsertElement(token);
        Pop();
        return true;
    default: return false;
    }
}

// Blanks between rows stay where they are; with any other character between them all go before the
// table.
void HtmlTreeBuilder::InTableTextMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::Characters) {
        if (token.text.front() != u'\0') tableText_.push_back({token.text, token.source});
        return;
    }
    const bool isSpace = std::ranges::all_of(tableText_, [](const TableText& part) {
        return HtmlSpaceLength(part.text) == part.text.size();
    });
    fosterParenting_ = !isSpace;
    for (const TableText& part : std::exchange(tableText_, {}))
        if (isSpace)
            InsertText(part.text, part.source);
        else
            InBodyCharacters(part.text, part.source);
    fosterParenting_ = false;
    Reprocess(originalMode_, token);
}

void HtmlTreeBuilder::InCaptionMode(HtmlToken& token) {
    bool ends = token.IsEnd(Table), again = true;
    if (token.kind == HtmlTokenKind::StartTag) {
        for (const HtmlName name : {Caption, Col, Colgroup, Tbody, Td, Tfoot, Th, Thead, Tr})
            ends = ends || token.name == name;
    } else if (token.IsEnd(Caption)) {
        ends = true;
        again = false;
    } else if (token.kind == HtmlTokenKind::EndTag) {
        for (const HtmlName name : {Body, Col, Colgroup, Html, Tbody, Td, Tfoot, Th, Thead, Tr})
            if (token.name == name) return;
    }
    if (!ends) return InBodyMode(token);
    if (!open_.HasInScope(Caption, HtmlBoundary::TableScope)) return;
    GenerateImpliedEndTags();
    if (!again) NoteEndTag(open_[open_.LastOf(Caption)], token);
    PopThrough(Caption);
    formatting_.ClearToMarker();
    mode_ = Mode::InTable;
    if (again) Dispatch(token);
}

void HtmlTreeBuilder::InColumnGroupMode(HtmlToken& token) {
    if (IsSpace(token)) return InsertText(token.text, token.source);
    if (token.kind == HtmlTokenKind::Comment) return InsertComment(token);
    if (token.kind == HtmlTokenKind::Doctype || token.IsEnd(Col)) return;
    if (token.kind == HtmlTokenKind::EndOfFile || token.IsStart(Html)) return InBodyMode(token);
    if (token.IsStart(Col)) return InsertVoid(token);
    if (token.IsStart(Template)) return InHeadStartTag(token);
    if (token.IsEnd(Template)) return EndTemplate();
    if (CurrentName() != Colgroup) return;
    const bool isEnd = token.IsEnd(Colgroup);
    if (isEnd) NoteEndTag(open_.Current(), token);
    Pop();
    mode_ = Mode::InTable;
    if (!isEnd) Dispatch(token);
}
