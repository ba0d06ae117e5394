// An open file read in parts, on POSIX.
#pragma once

#include "common/file_reader.h"
#include "platform/posix/file_descriptor.h"

class PosixFileReader : public FileReader {
  public:
    PosixFileReader(FileDescriptor file, std::uint64_t size)
        : file_(std::move(file)), size_(size) {}
    std::uint64_t Size() const override { return size_; }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override;

  private:
    FileDescriptor file_;
    std::uint64_t size_;
};
