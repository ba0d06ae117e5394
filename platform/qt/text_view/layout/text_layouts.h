// The laid-out blocks of the text shown now: made when first asked for, the last used kept.
#pragma once

#include "platform/qt/text_view/layout/block_layout.h"

#include <list>
#include <map>
#include <memory>

class TextLayouts {
  public:
    using Layout = std::shared_ptr<const BlockLayout>;

    explicit TextLayouts(const LayoutContext& context); // observed
    void Forget(); // the text, its look or its width has changed

    const LayoutContext& Context() const { return context_; }
    const TextSource& Text() const { return *context_.text; }
    Layout At(TextPos position);         // of the block that holds `position`, moved into the text
    Layout After(const Layout& layout);  // null behind the last
    Layout Before(const Layout& layout); // null before the first

    // The widest line laid out since the last `Forget`: grows as the reader scrolls.
    int Width() const { return width_; }
    int LayoutsMade() const { return layoutsMade_; }

  private:
    Layout Known(TextPos position); // none when it is not kept
    void Trim();

    const LayoutContext& context_;
    std::list<Layout> recent_; // the last used first
    std::map<TextPos, std::list<Layout>::iterator> byStart_;
    std::size_t load_ = 0; // of the kept ones, in laid-out characters
    int width_ = 0, layoutsMade_ = 0;
};
