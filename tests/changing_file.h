// A file whose end, or all that is in it, changes after it was opened.
#pragma once

#include "common/file_reader.h"

#include <string>
#include <utility>

class ChangingFile : public FileReader {
  public:
    explicit ChangingFile(std::string now) : bytes(std::move(now)), size_(bytes.size()) {}
    std::uint64_t Size() const override { return size_; }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override {
        return offset < bytes.size() ? bytes.copy(to, count, std::size_t(offset)) : 0;
    }

    std::string bytes; // that are in it now

  private:
    std::uint64_t size_; // when it was opened
};
