#include "formats/pictures/picture_header.h"

#include "formats/pictures/picture_bytes.h"

#include <algorithm>
#include <optional>

namespace {
constexpr std::string_view pngMark = "\x89PNG\r\n\x1A\n";
constexpr std::uint32_t maxSide = 1 << 24; // beyond, no picture of few pixels is meant

PictureHeader HeaderOf(PictureFormat format, std::uint32_t width, std::uint32_t height) {
    PictureHeader header;
    header.format = format;
    header.width = static_cast<int>(std::min(width, maxSide + 1));
    header.height = static_cast<int>(std::min(height, maxSide + 1));
    return header;
}

// "" where that is after the end.
std::string_view Part(std::string_view all, std::size_t at, std::size_t length) {
    return at < all.size() ? all.substr(at, length) : std::string_view();
}

PictureHeader ReadJpeg(std::string_view all) {
    const std::optional<JpegHeader> jpeg = ReadJpegHeader(all);
    if (!jpeg) return {};
    return {PictureFormat::Jpeg, jpeg->width, jpeg->height, jpeg->orientation, {}};
}

PictureHeader ReadPng(std::string_view all) {
    const PictureBytes bytes(all, std::endian::big);
    if (Part(all, 12, 4) != "IHDR" || all.size() < 24) return {};
    return HeaderOf(PictureFormat::Png, bytes.Long(16), bytes.Long(20));
}

// Where the first frame begins: after the extensions.
std::optional<std::size_t> FirstFrameOfGif(const PictureBytes& bytes) {
    const std::uint32_t flags = bytes.Byte(10);
    std::size_t at = 13 + (flags & 0x80 ? std::size_t{3} << (1 + (flags & 7)) : 0);
    while (bytes.Byte(at) == 0x21) {
        at += 2;
        while (const std::uint32_t length = bytes.Byte(at))
            at += 1 + length;
        ++at;
    }
    if (bytes.Byte(at) != 0x2C || at + 10 > bytes.Size()) return std::nullopt;
    return at;
}

// As large as its screen, and at least as its first frame, which stands in it.
PictureHeader ReadGif(std::string_view all) {
    const PictureBytes bytes(all, std::endian::little);
    const auto frame = FirstFrameOfGif(bytes);
    if (!frame) return {};
    const std::uint32_t left = bytes.Word(*frame + 1), top = bytes.Word(*frame + 3),
                        width = bytes.Word(*frame + 5), height = bytes.Word(*frame + 7);
    if (width == 0 || height == 0) return {};
    PictureHeader header = HeaderOf(PictureFormat::Gif, std::max(bytes.Word(6), left + width),
                                    std::max(bytes.Word(8), top + height));
    header.frame = {static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
                    static_cast<int>(height)};
    return header;
}

// RFC 9649.
PictureHeader ReadWebP(std::string_view all) {
    const PictureBytes bytes(all, std::endian::little);
    const std::string_view chunk = Part(all, 12, 4);
    if (chunk == "VP8X" && all.size() >= 30)
        return HeaderOf(PictureFormat::WebP, 1 + (bytes.Long(24) & 0xFFFFFF),
                        1 + (bytes.Long(27) & 0xFFFFFF));
    if (chunk == "VP8 " && all.size() >= 30 && Part(all, 23, 3) == "\x9D\x01\x2A")
        return HeaderOf(PictureFormat::WebP, bytes.Word(26) & 0x3FFF, bytes.Word(28) & 0x3FFF);
    if (chunk == "VP8L" && all.size() >= 25 && bytes.Byte(20) == 0x2F) {
        const std::uint32_t sides = bytes.Long(21);
        return HeaderOf(PictureFormat::WebP, 1 + (sides & 0x3FFF), 1 + (sides >> 14 & 0x3FFF));
    }
    return {};
}

// A negative height: the first row is on top.
PictureHeader ReadBmp(std::string_view all) {
    const PictureBytes bytes(all, std::endian::little);
    const std::uint32_t headerSize = bytes.Long(14);
    if (headerSize == 12) return HeaderOf(PictureFormat::Bmp, bytes.Word(18), bytes.Word(20));
    if (headerSize < 40 || headerSize > 1024) return {};
    const std::uint32_t height = bytes.Long(22);
    return HeaderOf(PictureFormat::Bmp, bytes.Long(18), height >> 31 ? 0 - height : height);
}

struct IconEntry {
    std::uint32_t width = 0, height = 0, depth = 0, length = 0, start = 0;
    std::size_t at = 0; // its own place
};

bool IsBetter(const IconEntry& a, const IconEntry& b) {
    const std::uint32_t areaOfA = a.width * a.height, areaOfB = b.width * b.height;
    return areaOfA != areaOfB ? areaOfA > areaOfB : a.depth > b.depth;
}

std::optional<IconEntry> LargestEntry(const PictureBytes& bytes) {
    std::optional<IconEntry> best;
    const std::uint32_t count = std::min(bytes.Word(4), 256U);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t at = 6 + 16 * std::size_t{i};
        if (at + 16 > bytes.Size()) return std::nullopt;
        const auto side = [&](std::size_t where) {
            return bytes.Byte(where) == 0 ? 256 : bytes.Byte(where);
        };
        const IconEntry entry{side(at),           side(at + 1),        bytes.Word(at + 6),
                              bytes.Long(at + 8), bytes.Long(at + 12), at};
        if (!best || IsBetter(entry, *best)) best = entry;
    }
    return best;
}

