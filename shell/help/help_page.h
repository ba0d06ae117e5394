// Writing one page of the help: marked-up paragraphs into a document.
#pragma once

#include "formats/document.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

enum class HelpParagraph { Title, Heading, Text, Item, Numbered, Key };

using HelpTitles = std::map<std::u16string, int, std::less<>>; // and their pages

class HelpPageWriter {
  public:
    // Of a help with pages of these titles, which must outlive this object.
    explicit HelpPageWriter(const HelpTitles& titles);
    // Text between two asterisks is shown bold, and a title between quotation marks leads to its
    // page; one without a partner stands for itself. `label` is the number of a numbered item, or
    // the key of a row of keys.
    void Add(HelpParagraph, std::u16string_view text, std::u16string_view label = {});
    Document Finish() { return std::move(page_); }

  private:
    void AddMarked(std::u16string_view text, std::uint32_t style);
    void AddLinked(std::u16string_view text, std::uint32_t style);
    void AddLink(std::u16string_view text, int page, std::uint32_t style);
    void AddRun(std::u16string_view text, std::uint32_t style);

    const HelpTitles* titles_;
    Document page_;
};
