// Lines, areas, text and pictures.
#include "formats/metafile/emf_records.h"
#include "formats/metafile/metafile_bitmap.h"
#include "formats/metafile/metafile_text.h"

namespace {
class DrawingReader {
  public:
    DrawingReader(MetaCanvas& canvas, const EmfRecord& record) : canvas_(canvas), record_(record) {}

    void Read(std::uint32_t type) {
        if (!ReadPath(type)) ReadDrawing(type);
    }

  private:
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
        case MoveTo: return canvas_.MoveTo(record_.PointAt(8));
        case LineTo: return canvas_.LineTo(record_.PointAt(8));
        case SetPixel: return canvas_.Pixel(record_.PointAt(8), record_.ColorAt(16));
        case Ellipse: return canvas_.Areas({EllipsePoints(record_.BoxAt(8))});
        case Rectangle: return canvas_.Areas({RoundedBoxPoints(record_.BoxAt(8), 0, 0)});
        case RoundRect:
            return canvas_.Areas(
                {RoundedBoxPoints(record_.BoxAt(8), record_.Number(24), record_.Number(28))});
        case Arc:
            return canvas_.Lines(
                {ArcPoints(record_.BoxAt(8), record_.PointAt(24), record_.PointAt(32))});
        case ArcTo:
            return canvas_.LinesTo(
                ArcPoints(record_.BoxAt(8), record_.PointAt(24), record_.PointAt(32)));
        case Chord:
            return canvas_.Areas(
                {ArcPoints(record_.BoxAt(8), record_.PointAt(24), record_.PointAt(32))});
        case Pie:
            return canvas_.Areas(
                {PiePoints(record_.BoxAt(8), record_.PointAt(24), record_.PointAt(32))});
        case ExtTextOutA:
        case ExtTextOutW: return ReadText(type == ExtTextOutW);
        case BitBlt:
            if (record_.U32(84) == 0)
                return canvas_.Fill(record_.SizedBox(24, 32), record_.U32(40));
            return ReadImage(
                84,
                {record_.Number(44), record_.Number(48), record_.Number(32), record_.Number(36)},
                record_.SizedBox(24, 32), record_.U32(40));
        case StretchBlt:
            if (record_.U32(84) == 0)
                return canvas_.Fill(record_.SizedBox(24, 32), record_.U32(40));
            return ReadImage(
                84,
                {record_.Number(44), record_.Number(48), record_.Number(100), record_.Number(104)},
                record_.SizedBox(24, 32), record_.U32(40));
        case SetDiBitsToDevice:
            return ReadImage(
                48,
                {record_.Number(32), record_.Number(36), record_.Number(40), record_.Number(44)},
                record_.SizedBox(24, 40), 0);
        case StretchDiBits:
            return ReadImage(
                48,
                {record_.Number(32), record_.Number(36), record_.Number(40), record_.Number(44)},
                record_.SizedBox(24, 72), record_.U32(68));
        default: return;
        }
    }

    MetaPoints PointsAt(std::size_t at, std::size_t count, bool isShort) const {
        MetaPoints points;
        const std::size_t size = isShort ? 4 : 8;
        for (std::size_t i = 0; i < count && at + size <= record_.Size(); ++i, at += size)
            points.push_back(isShort
                                 ? MetaPoint{double(record_.S16(at)), double(record_.S16(at + 2))}
                                 : record_.PointAt(at));
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
                width += record_.Number(advances + 4 * i);
        if (!isUnicode)
            return canvas_.Text(
                record_.PointAt(36),
                TextOfMetaBytes(record_.Part(at, length), canvas_.State().font.charset), width);
        std::u16string text;
        for (std::size_t i = 0; i < length && at + 2 * i + 2 <= record_.Size(); ++i)
            text += static_cast<char16_t>(record_.U16(at + 2 * i));
        canvas_.Text(record_.PointAt(36), ShownMetaText(std::move(text)), width);
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
    const EmfRecord& record_;
};
} // namespace

void ReadEmfDrawing(MetaCanvas& canvas, const EmfRecord& record, std::uint32_t type) {
    DrawingReader(canvas, record).Read(type);
}
