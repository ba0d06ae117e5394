// Writing one page of the help: marked-up paragraphs into a document.
#pragma once

#include "formats/document.h"

#include <string_view>

enum class HelpParagraph { Title, Heading, Text, Item, Numbered, Key };

class HelpPageWriter {
  public:
    HelpPageWriter();
    // Text between two asterisks is shown bold; one without a partner stands for itself. `label` is
    // the number of a numbered item, or the key of a row of keys.
    void Add(HelpParagraph, std::u16string_view text, std::u16string_view label = {});
    Document Finish() { return std::move(page_); }

  private:
    void AddMarked(std::u16string_view text, std::uint32_t style);
    void AddRun(std::u16string_view text, std::uint32_t style);

    Document page_;
};
