// Makes and moves the nodes of a tree while it is read.
#pragma once

#include "formats/html/html_tree.h"

// Where a node goes: into `parent`, before one of its children or, without one, at the end.
struct HtmlPlace {
    HtmlNodeId parent = noHtmlNode, before = noHtmlNode;
};

class HtmlTreeWriter {
  public:
    // Observed; the source is the tree's from now on.
    HtmlTreeWriter(HtmlTree& tree, std::u16string source);

    HtmlNode& operator[](HtmlNodeId id) { return tree_.nodes_[id]; }
    const HtmlNode& operator[](HtmlNodeId id) const { return tree_.nodes_[id]; }
    HtmlNames& Names() { return tree_.names_; }
    HtmlArena& Arena() { return tree_.arena_; }
    HtmlDoctype& Doctype() { return tree_.doctype_; }
    HtmlQuirks& Quirks() { return tree_.quirks_; }
    const std::u16string& Source() const { return *tree_.source_; }
    const HtmlTree& Tree() const { return tree_; }
    // Nodes put somewhere and units copied, for tests.
    std::uint64_t Steps() const { return steps_; }
    // Whether the limit is reached. There is room for some hundred nodes then.
    bool IsFull() const;

    // Nodes that are nowhere yet.
    HtmlNodeId NewNode(HtmlNodeKind kind, HtmlSourceSpan source);
    HtmlNodeId NewElement(HtmlName name, HtmlNamespace nameSpace,
                          std::span<const HtmlAttribute> attributes, HtmlSourceSpan source);
    HtmlNodeId NewComment(std::u16string_view units, HtmlSourceSpan source);
    HtmlNodeId CloneNode(HtmlNodeId id); // without what is in it

    void Insert(HtmlNodeId id, HtmlPlace place); // of a node that is nowhere
    void Remove(HtmlNodeId id);                  // with what is in it
    void MoveChildren(HtmlNodeId from, HtmlNodeId to);
    // Adds to the text before the place, or makes one. The units are of the source or the arena.
    void InsertText(std::u16string_view units, HtmlSourceSpan source, HtmlPlace place);
    // Where units of the source stand; `other` for units that stand elsewhere.
    HtmlSourceSpan SpanOf(std::u16string_view units, HtmlSourceSpan other) const;
    // Of those that the element does not have.
    void AddAttributes(HtmlNodeId id, std::span<const HtmlAttribute> attributes);

  private:
    bool IsOfSource(const char16_t* units) const;
    void AppendUnits(HtmlNode& text, std::u16string_view units);

    HtmlTree& tree_;
    std::uint64_t steps_ = 0;
};
