// The headings of the text shown, found a stretch at a time: a long text is looked through while
// the window goes on.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"
#include "formats/plain/plain_headings.h"

class HeadingIndex {
  public:
    // Both outlive the index or its next `Reset`. Of rich text the document says it at once.
    void Reset(const TextSource& text, const Document& document, bool plain);

    bool IsComplete() const { return complete_; }
    void Advance(); // some more of the text; nothing once complete
    const std::vector<Heading>& Found() const { return complete_ ? headings_ : plain_.Found(); }
    // The one that the position is under; null when there is none, or it is not known yet.
    const Heading* Above(TextPos position) const;

  private:
    const TextSource* text_ = nullptr;
    const Document* document_ = nullptr;
    bool isPlain_ = true, complete_ = false;
    PlainHeadings plain_;
    std::vector<Heading> headings_;
};
