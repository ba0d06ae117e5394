// A cache of laid-out blocks, laid out on demand.
#pragma once

#include "view/block_layout.h"

#include <list>
#include <map>
#include <memory>

class TextLayouts {
  public:
    using Layout = std::shared_ptr<const BlockLayout>;

    explicit TextLayouts(const LayoutContext& context); // must outlive this object
    void Clear();                                       // when text, style or width have changed

    const LayoutContext& Context() const { return context_; }
    const TextSource& Text() const { return *context_.text; } // as it is shown
    Layout At(TextPos position); // of the block that contains `position`, clamped to the text
    Layout After(const Layout& layout);  // null after the last one
    Layout Before(const Layout& layout); // null before the first one

    // The widest line laid out since the last `Clear`: may grow while scrolling.
    int Width() const { return width_; }
    int LayoutsMade() const { return layoutsMade_; }

  private:
    Layout FindCached(TextPos position); // null if it is not cached
    void EvictOld();

    const LayoutContext& context_;
    std::list<Layout> recent_; // most recently used first
    std::map<TextPos, std::list<Layout>::iterator> byStart_;
    std::size_t cost_ = 0; // of all cached blocks, in characters
    int width_ = 0, layoutsMade_ = 0;
};
