// Lines, areas, text and pictures.
#include "formats/metafile/emf_records.h"
#include "formats/metafile/metafile_bitmap.h"
#include "formats/metafile/metafile_text.h"

namespace {
// The type that draws the same from coordinates of 32 bits.
EmfType Of32Bits(EmfType type16) {
    const auto number = [](EmfType type) { return static_cast<std::uint32_t>(type); };
    return static_cast<EmfType>(number(type16) - number(EmfType::PolyBezier16) +
                                number(EmfType::PolyBezier));
}

// Offsets of the fields of EMR_BITBLT and EMR_STRETCHBLT.
struct BitBltField {
    static constexpr std::size_t destination = 24, destinationSize = 32, rasterOperation = 40,
                                 source = 44, bitmap = 84;
    static constexpr std::size_t sourceSize = 100; // of EMR_STRETCHBLT alone
};

// Of EMR_SETDIBITSTODEVICE and EMR_STRETCHDIBITS; the last two are of the latter alone.
struct DiBitsField {
    static constexpr std::size_t destination = 24, source = 32, sourceSize = 40, bitmap = 48,
                                 rasterOperation = 68, destinationSize = 72;
};

class DrawingReader {
    using enum EmfType;

  public:
    DrawingReader(MetaCanvas& canvas, const EmfRecord& record) : canvas_(canvas), record_(record) {}

    void Read(EmfType type) {
        if (!ReadPath(type)) ReadDrawing(type);
    }

  private:
    bool ReadPath(EmfType type) {
        switch (type) {
        case BeginPath: canvas_.BeginPath(); return true;
        case EndPath: canvas_.EndPath(); return true;
        case CloseFigure: canvas_.CloseFigure(); return true;
        case FillPath: canvas_.PaintPath(MetaPaint::Fill); return true;
        case StrokePath: canvas_.PaintPath(MetaPaint::Stroke); return true;
        case StrokeAndFillPath: canvas_.PaintPath(MetaPaint::FillAndStroke); return true;
        default: return false;
        }
    }

    void ReadDrawing(EmfType type) {
        if (type >= PolyBezier && type <= PolyPolygon) return ReadPoly(type, PointSize::Long);
        if (type >= PolyBezier16 && type <= PolyPolygon16)
            return ReadPoly(Of32Bits(type), PointSize::Short);
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
        case BitBlt: return ReadBitBlt(BitBltField::destinationSize);
        case StretchBlt: return ReadBitBlt(BitBltField::sourceSize);
        case SetDiBitsToDevice: return ReadDiBits(DiBitsField::sourceSize, 0);
        case StretchDiBits:
            return ReadDiBits(DiBitsField::destinationSize,
                              record_.U32(DiBitsField::rasterOperation));
        default: return;
        }
    }

    enum class PointSize : std::size_t { Short = 4, Long = 8 }; // bytes

    MetaPoints PointsAt(std::size_t at, std::size_t count, PointSize pointSize) const {
        MetaPoints points;
        const auto size = static_cast<std::size_t>(pointSize);
        for (std::size_t i = 0; i < count && at + size <= record_.Size(); ++i, at += size)
            points.push_back(pointSize == PointSize::Short
                                 ? MetaPoint{double(record_.S16(at)), double(record_.S16(at + 2))}
                                 : record_.PointAt(at));
        return points;
    }

    void ReadPoly(EmfType type, PointSize pointSize) {
        if (type == PolyPolyline || type == PolyPolygon) return ReadPolys(type, pointSize);
        MetaPoints points = PointsAt(28, record_.U32(24), pointSize);
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

    void ReadPolys(EmfType type, PointSize pointSize) {
        const std::size_t count = record_.U32(24), size = static_cast<std::size_t>(pointSize);
        std::vector<MetaPoints> parts;
        if (count > record_.Size() / 4) return;
        std::size_t at = 32 + 4 * count;
        for (std::size_t i = 0; i < count && at < record_.Size(); ++i) {
            parts.push_back(PointsAt(at, record_.U32(32 + 4 * i), pointSize));
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

    // Without a bitmap the brush fills the place.
    void ReadBitBlt(std::size_t sourceSizeAt) {
        using Field = BitBltField;
        const MetaBox place = record_.SizedBox(Field::destination, Field::destinationSize);
        const std::uint32_t operation = record_.U32(Field::rasterOperation);
        if (record_.U32(Field::bitmap) == 0) return canvas_.Fill(place, operation);
        ReadImage(Field::bitmap, SourceAt(Field::source, sourceSizeAt), place, operation);
    }

    void ReadDiBits(std::size_t destinationSizeAt, std::uint32_t operation) {
        using Field = DiBitsField;
        ReadImage(Field::bitmap, SourceAt(Field::source, Field::sourceSize),
                  record_.SizedBox(Field::destination, destinationSizeAt), operation);
    }

    BitmapPart SourceAt(std::size_t place, std::size_t size) const {
        return {record_.Number(place), record_.Number(place + 4), record_.Number(size),
                record_.Number(size + 4)};
    }

    // At `offsets`: place and size of the header, then of the pixels.
    void ReadImage(std::size_t offsets, const BitmapPart& source, const MetaBox& place,
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

void ReadEmfDrawing(MetaCanvas& canvas, const EmfRecord& record, EmfType type) {
    DrawingReader(canvas, record).Read(type);
}
