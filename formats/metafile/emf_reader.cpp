// The records of EMF.
#include "formats/metafile/metafile_bitmap.h"
#include "formats/metafile/metafile_canvas.h"
#include "formats/metafile/metafile_limits.h"
#include "formats/metafile/metafile_text.h"

#include <algorithm>
#include <cstdlib>

namespace {
constexpr std::size_t recordHeader = 8, headerSize = 88;

// By their numbers; those of 16 bits begin at PolyBezier16 in the same order.
enum Record : std::uint32_t {
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

class EmfReader {
  public:
    EmfReader(MetaCanvas& canvas, MetaBytes bytes) : canvas_(canvas), bytes_(bytes) {}

    void ReadAll() {
        std::size_t at = 0;
        for (std::size_t i = 0; i < maxMetaRecords && at + recordHeader <= bytes_.Size(); ++i) {
            const std::uint32_t type = bytes_.U32(at);
            const std::size_t size = bytes_.U32(at + 4);
            if (size < recordHeader || size > bytes_.Size() - at || type == EndOfFile) return;
            record_ = MetaBytes(bytes_.Part(at, size));
            if (!ReadState(type) && !ReadObject(type) && !ReadPath(type)) ReadDrawing(type);
            at += size;
        }
    }

  private:
    // Places are those in the record.
    double Number(std::size_t at) const { return record_.S32(at); }
    MetaPoint PointAt(std::size_t at) const { return {Number(at), Number(at + 4)}; }
    MetaBox BoxAt(std::size_t at) const {
        return {Number(at), Number(at + 4), Number(at + 8), Number(at + 12)};
    }
    MetaBox SizedBox(std::size_t place, std::size_t size) const {
        return {Number(place), Number(place + 4), Number(place) + Number(size),
                Number(place + 4) + Number(size + 4)};
    }
    Color ColorAt(std::size_t at) const { return record_.U32(at) & 0xFFFFFF; }

    bool ReadState(std::uint32_t type) {
        MetaState& state = canvas_.State();
        switch (type) {
        case SetWindowExt: state.windowExtent = PointAt(8); return true;
        case SetWindowOrg: state.windowOrigin = PointAt(8); return true;
        case SetViewportExt: state.viewportExtent = PointAt(8); return true;
        case SetViewportOrg: state.viewportOrigin = PointAt(8); return true;
        case ScaleViewportExt: Scale(state.viewportExtent); return true;
        case ScaleWindowExt: Scale(state.windowExtent); return true;
        case SetMapMode: SetScale(record_.U32(8)); return true;
        case SetBkMode: state.isOpaque = record_.U32(8) == 2; return true;
        case SetPolyFillMode: state.isWinding = record_.U32(8) == 2; return true;
        case SetTextAlign: state.textAlign = record_.U32(8); return true;
        case SetTextColor: state.textColor = ColorAt(8); return true;
        case SetBkColor: state.background = ColorAt(8); return true;
        case SaveDc: canvas_.Save(); return true;
        case RestoreDc: canvas_.Restore(record_.S32(8)); return true;
        case SetWorldTransform: state.world = TransformAt(8); return true;
        case ModifyWorldTransform: ModifyWorld(record_.U32(32)); return true;
        case IntersectClipRect: canvas_.ClipTo(BoxAt(8)); return true;
        case ExtSelectClipRgn:
        case SelectClipPath: canvas_.ClipToAll(); return true;
        default: return false;
        }
    }

    void Scale(MetaPoint& extent) const { // x by x, y by y
        if (Number(12) != 0) extent.x *= Number(8) / Number(12);
        if (Number(20) != 0) extent.y *= Number(16) / Number(20);
    }

    // Units of the fixed modes in pixels of the device, y upward.
    void SetScale(std::uint32_t mode) {
        constexpr std::uint32_t text = 1, fixedModes = 6;
        constexpr double perInch[] = {0, 0, 254, 2540, 100, 1000, 1440};
        MetaState& state = canvas_.State();
        if (mode == text) state.windowExtent = state.viewportExtent = {1, 1};
        if (mode <= text || mode > fixedModes) return;
        const double width = bytes_.S32(80), height = bytes_.S32(84); // millimetres
        if (width <= 0 || height <= 0) return;
        state.windowExtent = {perInch[mode], perInch[mode]};
        state.viewportExtent = {bytes_.S32(72) / width * 25.4, -(bytes_.S32(76) / height * 25.4)};
    }

    MetaTransform TransformAt(std::size_t at) const {
        return {record_.F32(at),      record_.F32(at + 4),  record_.F32(at + 8),
                record_.F32(at + 12), record_.F32(at + 16), record_.F32(at + 20)};
    }

    void ModifyWorld(std::uint32_t mode) {
        MetaTransform& world = canvas_.State().world;
        switch (mode) {
        case 1: world = {}; return;
        case 2: world = Combined(TransformAt(8), world); return;
        case 3: world = Combined(world, TransformAt(8)); return;
        case 4: world = TransformAt(8); return;
        default: return;
        }
    }

