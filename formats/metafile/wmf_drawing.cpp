// Lines, areas, text and pictures of a WMF.
#include "formats/metafile/metafile_bitmap.h"
#include "formats/metafile/metafile_text.h"
#include "formats/metafile/wmf_records.h"

namespace {
class DrawingReader {
  public:
    DrawingReader(MetaCanvas& canvas, const WmfRecord& record) : canvas_(canvas), record_(record) {}

    void Read(WmfFunction function) {
        using enum WmfFunction;
        switch (function) {
        case MoveTo: return canvas_.MoveTo(record_.PointAt(0));
        case LineTo: return canvas_.LineTo(record_.PointAt(0));
        case Polygon: return canvas_.Areas({PointsAt(1, record_.U16(0))});
        case Polyline: return canvas_.Lines({PointsAt(1, record_.U16(0))});
        case PolyPolygon: return ReadPolyPolygon();
        case Rectangle: return canvas_.Areas({RoundedBoxPoints(record_.BoxAt(0), 0, 0)});
        case RoundRect:
            return canvas_.Areas(
                {RoundedBoxPoints(record_.BoxAt(2), record_.Number(1), record_.Number(0))});
        case Ellipse: return canvas_.Areas({EllipsePoints(record_.BoxAt(0))});
        case Arc:
            return canvas_.Lines(
                {ArcPoints(record_.BoxAt(4), record_.PointAt(2), record_.PointAt(0))});
        case Chord:
            return canvas_.Areas(
                {ArcPoints(record_.BoxAt(4), record_.PointAt(2), record_.PointAt(0))});
        case Pie:
            return canvas_.Areas(
                {PiePoints(record_.BoxAt(4), record_.PointAt(2), record_.PointAt(0))});
        case SetPixel: return canvas_.Pixel(record_.PointAt(2), record_.ColorAt(0));
        case PatBlt: return canvas_.Fill(record_.SizedBoxAt(2), record_.U32(0));
        case TextOut: return ReadTextOut();
        case ExtTextOut: return ReadExtTextOut();
        case DibBitBlt: return ReadImage(8, SourceAt(2, 4), record_.SizedBoxAt(4), record_.U32(0));
        case DibStretchBlt:
            return ReadImage(10, SourceAt(4, 2), record_.SizedBoxAt(6), record_.U32(0));
        case StretchDib:
            return ReadImage(11, SourceAt(5, 3), record_.SizedBoxAt(7), record_.U32(0));
        case SetDibToDev: return ReadImage(9, SourceAt(3, 5), record_.SizedBoxAt(5), 0);
        default: return;
        }
    }

  private:
    MetaPoints PointsAt(std::size_t word, std::size_t count) const {
        MetaPoints points;
        for (std::size_t i = 0; i < count && 2 * (word + 2 * i) + 4 <= record_.Size(); ++i)
            points.push_back({record_.Number(word + 2 * i), record_.Number(word + 2 * i + 1)});
        return points;
    }

    BitmapPart SourceAt(std::size_t place, std::size_t size) const {
        const MetaPoint corner = record_.PointAt(place), extent = record_.PointAt(size);
        return {corner.x, corner.y, extent.x, extent.y};
    }

    void ReadPolyPolygon() {
        const std::size_t count = record_.U16(0);
        std::vector<MetaPoints> polygons;
        std::size_t word = 1 + count;
        for (std::size_t i = 0; i < count && 2 * word < record_.Size(); ++i) {
            polygons.push_back(PointsAt(word, record_.U16(2 * (1 + i))));
            word += 2 * polygons.back().size();
        }
        canvas_.Areas(std::move(polygons));
    }

    void ReadTextOut() {
        const std::size_t length = record_.U16(0), words = (length + 1) / 2;
        AddText(record_.PointAt(1 + words), record_.Part(2, length), 0);
    }

    void ReadExtTextOut() {
        constexpr std::uint32_t hasRectangle = 2 | 4;
        const std::size_t length = record_.U16(4);
        const std::size_t start = 8 + ((record_.U16(6) & hasRectangle) != 0 ? 8u : 0u);
        const std::size_t advances = start + (length + 1) / 2 * 2;
        double width = 0;
        if (advances + 2 * length <= record_.Size())
            for (std::size_t i = 0; i < length; ++i)
                width += record_.S16(advances + 2 * i);
        AddText(record_.PointAt(0), record_.Part(start, length), width);
    }

    void AddText(MetaPoint place, std::string_view bytes, double width) {
        canvas_.Text(place, TextOfMetaBytes(bytes, canvas_.State().font.charset), width);
    }

    void ReadImage(std::size_t word, const BitmapPart& source, const MetaBox& place,
                   std::uint32_t operation) {
        const MetaBytes header(record_.Part(2 * word, record_.Size()));
        const MetaBytes bits(header.Part(BitmapHeaderSize(header), header.Size()));
        MetaImage image = ReadBitmap(header, bits, canvas_.PixelsLeft());
        canvas_.TakePixels(image.pixels.size());
        CropBitmap(image, source);
        canvas_.Image(place, std::move(image), operation);
    }

    MetaCanvas& canvas_;
    const WmfRecord& record_;
};
} // namespace

void ReadWmfDrawing(MetaCanvas& canvas, const WmfRecord& record, WmfFunction function) {
    DrawingReader(canvas, record).Read(function);
}
