// The records of WMF, which are read in three groups. Their numbers are mostly in reverse order: y
// before x, the bottom before the top.
#pragma once

#include "formats/metafile/metafile_bytes.h"
#include "formats/metafile/metafile_canvas.h"

// By their numbers.
enum class WmfFunction : std::uint32_t {
    EndOfFile = 0x0000,
    SaveDc = 0x001E,
    CreatePalette = 0x00F7,
    SetBkMode = 0x0102,
    SetPolyFillMode = 0x0106,
    RestoreDc = 0x0127,
    SelectClipRegion = 0x012C,
    SelectObject = 0x012D,
    SetTextAlign = 0x012E,
    DibCreatePatternBrush = 0x0142,
    DeleteObject = 0x01F0,
    CreatePatternBrush = 0x01F9,
    SetBkColor = 0x0201,
    SetTextColor = 0x0209,
    SetWindowOrg = 0x020B,
    SetWindowExt = 0x020C,
    OffsetWindowOrg = 0x020F,
    LineTo = 0x0213,
    MoveTo = 0x0214,
    CreatePenIndirect = 0x02FA,
    CreateFontIndirect = 0x02FB,
    CreateBrushIndirect = 0x02FC,
    Polygon = 0x0324,
    Polyline = 0x0325,
    ScaleWindowExt = 0x0410,
    IntersectClipRect = 0x0416,
    Ellipse = 0x0418,
    Rectangle = 0x041B,
    SetPixel = 0x041F,
    TextOut = 0x0521,
    PolyPolygon = 0x0538,
    RoundRect = 0x061C,
    PatBlt = 0x061D,
    CreateRegion = 0x06FF,
    Arc = 0x0817,
    Pie = 0x081A,
    Chord = 0x0830,
    DibBitBlt = 0x0940,
    ExtTextOut = 0x0A32,
    DibStretchBlt = 0x0B41,
    SetDibToDev = 0x0D33,
    StretchDib = 0x0F43,
};

// What follows a record's size and function. Places are those of words.
class WmfRecord : public MetaBytes {
  public:
    explicit WmfRecord(std::string_view bytes) : MetaBytes(bytes) {}

    double Number(std::size_t word) const { return S16(2 * word); }
    MetaPoint PointAt(std::size_t word) const { return {Number(word + 1), Number(word)}; }
    MetaBox BoxAt(std::size_t word) const {
        return {Number(word + 3), Number(word + 2), Number(word + 1), Number(word)};
    }
    MetaBox SizedBoxAt(std::size_t word) const { // height, width, y, x
        const MetaPoint size = PointAt(word), place = PointAt(word + 2);
        return {place.x, place.y, place.x + size.x, place.y + size.y};
    }
    Color ColorAt(std::size_t word) const { return U32(2 * word) & 0xFFFFFF; }
};

// False if the record is not of the group.
bool ReadWmfState(MetaCanvas& canvas, const WmfRecord& record, WmfFunction function);
bool ReadWmfObject(MetaCanvas& canvas, const WmfRecord& record, WmfFunction function);
void ReadWmfDrawing(MetaCanvas& canvas, const WmfRecord& record, WmfFunction function);