    bool ReadObject(std::uint32_t type) {
        constexpr std::uint32_t noPen = 5, noBrush = 1;
        const std::uint32_t number = record_.U32(8);
        const auto isDashed = [](std::uint32_t style) {
            return (style & 0xF) >= 1 && (style & 0xF) < noPen;
        };
        switch (type) {
        case SelectObject: canvas_.SelectObject(number); return true;
        case DeleteObject: canvas_.DeleteObject(number); return true;
        case CreatePen: {
            const std::uint32_t style = record_.U32(12);
            canvas_.SetObject(number, MetaPen{(style & 0xF) != noPen, isDashed(style),
                                              std::abs(Number(16)), ColorAt(24)});
            return true;
        }
        case ExtCreatePen: {
            constexpr std::uint32_t geometric = 0x10000; // others are a pixel wide
            const std::uint32_t style = record_.U32(28);
            const double width = (style & geometric) != 0 ? Number(32) : 0;
            canvas_.SetObject(number, MetaPen{(style & 0xF) != noPen, isDashed(style),
                                              std::abs(width), ColorAt(40)});
            return true;
        }
        case CreateBrush:
            canvas_.SetObject(number, MetaBrush{record_.U32(12) != noBrush, ColorAt(16)});
            return true;
        case CreateMonoBrush:
        case CreatePatternBrush: canvas_.SetObject(number, MetaBrush{true, 0x808080}); return true;
        case CreateFont: canvas_.SetObject(number, ReadFont()); return true;
        default: return false;
        }
    }

    MetaFont ReadFont() const {
        constexpr std::uint32_t bold = 600;
        constexpr std::size_t nameAt = 40, nameUnits = 32;
        MetaFont font;
        font.height = EmHeight(Number(12));
        font.degrees = Number(20) / 10;
        font.isBold = record_.U32(28) >= bold;
        font.isItalic = record_.U8(32) != 0;
        font.isUnderlined = record_.U8(33) != 0;
        font.isStruckOut = record_.U8(34) != 0;
        font.charset = static_cast<int>(record_.U8(35));
        for (std::size_t i = 0; i < nameUnits && record_.U16(nameAt + 2 * i) != 0; ++i)
            font.name += static_cast<char16_t>(record_.U16(nameAt + 2 * i));
        font.name = ShownMetaText(std::move(font.name));
        return font;
    }

    bool ReadPath(std::uint32_t type) {
        switch (type) {
        case BeginPath: canvas_.BeginPath(); return true;
        case EndPath: canvas_.EndPath(); return true;
        case CloseFigure: canvas_.CloseFigure(); return true;
        case FillPath: canvas_.PaintPath(true, false); return true;
        case StrokePath: canvas_.PaintPath(false, true); return true;
        case StrokeAndFillPath: canvas_.PaintPath(true, true); return true;
        default: return false;
        }
    }

    void ReadDrawing(std::uint32_t type) {
        if (type >= PolyBezier && type <= PolyPolygon) return ReadPoly(type, false);
        if (type >= PolyBezier16 && type <= PolyPolygon16)
            return ReadPoly(type - PolyBezier16 + PolyBezier, true);
        switch (type) {
        case MoveTo: return canvas_.MoveTo(PointAt(8));
        case LineTo: return canvas_.LineTo(PointAt(8));
        case SetPixel: return canvas_.Pixel(PointAt(8), ColorAt(16));
        case Ellipse: return canvas_.Areas({EllipsePoints(BoxAt(8))});
        case Rectangle: return canvas_.Areas({RoundedBoxPoints(BoxAt(8), 0, 0)});
        case RoundRect: return canvas_.Areas({RoundedBoxPoints(BoxAt(8), Number(24), Number(28))});
        case Arc: return canvas_.Lines({ArcPoints(BoxAt(8), PointAt(24), PointAt(32))});
        case ArcTo: return canvas_.LinesTo(ArcPoints(BoxAt(8), PointAt(24), PointAt(32)));
        case Chord: return canvas_.Areas({ArcPoints(BoxAt(8), PointAt(24), PointAt(32))});
        case Pie: return canvas_.Areas({PiePoints(BoxAt(8), PointAt(24), PointAt(32))});
        case ExtTextOutA:
        case ExtTextOutW: return ReadText(type == ExtTextOutW);
        case BitBlt:
            if (record_.U32(84) == 0) return canvas_.Fill(SizedBox(24, 32), record_.U32(40));
            return ReadImage(84, {Number(44), Number(48), Number(32), Number(36)}, SizedBox(24, 32),
                             record_.U32(40));
        case StretchBlt:
            if (record_.U32(84) == 0) return canvas_.Fill(SizedBox(24, 32), record_.U32(40));
            return ReadImage(84, {Number(44), Number(48), Number(100), Number(104)},
                             SizedBox(24, 32), record_.U32(40));
        case SetDiBitsToDevice:
            return ReadImage(48, {Number(32), Number(36), Number(40), Number(44)}, SizedBox(24, 40),
                             0);
        case StretchDiBits:
            return ReadImage(48, {Number(32), Number(36), Number(40), Number(44)}, SizedBox(24, 72),
                             record_.U32(68));
        default: return;
        }
    }

