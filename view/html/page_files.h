// The files that a page may show: those in its book's folder and below, and what stands in the page
// itself.
#pragma once

#include "platform/files.h"
#include "view/html/loaded_page.h"

class PageFiles {
  public:
    // Both must outlive this object.
    PageFiles(const Files& files, const LoadedPage& page);

    // The bytes after an address as the page has it; "" where it leads elsewhere, to no regular
    // file, or to more than `limit` bytes.
    std::string Read(std::u16string_view address, std::uint64_t limit) const;
    // The first ones, `count` at most, of a file of any length.
    std::string ReadStart(std::u16string_view address, std::size_t count) const;

  private:
    std::u16string PathOf(std::u16string_view address) const; // "" for one that is not read

    const Files& files_;
    const LoadedPage& page_;
    std::u16string folder_;
};
