// The records of EMF, which are read in three groups.
#pragma once

#include "formats/metafile/metafile_bytes.h"
#include "formats/metafile/metafile_canvas.h"

// By their numbers; those of 16 bits begin at PolyBezier16 in the same order.
enum class EmfType : std::uint32_t {
    Header = 1,
    PolyBezier = 2,
    Polygon = 3,
    Polyline = 4,
    PolyBezierTo = 5,
    PolylineTo = 6,
    PolyPolyline = 7,
    PolyPolygon = 8,
    SetWindowExt = 9,
    SetWindowOrg = 10,
    SetViewportExt = 11,
    SetViewportOrg = 12,
    EndOfFile = 14,
    SetPixel = 15,
    SetMapMode = 17,
    SetBkMode = 18,
    SetPolyFillMode = 19,
    SetTextAlign = 22,
    SetTextColor = 24,
    SetBkColor = 25,
    MoveTo = 27,
    IntersectClipRect = 30,
    ScaleViewportExt = 31,
    ScaleWindowExt = 32,
    SaveDc = 33,
    RestoreDc = 34,
    SetWorldTransform = 35,
    ModifyWorldTransform = 36,
    SelectObject = 37,
    CreatePen = 38,
    CreateBrush = 39,
    DeleteObject = 40,
    Ellipse = 42,
    Rectangle = 43,
    RoundRect = 44,
    Arc = 45,
    Chord = 46,
    Pie = 47,
    LineTo = 54,
    ArcTo = 55,
    BeginPath = 59,
    EndPath = 60,
    CloseFigure = 61,
    FillPath = 62,
    StrokeAndFillPath = 63,
    StrokePath = 64,
    SelectClipPath = 67,
    ExtSelectClipRgn = 75,
    BitBlt = 76,
    StretchBlt = 77,
    SetDiBitsToDevice = 80,
    StretchDiBits = 81,
    CreateFont = 82,
    ExtTextOutA = 83,
    ExtTextOutW = 84,
    PolyBezier16 = 85,
    PolyPolygon16 = 91,
    CreateMonoBrush = 93,
    CreatePatternBrush = 94,
    ExtCreatePen = 95,
};

// Places are those in the record.
class EmfRecord : public MetaBytes {
  public:
    explicit EmfRecord(std::string_view bytes) : MetaBytes(bytes) {}

    double Number(std::size_t at) const { return S32(at); }
    MetaPoint PointAt(std::size_t at) const { return {Number(at), Number(at + 4)}; }
    MetaBox BoxAt(std::size_t at) const {
        return {Number(at), Number(at + 4), Number(at + 8), Number(at + 12)};
    }
    MetaBox SizedBox(std::size_t place, std::size_t size) const {
        return {Number(place), Number(place + 4), Number(place) + Number(size),
                Number(place + 4) + Number(size + 4)};
    }
    Color ColorAt(std::size_t at) const { return U32(at) & 0xFFFFFF; }
};

// False if the record is not of the group. `file` has the header.
bool ReadEmfState(MetaCanvas& canvas, const MetaBytes& file, const EmfRecord& record, EmfType type);
bool ReadEmfObject(MetaCanvas& canvas, const EmfRecord& record, EmfType type);
void ReadEmfDrawing(MetaCanvas& canvas, const EmfRecord& record, EmfType type);
