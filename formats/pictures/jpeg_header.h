// The header of a JPEG file.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// How the rows and columns of a file stand on the screen, as Exif numbers it (TIFF's Orientation).
constexpr std::uint8_t uprightPicture = 1;

struct JpegHeader {
    int width = 0, height = 0; // pixels, as they stand in the file
    std::uint8_t orientation = uprightPicture;
};

std::optional<JpegHeader> ReadJpegHeader(std::string_view data);
