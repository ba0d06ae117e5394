// Distinct styles, each with its index. Beyond the limit a new style is read as the first, the
// default.
#pragma once

#include "formats/document.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

std::size_t HashOf(const CharStyle& style);
std::size_t HashOf(const ParagraphStyle& style);

template <typename Style, std::size_t limit>
class RtfStyleSet {
  public:
    RtfStyleSet() : slots_(64) { IndexOf(Style{}); }

    std::uint32_t IndexOf(const Style& style) {
        if (!styles_.empty() && styles_[last_] == style) return last_;
        std::uint32_t& slot = SlotOf(style);
        if (slot == 0) {
            if (styles_.size() == limit) return 0;
            styles_.push_back(style);
            last_ = static_cast<std::uint32_t>(styles_.size() - 1);
            slot = last_ + 1;
            if (styles_.size() * 2 > slots_.size()) Grow();
        } else {
            last_ = slot - 1;
        }
        return last_;
    }

    std::vector<Style> Release() { return std::move(styles_); }

  private:
    std::uint32_t& SlotOf(const Style& style) {
        std::size_t slot = HashOf(style) % slots_.size();
        while (slots_[slot] != 0 && !(styles_[slots_[slot] - 1] == style))
            slot = (slot + 1) % slots_.size();
        return slots_[slot];
    }

    void Grow() {
        slots_.assign(slots_.size() * 2, 0);
        for (std::uint32_t i = 0; i < styles_.size(); ++i)
            SlotOf(styles_[i]) = i + 1;
    }

    std::vector<Style> styles_;
    std::vector<std::uint32_t> slots_; // open addressing: index plus one, 0 for a free slot
    std::uint32_t last_ = 0;           // text comes back to the style it just had
};
