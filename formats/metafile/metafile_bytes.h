// Little-endian numbers of a metafile. What lies beyond the bytes is 0.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>

class MetaBytes {
  public:
    MetaBytes() = default;
    explicit MetaBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t Size() const { return bytes_.size(); }
    std::string_view Part(std::size_t at, std::size_t size) const {
        return at < bytes_.size() ? bytes_.substr(at, size) : std::string_view();
    }
    std::uint32_t U8(std::size_t at) const {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0u;
    }
    std::uint32_t U16(std::size_t at) const { return U8(at) | U8(at + 1) << 8; }
    std::uint32_t U32(std::size_t at) const { return U16(at) | U16(at + 2) << 16; }
    std::int16_t S16(std::size_t at) const { return static_cast<std::int16_t>(U16(at)); }
    std::int32_t S32(std::size_t at) const { return static_cast<std::int32_t>(U32(at)); }
    double F32(std::size_t at) const {
        const float value = std::bit_cast<float>(U32(at));
        return std::isfinite(value) ? static_cast<double>(value) : 0.0;
    }

  private:
    std::string_view bytes_;
};
