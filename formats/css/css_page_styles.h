// The computed style of every element of a page.
#pragma once

#include "formats/css/css_list_pool.h"
#include "formats/css/css_pool.h"
#include "formats/css/css_rare_style.h"
#include "formats/css/css_reading.h"
#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

#include <array>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

// What an element, or content before or after it, looks like. The parts live as long as the
// styles they are of, and equal ones are at the same place.
struct CssStyle {
    const CssInheritedStyle* inherited = nullptr;
    const CssBoxStyle* box = nullptr;
};

class CssPageStyles {
  public:
    // Elements within one that is not displayed, and those that are of no page, have that style,
    // too: `display: none`.
    CssStyle Of(HtmlNodeId element) const { return styles_[numbers_[element]]; }
    // The number of an element's style: equal styles have the same, below `Count`.
    std::uint32_t NumberOf(HtmlNodeId element) const { return numbers_[element]; }
    std::size_t Count() const { return styles_.size(); }
    // Generated content; its `box` is null when there is none.
    CssStyle Before(HtmlNodeId element) const { return Generated(element, 0); }
    CssStyle After(HtmlNodeId element) const { return Generated(element, 1); }
    // Of the first letter in a block; its `box` is null where no rule is of it.
    CssStyle FirstLetter(HtmlNodeId block) const { return First(firstLetters_, block); }
    // Likewise of a block's first line.
    CssStyle FirstLine(HtmlNodeId block) const { return First(firstLines_, block); }
    // What texts around everything have, and the box of what has none of its own.
    CssStyle Initial() const { return styles_[1]; }

    const CssFontFamilies& Families(std::uint32_t number) const { return families_[number]; }
    const CssContent& Content(std::uint32_t number) const { return contents_[number]; }
    const CssCounterChanges& Counters(std::uint32_t number) const { return counters_[number]; }
    // Some content shows a counter.
    bool ShowsCounters() const { return showsCounters_; }

    // A window of another size has other styles: by a rule of its own, or by a length.
    bool DependsOnViewport() const { return dependsOnViewport_; }
    // Some element's background follows from that of the one around it.
    bool InheritsBackgrounds() const { return inheritsBackgrounds_; }
    // In place of the computed one, of this element alone.
    void SetBackground(HtmlNodeId element, CssColor color);
    // How much was tested; see maxCssSteps.
    std::uint64_t Steps() const { return steps_; }

  private:
    friend class CssStyler;
    CssStyle First(const std::unordered_map<HtmlNodeId, std::uint32_t>& styles,
                   HtmlNodeId block) const {
        const auto found = styles.find(block);
        return found == styles.end() ? CssStyle{} : styles_[found->second];
    }
    CssStyle Generated(HtmlNodeId element, std::size_t place) const {
        const auto found = generated_.find(element);
        return found == generated_.end() ? CssStyle{} : styles_[found->second[place]];
    }

    std::vector<std::uint32_t> numbers_; // by node
    // The first is `display: none`, the second the initial one. In `generated_` 0 is nothing.
    std::vector<CssStyle> styles_;
    std::unordered_map<HtmlNodeId, std::array<std::uint32_t, 2>> generated_;
    std::unordered_map<HtmlNodeId, std::uint32_t> firstLetters_, firstLines_;
    CssPool<CssInheritedStyle> inherited_;
    CssPool<CssBoxStyle> boxes_;
    CssPool<CssRareStyle> rare_;
    CssListPool<CssFontFamilies> families_;
    CssListPool<CssContent> contents_;
    CssListPool<CssCounterChanges> counters_;
    CssListPool<CssGridTracks> gridTracks_;
    CssListPool<CssGridAreas> gridAreas_;
    CssListPool<CssGridName> gridNames_;
    bool showsCounters_ = false;
    bool dependsOnViewport_ = false;
    bool inheritsBackgrounds_ = false;
    std::uint64_t steps_ = 0;
};

// The sheets of the page, in its order; what they import stands before them.
CssPageStyles StylePage(const HtmlTree& tree, std::span<const CssSheet> sheets,
                        const CssMedium& medium);