    MetaPoints PointsAt(std::size_t at, std::size_t count, bool isShort) const {
        MetaPoints points;
        const std::size_t size = isShort ? 4 : 8;
        for (std::size_t i = 0; i < count && at + size <= record_.Size(); ++i, at += size)
            points.push_back(isShort
                                 ? MetaPoint{double(record_.S16(at)), double(record_.S16(at + 2))}
                                 : PointAt(at));
        return points;
    }

    void ReadPoly(std::uint32_t type, bool isShort) {
        if (type == PolyPolyline || type == PolyPolygon) return ReadPolys(type, isShort);
        MetaPoints points = PointsAt(28, record_.U32(24), isShort);
        switch (type) {
        case PolyBezier: return canvas_.Lines({BezierPoints(points)});
        case Polygon: return canvas_.Areas({std::move(points)});
        case Polyline: return canvas_.Lines({std::move(points)});
        case PolylineTo: return canvas_.LinesTo(std::move(points));
        default: // PolyBezierTo
            points.insert(points.begin(), canvas_.State().position);
            points = BezierPoints(points);
            points.erase(points.begin());
            return canvas_.LinesTo(std::move(points));
        }
    }

    void ReadPolys(std::uint32_t type, bool isShort) {
        const std::size_t count = record_.U32(24), size = isShort ? 4 : 8;
        std::vector<MetaPoints> parts;
        if (count > record_.Size() / 4) return;
        std::size_t at = 32 + 4 * count;
        for (std::size_t i = 0; i < count && at < record_.Size(); ++i) {
            parts.push_back(PointsAt(at, record_.U32(32 + 4 * i), isShort));
            at += size * parts.back().size();
        }
        type == PolyPolygon ? canvas_.Areas(std::move(parts)) : canvas_.Lines(std::move(parts));
    }

    void ReadText(bool isUnicode) {
        const std::size_t length = record_.U32(44), at = record_.U32(48),
                          advances = record_.U32(72);
        if (length > record_.Size()) return;
        double width = 0;
        if (advances != 0 && advances + 4 * length <= record_.Size())
            for (std::size_t i = 0; i < length; ++i)
                width += Number(advances + 4 * i);
        if (!isUnicode)
            return canvas_.Text(
                PointAt(36),
                TextOfMetaBytes(record_.Part(at, length), canvas_.State().font.charset), width);
        std::u16string text;
        for (std::size_t i = 0; i < length && at + 2 * i + 2 <= record_.Size(); ++i)
            text += static_cast<char16_t>(record_.U16(at + 2 * i));
        canvas_.Text(PointAt(36), ShownMetaText(std::move(text)), width);
    }

    // At `offsets`: place and size of the header, then of the pixels. `source` is left, top, width
    // and height of the part that is shown.
    void ReadImage(std::size_t offsets, const MetaBox& source, const MetaBox& place,
                   std::uint32_t operation) {
        const auto part = [this](std::size_t at) {
            return MetaBytes(record_.Part(record_.U32(at), record_.U32(at + 4)));
        };
        MetaImage image = ReadBitmap(part(offsets), part(offsets + 8), canvas_.PixelsLeft());
        canvas_.TakePixels(image.pixels.size());
        CropBitmap(image, source);
        canvas_.Image(place, std::move(image), operation);
    }

    MetaCanvas& canvas_;
    MetaBytes bytes_, record_;
};

// In pixels of the device that the picture was recorded for.
MetaBox FrameOf(MetaBytes bytes) {
    const double width = bytes.S32(80), height = bytes.S32(84); // of the device, millimetres
    const double perX = width > 0 ? bytes.S32(72) / (width * 100) : 0;
    const double perY = height > 0 ? bytes.S32(76) / (height * 100) : 0;
    const MetaBox frame{bytes.S32(24) * perX, bytes.S32(28) * perY, bytes.S32(32) * perX,
                        bytes.S32(36) * perY};
    if (frame.right > frame.left && frame.bottom > frame.top) return frame;
    return {double(bytes.S32(8)), double(bytes.S32(12)), bytes.S32(16) + 1.0, bytes.S32(20) + 1.0};
}
} // namespace

Metafile ReadEmf(std::string_view all) {
    const MetaBytes bytes(all);
    if (bytes.Size() < headerSize || bytes.U32(0) != Header) return {};
    MetaCanvas canvas(FrameOf(bytes));
    EmfReader(canvas, bytes).ReadAll();
    return canvas.Release();
}
