// Numbers in the header of a picture's file.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

// 0 after the end.
class PictureBytes {
  public:
    PictureBytes(std::string_view bytes, std::endian order)
        : bytes_(bytes), bigEndian_(order == std::endian::big) {}

    std::size_t Size() const { return bytes_.size(); }
    std::uint32_t Byte(std::size_t at) const {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
    }
    std::uint32_t Word(std::size_t at) const {
        const std::uint32_t first = Byte(at), second = Byte(at + 1);
        return bigEndian_ ? first << 8 | second : second << 8 | first;
    }
    std::uint32_t Long(std::size_t at) const {
        const std::uint32_t first = Word(at), second = Word(at + 2);
        return bigEndian_ ? first << 16 | second : second << 16 | first;
    }

  private:
    std::string_view bytes_;
    bool bigEndian_;
};
