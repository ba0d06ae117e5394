// The lines around a table and in it: the attributes `border`, `frame` and `rules` of HTML 4.
#include "formats/css/css_style.h"
#include "formats/css/css_tokenizer.h"
#include "formats/css/html_hint_values.h"
#include "formats/css/html_hints.h"
#include "formats/html/html_integer.h"

#include <algorithm>
#include <array>

namespace {

using P = CssProperty;

// Styles of the four sides; `one` where a letter of "trbl" is in `sides`, `other` elsewhere.
void AddEdges(CssBlock& block, std::u16string_view sides, float width, CssBorderStyle one,
              CssBorderStyle other) {
    constexpr std::u16string_view all = u"trbl";
    for (int side = 0; side < 4; ++side) {
        const bool isOne = sides.find(all[std::size_t(side)]) != sides.npos;
        AddHint(block, P::BorderTopWidth + side, CssValue::Pixels(width));
        AddHint(block, P::BorderTopStyle + side, isOne ? one : other);
    }
}

struct Word {
    std::u16string_view name, sides;
};

constexpr std::array<Word, 9> frames{{{u"void", u""},
                                      {u"above", u"t"},
                                      {u"below", u"b"},
                                      {u"hsides", u"tb"},
                                      {u"vsides", u"lr"},
                                      {u"lhs", u"l"},
                                      {u"rhs", u"r"},
                                      {u"box", u"trbl"},
                                      {u"border", u"trbl"}}};
// The lines of a cell.
constexpr std::array<Word, 5> rules{
    {{u"none", u""}, {u"groups", u""}, {u"rows", u""}, {u"cols", u"lr"}, {u"all", u"trbl"}}};

template <std::size_t count>
const Word* Find(const std::array<Word, count>& words, const HtmlNode& table, HtmlName name) {
    const HtmlAttribute* given = name != HtmlName::None ? table.Attribute(name) : nullptr;
    if (!given) return nullptr;
    const auto found = std::find_if(words.begin(), words.end(), [&](const Word& word) {
        return CssEqual(given->Value(), word.name);
    });
    return found != words.end() ? &*found : nullptr;
}

int BorderOf(const HtmlNode& table) {
    const HtmlAttribute* border = table.Attribute(HtmlName::Border);
    return border ? HtmlNonNegative(border->Value()).value_or(1) : 0;
}

} // namespace

void HtmlHints::ReadTableEdges(const HtmlNode& table, CssBlock& block) const {
    const Word* rule = Find(rules, table, rules_);
    if (rule) AddHint(block, P::BorderCollapse, CssBorderCollapse::Collapse);
    const auto border = static_cast<float>(BorderOf(table));
    if (const Word* frame = Find(frames, table, frame_))
        return AddEdges(block, frame->sides, std::max(1.0f, border), CssBorderStyle::Outset,
                        CssBorderStyle::Hidden);
    if (border > 0)
        AddBorderHint(block, border, std::uint16_t(CssBorderStyle::Outset));
    else if (rule)
        AddBorderHint(block, 0, std::uint16_t(CssBorderStyle::Hidden));
}

void HtmlHints::ReadCellEdges(const HtmlNode& table, CssBlock& block) const {
    if (const Word* rule = Find(rules, table, rules_))
        AddEdges(block, rule->sides, 1, CssBorderStyle::Solid, CssBorderStyle::None);
    else if (BorderOf(table))
        AddBorderHint(block, 1, std::uint16_t(CssBorderStyle::Inset));
}

void HtmlHints::ReadRowEdges(HtmlNodeId row, CssBlock& block) const {
    const HtmlNodeId table = rules_ != HtmlName::None ? TableOf(row) : noHtmlNode;
    const Word* rule = table ? Find(rules, tree_[table], rules_) : nullptr;
    if (!rule) return;
    const bool isGroup = !tree_[row].Is(HtmlName::Tr);
    if (rule->name == (isGroup ? u"groups" : u"rows"))
        AddEdges(block, u"tb", 1, CssBorderStyle::Solid, CssBorderStyle::None);
}
