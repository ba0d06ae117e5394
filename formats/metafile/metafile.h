// Pictures as Windows metafiles, WMF ([MS-WMF]) and EMF ([MS-EMF]): their records as a list of
// drawing commands that any toolkit can carry out.
#pragma once

#include "common/geometry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Places are shares of the picture: it reaches from (0, 0) at the top left to (1, 1). What lies
// beyond is cut off.
struct MetaPoint {
    double x = 0, y = 0;
};
struct MetaRect {
    double left = 0, top = 0, right = 1, bottom = 1;
};

// Lines and areas; curves have become lines.
struct MetaShape {
    std::vector<std::vector<MetaPoint>> contours;
    bool isClosed = false, isWinding = false; // winding: else even and odd
    bool hasPen = false, hasBrush = false;
    bool isDashed = false;
    double penWidth = 0; // as a share of the height; the least is a pixel
    Color pen = 0, brush = 0;
};

struct MetaText {
    enum class Horizontal : std::uint8_t { Left, Center, Right };
    enum class Vertical : std::uint8_t { Top, Baseline, Bottom };
    MetaPoint place;
    std::u16string text, font;
    double height = 0;  // of the letters' em, as a share of the picture's
    double width = 0;   // of the whole text as a share of the picture's, 0 when the file gives none
    double degrees = 0; // counterclockwise
    Color color = 0, background = 0;
    bool isBold = false, isItalic = false, isUnderlined = false, isStruckOut = false;
    bool hasBackground = false;
    Horizontal horizontal = Horizontal::Left;
    Vertical vertical = Vertical::Top;
};

struct MetaImage {
    enum class Mode : std::uint8_t { Copy, And, Or, Xor };
    MetaRect place; // its right may be left of its left: mirrored
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels; // 0xFFRRGGBB, rows from the top
    Mode mode = Mode::Copy;
};

struct MetaCommand {
    enum class Kind : std::uint8_t { Shape, Text, Image };
    Kind kind = Kind::Shape;
    MetaRect clip;
    std::size_t index = 0; // in the list of its kind
};

struct Metafile {
    std::vector<MetaCommand> commands; // painted one over the other
    std::vector<MetaShape> shapes;
    std::vector<MetaText> texts;
    std::vector<MetaImage> images;
};

// Never fails: what is not known is passed over, what is broken ends the picture. Without commands
// there is nothing to show. Limits: see metafile_limits.h.
Metafile ReadWmf(std::string_view data); // with or without a placeable header
Metafile ReadEmf(std::string_view data);
