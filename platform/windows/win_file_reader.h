// An open file read in parts, on Windows.
#pragma once

#include "common/file_reader.h"
#include "platform/windows/win_handle.h"

class WinFileReader : public FileReader {
  public:
    WinFileReader(WinHandle file, std::uint64_t size) : file_(std::move(file)), size_(size) {}
    std::uint64_t Size() const override { return size_; }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override;

  private:
    WinHandle file_;
    std::uint64_t size_;
};
