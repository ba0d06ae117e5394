// ITU T.81, annex B; of Exif 2.3 the one field that says which edge is the upper one.
#include "formats/pictures/jpeg_header.h"

#include "formats/pictures/picture_bytes.h"

namespace {
constexpr std::string_view exifMark("Exif\0\0", 6);
constexpr std::uint32_t orientationTag = 0x0112, shortType = 3;

// Of the first directory of a TIFF file.
std::uint8_t OrientationOf(std::string_view tiff) {
    const PictureBytes bytes(tiff, tiff.starts_with("MM") ? std::endian::big : std::endian::little);
    const std::size_t directory = bytes.Long(4);
    if (directory >= tiff.size()) return uprightPicture;
    const std::uint32_t entries = bytes.Word(directory);
    for (std::uint32_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + 12 * std::size_t{i};
        if (entry + 12 > tiff.size()) break;
        if (bytes.Word(entry) != orientationTag || bytes.Word(entry + 2) != shortType) continue;
        const std::uint32_t value = bytes.Word(entry + 8);
        return value >= 1 && value <= 8 ? static_cast<std::uint8_t>(value) : uprightPicture;
    }
    return uprightPicture;
}

// SOF0 to SOF15 without DHT, JPG and DAC, which have numbers between them.
bool IsFrame(std::uint32_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Markers that stand alone, without a length.
bool IsAlone(std::uint32_t marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}
} // namespace

std::optional<JpegHeader> ReadJpegHeader(std::string_view data) {
    JpegHeader header;
    const PictureBytes bytes(data, std::endian::big);
    bool hasExif = false;
    for (std::size_t at = 2; at + 4 <= data.size();) {
        if (bytes.Byte(at) != 0xFF) return std::nullopt;
        const std::uint32_t marker = bytes.Byte(at + 1);
        if (marker == 0xFF) { // fills
            ++at;
            continue;
        }
        at += 2;
        if (IsAlone(marker)) continue;
        const std::size_t length = bytes.Word(at);
        if (length < 2) return std::nullopt;
        const std::string_view segment = data.substr(at + 2, length - 2);
        if (marker == 0xE1 && !hasExif && segment.starts_with(exifMark)) {
            hasExif = true;
            header.orientation = OrientationOf(segment.substr(exifMark.size()));
        }
        if (IsFrame(marker)) {
            if (segment.size() < 5) return std::nullopt;
            header.height = static_cast<int>(bytes.Word(at + 3));
            header.width = static_cast<int>(bytes.Word(at + 5));
            return header;
        }
        if (marker == 0xDA || marker == 0xD9) break; // the picture, before its size
        at += length;
    }
    return std::nullopt;
}