// What the entry says of its size may be wrong for a PNG in it.
PictureHeader ReadIcon(std::string_view all) {
    const auto entry = LargestEntry(PictureBytes(all, std::endian::little));
    if (!entry) return {};
    const std::string_view within = Part(all, entry->start, entry->length);
    if (within.starts_with(pngMark)) { // no icon, which may be this very one
        const PictureHeader png = ReadPng(within);
        return HeaderOf(PictureFormat::Ico, std::uint32_t(png.width), std::uint32_t(png.height));
    }
    return HeaderOf(PictureFormat::Ico, entry->width, entry->height);
}

PictureHeader ReadAny(std::string_view bytes) {
    if (bytes.starts_with(pngMark)) return ReadPng(bytes);
    if (bytes.starts_with("\xFF\xD8\xFF")) return ReadJpeg(bytes);
    if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) return ReadGif(bytes);
    if (bytes.starts_with("RIFF") && bytes.size() >= 16 && bytes.substr(8, 4) == "WEBP")
        return ReadWebP(bytes);
    if (bytes.starts_with("BM") && bytes.size() >= 26) return ReadBmp(bytes);
    if (bytes.starts_with(std::string_view("\0\0\1\0", 4))) return ReadIcon(bytes);
    return {};
}

std::string LittleEndian(std::uint32_t value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(value >> 8 * i & 0xFF);
    return bytes;
}
} // namespace

PictureHeader ReadPictureHeader(std::string_view bytes) {
    const PictureHeader header = ReadAny(bytes);
    const auto max = static_cast<int>(maxSide);
    const bool fits = header.width > 0 && header.height > 0 && header.width <= max &&
                      header.height <= max &&
                      std::int64_t{header.width} * header.height <= maxPicturePixels;
    return fits ? header : PictureHeader{};
}

std::string LargestIcon(std::string_view bytes) {
    constexpr std::uint32_t dataStart = 6 + 16;
    const auto entry = LargestEntry(PictureBytes(bytes, std::endian::little));
    if (!entry || ReadAny(bytes).format != PictureFormat::Ico) return {};
    const std::string_view data = Part(bytes, entry->start, entry->length);
    std::string icon("\0\0\1\0\1\0", 6);
    icon.append(bytes.substr(entry->at, 8));
    icon += LittleEndian(static_cast<std::uint32_t>(data.size())) + LittleEndian(dataStart);
    return icon.append(data);
}
