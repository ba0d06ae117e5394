#include "formats/rtf/rtf_bitmap.h"

#include <cstdint>
#include <limits>

namespace {
constexpr std::size_t infoHeaderSize = 40; // BITMAPINFOHEADER
constexpr std::uint32_t maxSide = std::numeric_limits<std::int16_t>::max();

std::uint32_t NumberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

void PutWord(std::string& bytes, std::uint32_t word) {
    bytes += static_cast<char>(word & 0xFF);
    bytes += static_cast<char>(word >> 8 & 0xFF);
}

void PutNumber(std::string& bytes, std::size_t number) {
    PutWord(bytes, static_cast<std::uint32_t>(number & 0xFFFF));
    PutWord(bytes, static_cast<std::uint32_t>(number >> 16));
}
} // namespace

std::string MetafileOfBitmap(std::string_view bitmap) {
    if (bitmap.size() < infoHeaderSize || NumberAt(bitmap, 0) < infoHeaderSize) return {};
    const std::uint32_t width = NumberAt(bitmap, 4);
    std::uint32_t height = NumberAt(bitmap, 8);
    if (height > std::numeric_limits<std::int32_t>::max()) height = 0u - height; // from the top
    if (width == 0 || width > maxSide || height == 0 || height > maxSide) return {};

    // Sizes are in words of two bytes.
    constexpr std::size_t header = 9, windowRecord = 5, drawRecord = 14, endRecord = 3;
    const std::size_t drawing = drawRecord + (bitmap.size() + 1) / 2;
    std::string file;
    for (const std::uint32_t word : {1u, 9u, 0x0300u}) // in memory, the header's size, version 3
        PutWord(file, word);
    PutNumber(file, header + 2 * windowRecord + drawing + endRecord);
    PutWord(file, 0);
    PutNumber(file, drawing); // the largest record
    PutWord(file, 0);
    PutNumber(file, windowRecord);
    for (const std::uint32_t word : {0x020Bu, 0u, 0u}) // the window's origin
        PutWord(file, word);
    PutNumber(file, windowRecord);
    for (const std::uint32_t word : {0x020Cu, height, width}) // and extent
        PutWord(file, word);
    PutNumber(file, drawing);
    PutWord(file, 0x0F43);       // StretchDIBits
    PutNumber(file, 0x00CC0020); // SRCCOPY
    for (const std::uint32_t word : {0u, height, width, 0u, 0u, height, width, 0u, 0u})
        PutWord(file, word);
    file += bitmap;
    if (bitmap.size() % 2 != 0) file += '\0';
    PutNumber(file, endRecord);
    PutWord(file, 0);
    return file;
}
