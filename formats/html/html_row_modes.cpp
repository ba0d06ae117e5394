// Insertion modes "in table body", "in row" and "in cell".
#include "formats/html/html_tree_builder.h"

using enum HtmlName;

void HtmlTreeBuilder::InTableBodyMode(HtmlToken& token) {
    const auto clear = [&] { PopUntilOne({Tbody, Tfoot, Thead, Template, Html}); };
    bool ends = false;
    if (token.kind == HtmlTokenKind::StartTag) {
        switch (token.name) {
        case Tr:
            clear();
            InsertElement(token);
            mode_ = Mode::InRow;
            return;
        case Th:
        case Td:
            clear();
            InsertImplied(Tr);
            return Reprocess(Mode::InRow, token);
        case Caption:
        case Col:
        case Colgroup:
        case Tbody:
        case Tfoot:
        case Thead: ends = true; break;
        default: break;
        }
    } else if (token.kind == HtmlTokenKind::EndTag) {
        switch (token.name) {
        case Tbody:
        case Tfoot:
        case Thead:
            if (!open_.HasInScope(token.name, HtmlBoundary::TableScope)) return;
            clear();
            NoteEndTag(open_.Current(), token);
            Pop();
            mode_ = Mode::InTable;
            return;
        case Table: ends = true; break;
        case Body:
        case Caption:
        case Col:
        case Colgroup:
        case Html:
        case Td:
        case Th:
        case Tr: return;
        default: break;
        }
    }
    if (!ends) return InTableMode(token);
    if (!open_.HasInScope(Tbody, HtmlBoundary::TableScope) &&
        !open_.HasInScope(Thead, HtmlBoundary::TableScope) &&
        !open_.HasInScope(Tfoot, HtmlBoundary::TableScope))
        return;
    clear();
    Pop();
    Reprocess(Mode::InTable, token);
}

// Whether there was one.
bool HtmlTreeBuilder::EndRow() {
    if (!open_.HasInScope(Tr, HtmlBoundary::TableScope)) return false;
    PopUntilOne({Tr, Template, Html});
    Pop();
    mode_ = Mode::InTableBody;
    return true;
}

void HtmlTreeBuilder::InRowMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::StartTag) {
        switch (token.name) {
        case Th:
        case Td:
            PopUntilOne({Tr, Template, Html});
            InsertElement(token);
            mode_ = Mode::InCell;
            return formatting_.PushMarker();
        case Caption:
        case Col:
        case Colgroup:
        case Tbody:
        case Tfoot:
        case Thead:
        case Tr:
            if (EndRow()) Dispatch(token);
            return;
        default: break;
        }
    } else if (token.kind == HtmlTokenKind::EndTag) {
        switch (token.name) {
        case Tr:
            if (open_.Has(Tr)) NoteEndTag(open_[open_.LastOf(Tr)], token);
            EndRow();
            return;
        case Table:
            if (EndRow()) Dispatch(token);
            return;
        case Tbody:
        case Tfoot:
        case Thead:
            if (open_.HasInScope(token.name, HtmlBoundary::TableScope) && EndRow()) Dispatch(token);
            return;
        case Body:
        case Caption:
        case Col:
        case Colgroup:
        case Html:
        case Td:
        case Th: return;
        default: break;
        }
    }
    InTableMode(token);
}

void HtmlTreeBuilder::EndCell(const HtmlToken& token) {
    const bool isHeader = open_.LastOf(Th) > open_.LastOf(Td);
    const HtmlName cell = isHeader ? Th : Td;
    GenerateImpliedEndTags();
    if (token.IsEnd(cell)) NoteEndTag(open_[open_.LastOf(cell)], token);
    PopThrough(cell);
    formatting_.ClearToMarker();
    mode_ = Mode::InRow;
}

void HtmlTreeBuilder::InCellMode(HtmlToken& token) {
    if (token.kind == HtmlTokenKind::StartTag) {
        switch (token.name) {
        case Caption:
        case Col:
        case Colgroup:
        case Tbody:
        case Td:
        case Tfoot:
        case Th:
        case Thead:
        case Tr:
            if (!open_.HasInScope(Td, HtmlBoundary::TableScope) &&
                !open_.HasInScope(Th, HtmlBoundary::TableScope))
                return;
            EndCell(token);
            return Dispatch(token);
        default: break;
        }
    } else if (token.kind == HtmlTokenKind::EndTag) {
        switch (token.name) {
        case Td:
        case Th:
            if (!open_.HasInScope(token.name, HtmlBoundary::TableScope)) return;
            GenerateImpliedEndTags();
            PopThroughEnd(token);
            formatting_.ClearToMarker();
            mode_ = Mode::InRow;
            return;
        case Body:
        case Caption:
        case Col:
        case Colgroup:
        case Html: return;
        case Table:
        case Tbody:
        case Tfoot:
        case Thead:
        case Tr:
            if (!open_.HasInScope(token.name, HtmlBoundary::TableScope)) return;
            EndCell(token);
            return Dispatch(token);
        default: break;
        }
    }
    InBodyMode(token);
}
