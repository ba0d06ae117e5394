// A file that is read in parts, whenever one is needed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

class FileReader {
  public:
    virtual ~FileReader() = default;
    virtual std::uint64_t Size() const = 0; // when it was opened
    // Puts the bytes from `offset` on into `to`, `count` at most, and returns how many there are:
    // fewer at the end of the file as it is by now, none when it cannot be read.
    virtual std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const = 0;
};

// `count` bytes from `offset` on, or fewer where there are no more.
inline std::string BytesAt(const FileReader& file, std::uint64_t offset, std::uint64_t count) {
    const std::uint64_t left = file.Size() - std::min(offset, file.Size());
    std::string bytes(static_cast<std::size_t>(std::min(count, left)), '\0');
    bytes.resize(file.ReadAt(offset, bytes.data(), bytes.size()));
    return bytes;
}

// Bytes in memory, which nobody changes.
class BytesReader : public FileReader {
  public:
    explicit BytesReader(std::string bytes) : bytes_(std::move(bytes)) {}
    std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override {
        return offset < bytes_.size() ? bytes_.copy(to, count, static_cast<std::size_t>(offset))
                                      : 0;
    }

  private:
    std::string bytes_;
};
