// What rules ask of an element, gathered once for all of them.
#pragma once

#include "formats/css/css_page_names.h"
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

class CssElementReader {
  public:
    explicit CssElementReader(const HtmlTree& tree) : tree_(tree), names_(tree) {}

    // The number of an id or a class of a rule; 0 when no element of the page has it.
    std::uint32_t AskName(std::u16string_view name) { return names_.Ask(name); }
    // Fills in all but `previousElement`.
    void Read(HtmlNodeId id, std::u16string_view parentLanguage, CssElement& element) const;

  private:
    const HtmlTree& tree_;
    CssPageNames names_;
};

bool IsHtmlLink(const HtmlNode& node);
// How values are compared; of ASCII letters only.
enum class CssCase : std::uint8_t { Sensitive, Insensitive };
// Whether one of the words of an attribute's value is this one.
bool HasCssWord(std::u16string_view text, std::u16string_view word, CssCase letters);
