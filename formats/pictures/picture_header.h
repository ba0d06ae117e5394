// What the first bytes of a picture's file say of it: nothing is decoded.
#pragma once

#include "formats/document.h"
#include "formats/pictures/jpeg_header.h"

#include <string>
#include <string_view>

struct PictureHeader {
    PictureFormat format = PictureFormat::Other; // also where the size cannot be found
    int width = 0, height = 0;                   // pixels, as it stands in the file; at least 1
    std::uint8_t orientation = uprightPicture;   // 1 to 8; of a JPEG
    Rect frame;                                  // of a GIF: where in it the first frame stands
    // As it is shown.
    int ShownWidth() const { return orientation < 5 ? width : height; }
    int ShownHeight() const { return orientation < 5 ? height : width; }
};

// What is decoded takes four bytes for each.
constexpr std::int64_t maxPicturePixels = std::int64_t{64} << 20;

// PNG, JPEG, GIF, WebP, BMP, ICO. Other for anything else, for what is cut within its header, and
// for more than `maxPicturePixels`. An icon has several pictures: of the largest.
PictureHeader ReadPictureHeader(std::string_view bytes);

// An icon's file with its largest picture alone; "" for what is none.
std::string LargestIcon(std::string_view bytes);
