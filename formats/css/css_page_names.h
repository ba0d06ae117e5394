// The ids and classes that a page has, by number, and which of them rules ask for. Most rules of
// large sheets are for other pages.
#pragma once

#include "formats/html/html_tree.h"

#include <cstdint>
#include <string_view>
#include <vector>

class CssPageNames {
  public:
    // The tree must outlive this object.
    explicit CssPageNames(const HtmlTree& tree)
        : tree_(tree), ignoreCase_(tree.Quirks() == HtmlQuirks::Full) {}

    // The number of a name that a rule asks for; 0: no element of the page has it.
    std::uint32_t Ask(std::u16string_view name);
    // 0 for one that no rule has asked for.
    std::uint32_t Asked(std::u16string_view name) const;

  private:
    struct Slot {
        std::u16string_view name; // of the tree; an empty one is free
        bool isAsked = false;
    };
    void Gather();
    void Add(std::u16string_view name);
    void Grow();
    std::size_t SlotOf(std::u16string_view name) const; // where it is or would be
    std::uint64_t HashOf(std::u16string_view name) const;

    const HtmlTree& tree_;
    bool ignoreCase_;         // ids and classes of pages in quirks mode
    std::vector<Slot> slots_; // hashed; a slot's number is that of its name, and 1 more
    std::size_t count_ = 0;
};

// The next word of a class attribute from `at` on, which is after it then; "" after the last one.
std::u16string_view NextCssClass(std::u16string_view classes, std::size_t& at);
