// How much memory a page takes: an animation can ask for more of it without end.
#pragma once

#include <cstdint>

class PageMemory {
  public:
    PageMemory(); // for a page that begins now

    // Its own process and what is drawn of it in ours, where the engine keeps that.
    bool IsTooMuch(std::int64_t pageProcess) const;

  private:
    std::int64_t limit_, before_; // bytes; of this process
};
