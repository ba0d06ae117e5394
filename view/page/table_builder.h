// Makes the boxes of a page's tables: groups, rows and cells with what stands in for missing ones
// (CSS 2.1, 17.2.1), and the parts of a table that is too long.
#pragma once

#include "view/page/child_nodes.h"
#include "view/page/lines_builder.h"

#include <vector>

// Makes the boxes of what is in cells and captions.
class BlockBuilder {
  public:
    virtual ~BlockBuilder() = default;
    virtual void BuildBlock(PageBoxKind kind, HtmlNodeId node) = 0;
    virtual void Visit(HtmlNodeId node) = 0; // as a part of what is open
    // In lines that would begin with the node `at`.
    virtual void BuildGenerated(HtmlNodeId node, CssStyle style, GeneratedPlace place,
                                HtmlNodeId at) = 0;
};

struct TableParts {
    HtmlSiblings nodes;
    bool makeTable = false; // else they are none, too many, or columns alone
};

class TableBuilder {
  public:
    TableBuilder(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits,
                 const PageWeights& weights, PageBoxStack& boxes, LinesBuilder& lines,
                 BlockBuilder& blocks)
        : tree_(tree), styles_(styles), limits_(limits), weights_(weights), boxes_(boxes),
          lines_(lines), blocks_(blocks) {}

    void Build(HtmlNodeId table);
    // Parts of tables from a node on that stand in no table, and the blanks between them; else that
    // node alone.
    TableParts PartsFrom(HtmlNodeId first) const;
    void BuildAnonymous(HtmlSiblings parts); // a table of these
    void CollapseBorders();                  // of all tables, when all boxes are made

  private:
    // What a table has had since it began or was divided.
    struct Part {
        PageWeight weight = 0;
        int rows = 0, spannedUntil = 0;
    };

    CssDisplay DisplayOf(HtmlNodeId id) const;
    bool IsShownPart(HtmlNodeId id) const;
    bool HasLongRow(HtmlNodeId parent) const;
    void BuildTable(HtmlNodeId table, HtmlSiblings parts, HtmlNodeId after);
    void BuildRows(HtmlNodeId table, HtmlSiblings parts, HtmlNodeId after); // what follows them
    bool IsShownCell(CssStyle generated) const;
    void BuildGeneratedCell(HtmlNodeId table, CssStyle style, GeneratedPlace place, HtmlNodeId at);
    void BuildPart(HtmlNodeId id, CssDisplay display);
    void BuildRow(HtmlNodeId row);
    void BuildCell(HtmlNodeId id);
    void HideEmptyCell(PageBoxId id);
    void CloseCell(HtmlNodeId after);
    void CloseRow(HtmlNodeId after);
    void BuildColumns(HtmlNodeId columns);
    void BuildColumn(HtmlNodeId column);
    void Divide(PageWeight row);

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageLimits& limits_;
    const PageWeights& weights_;
    PageBoxStack& boxes_;
    LinesBuilder& lines_;
    BlockBuilder& blocks_;
    Part part_; // that is open
    std::vector<PageBoxId> collapsed_;
};
