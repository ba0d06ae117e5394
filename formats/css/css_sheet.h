// A style sheet: its rules that apply on this screen, in what this program understands of them.
#pragma once

#include "formats/css/css_grid.h"
#include "formats/css/css_property.h"
#include "formats/css/css_value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct CssDeclaration {
    CssProperty property = CssProperty::None;
    bool important = false;
    CssValue value;
};

// One that waits for the element: of a custom property, or with var() in its value.
struct CssWrittenDeclaration {
    std::u16string name, value;
};

// A step of a sum: a value is put on a stack, or the two on top of it become one.
struct CssMathStep {
    enum class Kind : std::uint8_t {
        Value,
        Add,
        Subtract,
        Multiply,
        Divide,
        Min,
        Max,
        // The left one as a multiple of the right one; half of it goes up with RoundNearest.
        RoundNearest,
        RoundUp,
        RoundDown,
        RoundToZero,
        Mod, // what is left of the division, with the sign of the right one
        Rem  // likewise, with that of the left one
    };
    Kind kind = Kind::Value;
    CssValue value;
};
using CssMath = std::vector<CssMathStep>;

// Declarations and what their values are too long for.
struct CssBlock {
    std::vector<CssDeclaration> declarations;
    std::vector<CssWrittenDeclaration> written;
    std::vector<CssMath> maths;
    std::vector<CssFontFamilies> families;
    std::vector<CssContent> contents;
    std::vector<CssCounterChanges> counters;
    std::vector<CssGridTracks> gridTracks;
    std::vector<CssGridAreas> gridAreas;
    std::vector<CssGridName> gridNames;

    // Puts `item` at the end of one of the lists; the value that stands for it.
    template <typename T>
    CssValue Store(CssValue::Kind kind, std::vector<T> CssBlock::*list, T item) {
        std::vector<T>& items = this->*list;
        items.push_back(std::move(item));
        return CssValue::OfIndex(kind, items.size() - 1);
    }
};

// One thing that a selector asks of an element.
struct CssCondition {
    enum class Kind : std::uint8_t {
        Class,         // `name`
        Id,            // `name`
        HasAttribute,  // `name`
        AttributeIs,   // `name`, `value`
        AttributeWord, // ~=: one of the words
        AttributeDash, // |=: `value`, or it with a "-" after
        AttributeStart,
        AttributeEnd,
        AttributePart,
        NthChild, // a * n + b
        NthLastChild,
        NthOfType,
        NthLastOfType,
        Root,
        Empty,
        Link,     // a link; none counts as visited
        Language, // `value`
        Is,       // one of the selectors from `name` on, `value` in number
        Not,      // none of them
        Never     // of a state that nothing has here, such as :hover
    };
    Kind kind = Kind::Never;
    // Of an attribute: as the selector says, or as HTML has it for that attribute.
    enum class Case : std::uint8_t { OfAttribute, Ignored, Exact } caseOf = Case::OfAttribute;
    std::uint32_t name = 0, value = 0; // texts of the sheet
    std::int32_t a = 0, b = 0;
};

enum class CssCombinator : std::uint8_t { None, Descendant, Child, Adjacent, Sibling };

// Conditions of one element. `combinator` leads to the compound before it in the selector.
struct CssCompound {
    std::uint32_t type = 0; // a text of the sheet; 0 is any
    std::uint32_t conditions = 0;
    std::uint16_t conditionCount = 0;
    CssCombinator combinator = CssCombinator::None;
};

enum class CssPseudoElement : std::uint8_t {
    None,
    Before,
    After,
    FirstLetter,
    FirstLine,
    NotShown
};

struct CssSelector {
    std::uint32_t compounds = 0; // from left to right
    std::uint16_t compoundCount = 0;
    CssPseudoElement pseudoElement = CssPseudoElement::None;
    std::uint32_t specificity = 0; // ids, classes and types, a byte each
};

struct CssRule {
    std::uint32_t selectors = 0, selectorCount = 0;
    std::uint32_t declarations = 0, declarationCount = 0; // of the sheet's block
};

// Texts by number, one after the other; number 0 is the empty one.
class CssTexts {
  public:
    std::uint32_t Add(std::u16string_view text);
    std::u16string_view operator[](std::uint32_t number) const {
        return std::u16string_view(all_).substr(ends_[number], ends_[number + 1] - ends_[number]);
    }

  private:
    std::u16string all_;
    std::vector<std::uint32_t> ends_{0, 0}; // of the text before each, and of the last one
};

struct CssSheet {
    std::vector<CssRule> rules;
    std::vector<CssSelector> selectors;
    std::vector<CssCompound> compounds;
    std::vector<CssCondition> conditions;
    CssBlock block;
    CssTexts texts;
    // Sheets whose rules come before those here, in this order; whoever loads them decides what
    // may be loaded. Addresses as they are written, relative to this sheet's own.
    std::vector<std::u16string> imports;
    bool dependsOnViewport = false; // a rule is here, or is not, because of the window's size
};

std::span<const CssDeclaration> DeclarationsOf(const CssSheet& sheet, const CssRule& rule);
