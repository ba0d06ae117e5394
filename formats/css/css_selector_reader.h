// The parts of the selector parser; for its own files.
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/css/css_token_stream.h"

#include <string_view>
#include <vector>

// Of an id, a class, a type.
constexpr std::uint32_t cssIdWeight = 1 << 20, cssClassWeight = 1 << 10, cssTypeWeight = 1;
// Each of the three stays below 1,024.
std::uint32_t AddCssSpecificity(std::uint32_t a, std::uint32_t b);

class CssSelectorReader {
  public:
    explicit CssSelectorReader(CssSheet& sheet) : sheet_(sheet) {}

    // Selectors that are wrong are left out where that is forgiven, else make the answer false.
    bool ReadList(CssTokenStream list, std::vector<CssSelector>& selectors, int depth,
                  bool forgiving);

  private:
    struct Compound {
        CssCompound compound;
        std::size_t firstCondition = 0; // of `conditions_`
        bool empty = true;
    };
    bool ReadSelector(CssTokenStream tokens, CssSelector& selector, int depth);
    bool ReadCompound(CssTokenStream& tokens, CssSelector& selector, Compound& result, int depth);
    bool ReadType(CssTokenStream& tokens, CssSelector& selector, Compound& result);
    bool ReadAttribute(CssTokenStream tokens);
    bool ReadPseudoClass(CssTokenStream& tokens, CssSelector& selector, Compound& result,
                         int depth);
    bool ReadPseudoFunction(const CssToken& name, CssTokenStream arguments, CssSelector& selector,
                            int depth);
    void Finish(Compound& result);
    bool ReadPseudoElement(CssTokenStream& tokens, CssSelector& selector, Compound& result);
    void AddName(CssCondition::Kind kind, std::u16string_view name);
    bool HasRoom() const;

    CssSheet& sheet_;
    // Of the compounds that are being read, one within the other; those of the innermost are last.
    std::vector<CssCondition> conditions_;
};
