// A text that is in memory as a whole.
#pragma once

#include "common/find_text.h"

class StringText : public TextSource {
  public:
    explicit StringText(const std::u16string& text) : text_(text) {} // observed

    TextPos Length() const override { return static_cast<TextPos>(text_.size()); }
    TextPiece PieceAt(TextPos) const override { return {0, text_}; }
    TextPos FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                      const std::function<bool()>&) const override {
        const std::size_t at = FindText(text_, what, static_cast<std::size_t>(start), options);
        return at == std::u16string_view::npos ? notFound : static_cast<TextPos>(at);
    }

  private:
    const std::u16string& text_;
};
