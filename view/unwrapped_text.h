// A plain text whose lines flow on where they were broken for their width alone. Each character has
// the place that it has in the text itself: a line end that is none any more is shown as a space.
#pragma once

#include "common/text_source.h"

#include <list>
#include <memory>

class UnwrappedText : public TextSource {
  public:
    explicit UnwrappedText(std::shared_ptr<const TextSource> text) : text_(std::move(text)) {}

    TextPos Length() const override { return text_->Length(); }
    TextPiece PieceAt(TextPos position) const override;
    TextPos FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                      const std::function<bool()>& shouldContinue) const override {
        return text_->FindWhile(what, start, options, shouldContinue);
    }

  private:
    struct Piece {
        TextPos start = 0;
        std::u16string units;
    };
    std::u16string Unwrapped(TextPos start, TextPos end) const;

    std::shared_ptr<const TextSource> text_;
    mutable std::list<Piece> pieces_; // the last used first
};
