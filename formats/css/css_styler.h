// Walks over a page and styles its elements; the work after StylePage.
#pragma once

#include "formats/css/css_compute.h"
#include "formats/css/css_matcher.h"
#include "formats/css/css_page_styles.h"
#include "formats/css/html_hints.h"

#include "formats/css/css_variables.h"

#include <deque>
#include <string>

class CssStyler : private CssWrittenReader {
  public:
    CssStyler(const HtmlTree& tree, const CssRuleIndex& index, const CssMedium& medium);
    CssPageStyles Style(bool sheetsDependOnViewport);

  private:
    void StyleElement(HtmlNodeId element, std::uint32_t parent);
    void StyleGenerated(HtmlNodeId element, CssPseudoElement which);
    void StyleFirst(HtmlNodeId element, CssPseudoElement which,
                    std::unordered_map<HtmlNodeId, std::uint32_t>& styles);
    bool HasRules(CssPseudoElement which) const;
    // All that a style follows from, as bytes: elements with the same have the same style.
    void MakeKey(std::uint32_t parent, CssPseudoElement which, std::u16string_view attribute);
    std::uint32_t NumberOfKey(std::uint32_t parent, CssPseudoElement which,
                              std::u16string_view attribute);
    std::uint32_t Compute(std::uint32_t parent, CssPseudoElement which,
                          std::u16string_view attribute);
    const CssBlock& Read(const CssWrittenDeclaration& declaration) override;
    // In css_styler_variables.cpp: of an element, with those that it inherits.
    std::uint32_t VariablesOf(CssPseudoElement which, const CssBlock& own, std::uint32_t outer);
    void AddWritten(std::span<const CssDeclaration> declarations, const CssBlock& block,
                    CssImportance importance,
                    std::vector<const CssWrittenDeclaration*>& written) const;
    void ApplyRules(CssCascade& cascade, CssPseudoElement which, CssImportance importance,
                    CssOrigin origin);
    std::uint32_t Add(const CssStyleParts& parts);

    const HtmlTree& tree_;
    const CssRuleIndex& index_;
    CssMatcher matcher_;
    HtmlHints hintsReader_;
    CssReading reading_; // of `style` attributes
    CssComputeContext context_;
    CssPageStyles page_;
    // Of the element that is computed, and what its declarations with variables say.
    std::uint32_t variables_ = 0;
    std::deque<CssBlock> read_;
    CssListPool<CssVariables> variableLists_;
    std::size_t variableUnits_ = 0; // of all lists
    CssBlock hints_;
    std::string key_;
    std::unordered_map<std::string, std::uint32_t> numberOfKey_;
    std::unordered_map<std::uint64_t, std::uint32_t> numberOfParts_; // by the numbers of both
};
