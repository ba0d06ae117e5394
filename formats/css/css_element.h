// What rules ask of an element, gathered once for all of them.
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

#include <vector>

struct CssElement {
    HtmlNodeId id = noHtmlNode;
    const HtmlNode* node = nullptr;
    HtmlNodeId previousElement = noHtmlNode; // the sibling before it
    std::uint32_t idNumber = 0;              // 0: no rule speaks of it
    std::vector<std::uint32_t> classNumbers; // of those that rules speak of
    std::u16string_view language;
};

// The texts that rules have as ids and classes, by number.
class CssElementReader {
  public:
    explicit CssElementReader(const HtmlTree& tree)
        : tree_(tree), ignoreCase_(tree.Quirks() == HtmlQuirks::Full) {}

    std::uint32_t AddName(std::u16string_view name);
    std::size_t NameCount() const { return names_.Count(); }
    // Fills in all but `previousElement`.
    void Read(HtmlNodeId id, std::u16string_view parentLanguage, CssElement& element) const;

  private:
    std::uint32_t NumberOf(std::u16string_view name) const;

    const HtmlTree& tree_;
    bool ignoreCase_; // ids and classes of pages in quirks mode
    CssTexts names_;
};

bool IsHtmlLink(const HtmlNode& node);
// Whether one of the words of an attribute's value is this one.
bool HasCssWord(std::u16string_view text, std::u16string_view word, bool ignoreCase);
