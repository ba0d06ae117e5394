// Names of elements and attributes as numbers: those that some rule speaks of are constants, any
// other gets a number of the document that it stands in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

// GCC 12 says that constants of a scoped enumeration shadow what has their name outside.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
enum class HtmlName : std::uint16_t {
    None, // no name of the document
#define NAME(id, text) id,
#include "formats/html/html_name_list.h"
#undef NAME
    FirstOfDocument
};
#pragma GCC diagnostic pop

// The names of one document.
class HtmlNames {
  public:
    HtmlNames();

    // `None` for a text that is no name here.
    HtmlName Find(std::u16string_view text) const;
    // The same, made a name. Names beyond the limit of their number are all `maxHtmlNames`.
    HtmlName Intern(std::u16string_view text);
    std::u16string_view TextOf(HtmlName name) const { return texts_[std::size_t(name)]; }
    std::size_t Count() const { return texts_.size(); } // every name's number is below

  private:
    std::size_t SlotOf(std::u16string_view text) const;
    void Grow();

    std::vector<std::u16string_view> texts_;
    std::vector<std::uint16_t> slots_; // hashed; 0 is free
    std::deque<std::u16string> ownTexts_;
};
