#include "view/heading_index.h"

#include "formats/document_headings.h"

#include <algorithm>

namespace {
constexpr TextPos stretch = 1 << 20; // units; some milliseconds
} // namespace

void HeadingIndex::Reset(const TextSource& text, const Document& document, bool plain) {
    text_ = &text;
    document_ = &document;
    isPlain_ = plain;
    complete_ = false;
    plain_ = PlainHeadings();
    headings_.clear();
}

void HeadingIndex::Advance() {
    if (complete_ || !text_) return;
    if (!isPlain_) {
        headings_ = HeadingsOf(*document_);
        complete_ = true;
        return;
    }
    const TextPos length = text_->Length(), from = plain_.Length();
    const TextPos stop = length - from > stretch ? from + stretch : length;
    while (plain_.Length() < stop) {
        const TextPiece piece = text_->PieceAt(plain_.Length());
        const TextPos end = std::min(stop, piece.End());
        plain_.Add(piece.units.substr(static_cast<std::size_t>(plain_.Length() - piece.start),
                                      static_cast<std::size_t>(end - plain_.Length())));
    }
    if (stop < length) return;
    plain_.Finish();
    headings_ = plain_.Found();
    complete_ = true;
}

const Heading* HeadingIndex::Above(TextPos position) const {
    if (!complete_ && plain_.Length() <= position) return nullptr;
    const int index = HeadingAbove(Found(), position);
    return index < 0 ? nullptr : &Found()[static_cast<std::size_t>(index)];
}
