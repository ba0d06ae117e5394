#include "formats/metafile/metafile_bitmap.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace {
constexpr std::size_t coreHeaderSize = 12, infoHeaderSize = 40; // the old one and the usual one
constexpr std::uint32_t uncompressed = 0, bitFields = 3;

struct Layout {
    std::int64_t width = 0, height = 0; // a negative height: rows from the top
    std::uint32_t bits = 0, compression = 0;
    std::size_t paletteAt = 0, paletteColors = 0, paletteEntry = 4;
    std::uint32_t masks[3] = {}; // red, green, blue
};

Layout ReadLayout(MetaBytes header) {
    Layout layout;
    const std::size_t size = header.U32(0);
    std::size_t colors = 0;
    if (size == coreHeaderSize) {
        layout = {header.U16(4), header.U16(6), header.U16(10), 0, size, 0, 3, {}};
    } else if (size >= infoHeaderSize && size <= 256) {
        layout = {header.S32(4), header.S32(8), header.U16(14), header.U32(16), size, 0, 4, {}};
        colors = header.U32(32);
    }
    const bool hasMasks = layout.compression == bitFields;
    for (std::size_t i = 0; hasMasks && i < 3; ++i)
        layout.masks[i] = header.U32(infoHeaderSize + 4 * i);
    if (hasMasks && size == infoHeaderSize) layout.paletteAt += 12;
    const std::size_t maxColors = layout.bits <= 8 ? std::size_t{1} << layout.bits : 0;
    layout.paletteColors = colors == 0 ? maxColors : std::min<std::size_t>(colors, 256);
    return layout;
}

std::uint32_t Scaled(std::uint32_t pixel, std::uint32_t mask) {
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    const std::uint64_t maxValue = mask >> shift;
    return static_cast<std::uint32_t>(std::uint64_t{(pixel & mask) >> shift} * 255 / maxValue);
}

class Row {
  public:
    Row(const Layout& layout, MetaBytes header, MetaBytes bits, std::size_t start)
        : layout_(layout), header_(header), bits_(bits), start_(start) {}

    std::uint32_t Pixel(std::size_t x) const {
        switch (layout_.bits) {
        case 1: return Indexed(bits_.U8(start_ + x / 8) >> (7 - x % 8) & 1);
        case 4: return Indexed(bits_.U8(start_ + x / 2) >> (x % 2 == 0 ? 4 : 0) & 0xF);
        case 8: return Indexed(bits_.U8(start_ + x));
        case 16: return Masked(bits_.U16(start_ + 2 * x), 0x7C00, 0x03E0, 0x001F);
        case 24:
            return Opaque(bits_.U8(start_ + 3 * x + 2), bits_.U8(start_ + 3 * x + 1),
                          bits_.U8(start_ + 3 * x));
        default: return Masked(bits_.U32(start_ + 4 * x), 0xFF0000, 0xFF00, 0xFF);
        }
    }

  private:
    static std::uint32_t Opaque(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
        return 0xFF000000u | red << 16 | green << 8 | blue;
    }
    std::uint32_t Indexed(std::size_t index) const {
        if (index >= layout_.paletteColors) return 0xFF000000u;
        const std::size_t at = layout_.paletteAt + index * layout_.paletteEntry;
        return Opaque(header_.U8(at + 2), header_.U8(at + 1), header_.U8(at));
    }
    std::uint32_t Masked(std::uint32_t pixel, std::uint32_t red, std::uint32_t green,
                         std::uint32_t blue) const {
        if (layout_.compression != bitFields)
            return Opaque(Scaled(pixel, red), Scaled(pixel, green), Scaled(pixel, blue));
        return Opaque(Scaled(pixel, layout_.masks[0]), Scaled(pixel, layout_.masks[1]),
                      Scaled(pixel, layout_.masks[2]));
    }

    const Layout& layout_;
    MetaBytes header_, bits_;
    std::size_t start_;
};

bool IsKnown(const Layout& layout) {
    const std::uint32_t bits = layout.bits;
    const bool isMasked = layout.compression == bitFields && (bits == 16 || bits == 32);
    if (!isMasked && layout.compression != uncompressed) return false;
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}
} // namespace

std::size_t BitmapHeaderSize(MetaBytes header) {
    const Layout layout = ReadLayout(header);
    return layout.paletteAt + layout.paletteColors * layout.paletteEntry;
}

MetaImage ReadBitmap(MetaBytes header, MetaBytes bits, std::size_t maxPixels) {
    const Layout layout = ReadLayout(header);
    const std::int64_t height = std::abs(layout.height);
    MetaImage image;
    const std::int64_t maxArea =
        std::min<std::int64_t>(static_cast<std::int64_t>(maxPixels), 1 << 28);
    if (!IsKnown(layout) || layout.width <= 0 || height == 0 || height > maxArea / layout.width)
        return image;
    const auto width = static_cast<std::size_t>(layout.width);
    const std::size_t stride = (width * layout.bits + 31) / 32 * 4;
    if (bits.Size() / stride + 1 < static_cast<std::size_t>(height)) return image; // cut off
    image.width = static_cast<int>(layout.width);
    image.height = static_cast<int>(height);
    image.pixels.reserve(width * static_cast<std::size_t>(height));
    for (std::int64_t y = 0; y < height; ++y) {
        const auto row = static_cast<std::size_t>(layout.height < 0 ? y : height - 1 - y);
        const Row pixels(layout, header, bits, row * stride);
        for (std::size_t x = 0; x < width; ++x)
            image.pixels.push_back(pixels.Pixel(x));
    }
    return image;
}

void CropBitmap(MetaImage& image, const BitmapPart& part) {
    const bool isInside = part.left >= 0 && part.top >= 0 && part.width >= 1 && part.height >= 1 &&
                          part.left + part.width <= image.width &&
                          part.top + part.height <= image.height;
    const int width = isInside ? static_cast<int>(part.width) : image.width;
    const int height = isInside ? static_cast<int>(part.height) : image.height;
    if (width == image.width && height == image.height) return;
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < height; ++y) {
        const auto row = image.pixels.begin() +
                         (static_cast<std::ptrdiff_t>(part.top) + y) * image.width +
                         static_cast<std::ptrdiff_t>(part.left);
        pixels.insert(pixels.end(), row, row + width);
    }
    image.pixels = std::move(pixels);
    image.width = width;
    image.height = height;
}
