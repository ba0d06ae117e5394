// Makes metafiles, record by record.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

class MetaSample {
  public:
    MetaSample& U8(std::uint32_t value) {
        bytes_ += static_cast<char>(value & 0xFF);
        return *this;
    }
    MetaSample& U16(std::int64_t value) {
        return U8(static_cast<std::uint32_t>(value)).U8(static_cast<std::uint32_t>(value) >> 8);
    }
    MetaSample& U32(std::int64_t value) { return U16(value).U16(value >> 16); }
    MetaSample& Bytes(const std::string& bytes) {
        bytes_ += bytes;
        return *this;
    }
    const std::string& Get() const { return bytes_; }

  private:
    std::string bytes_;
};

inline std::string Words(std::initializer_list<int> words) {
    MetaSample sample;
    for (const int word : words)
        sample.U16(word);
    return sample.Get();
}

inline std::string Longs(std::initializer_list<std::int64_t> longs) {
    MetaSample sample;
    for (const std::int64_t each : longs)
        sample.U32(each);
    return sample.Get();
}

inline std::string WmfRecord(int function, const std::string& data) {
    return MetaSample()
        .U32(static_cast<std::int64_t>(3 + (data.size() + 1) / 2))
        .U16(function)
        .Bytes(data)
        .Bytes(std::string(data.size() % 2, '\0'))
        .Get();
}

// Without a placeable header, as it is in rich text.
inline std::string Wmf(const std::string& records) {
    return Words({1, 9, 0x300, 0, 0, 8, 0, 0, 0}) + records + WmfRecord(0, "");
}

inline std::string EmfRecord(std::uint32_t type, const std::string& data) {
    return MetaSample().U32(type).U32(static_cast<std::int64_t>(8 + data.size())).Bytes(data).Get();
}

// Of a device of 1000 by 1000 pixels and 100 by 100 millimetres; the frame is its first 10 mm.
inline std::string Emf(const std::string& records) {
    const std::string header = Longs({0, 0, 99, 99, 0, 0, 1000, 1000, 0x464D4520, 0x10000,
                                      0, 0, 0,  0,  0, 0, 1000, 1000, 100,        100});
    return EmfRecord(1, header) + records + EmfRecord(14, Longs({0, 0, 0}));
}

// Two by two pixels: red and green above blue and white.
inline std::string SmallBitmap() {
    return Longs({40, 2, 2, 24 << 16 | 1, 0, 0, 0, 0, 0, 0}) +
           std::string("\xFF\0\0\xFF\xFF\xFF\0\0\0\0\xFF\0\xFF\0\0\0", 16);
}
