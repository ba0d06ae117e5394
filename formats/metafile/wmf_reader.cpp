// The records of WMF. Their numbers are mostly in reverse order: y before x, the bottom before the
// top.
#include "formats/metafile/metafile_bitmap.h"
#include "formats/metafile/metafile_canvas.h"
#include "formats/metafile/metafile_limits.h"
#include "formats/metafile/metafile_text.h"

#include <algorithm>
#include <cstdlib>

namespace {
constexpr std::uint32_t placeableKey = 0x9AC6CDD7;
constexpr std::size_t placeableSize = 22, headerSize = 18, recordHeader = 6;

enum Record : std::uint32_t {
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

class WmfReader {
  public:
    WmfReader(MetaCanvas& canvas, MetaBytes bytes) : canvas_(canvas), bytes_(bytes) {}

    void ReadAll(std::size_t at) {
        for (std::size_t i = 0; i < maxMetaRecords && at + recordHeader <= bytes_.Size(); ++i) {
            const std::size_t size = std::size_t{bytes_.U32(at)} * 2;
            const std::uint32_t function = bytes_.U16(at + 4);
            if (size < recordHeader || size > bytes_.Size() - at || function == EndOfFile) return;
            data_ = MetaBytes(bytes_.Part(at + recordHeader, size - recordHeader));
            if (!ReadState(function) && !ReadObject(function)) ReadDrawing(function);
            at += size;
        }
    }

  private:
    // Places of words in the record.
    double Number(std::size_t word) const { return data_.S16(2 * word); }
    MetaPoint PointAt(std::size_t word) const { return {Number(word + 1), Number(word)}; }
    MetaBox BoxAt(std::size_t word) const {
        return {Number(word + 3), Number(word + 2), Number(word + 1), Number(word)};
    }
    MetaBox SizedBoxAt(std::size_t word) const { // height, width, y, x
        const MetaPoint size = PointAt(word), place = PointAt(word + 2);
        return {place.x, place.y, place.x + size.x, place.y + size.y};
    }

    bool ReadState(std::uint32_t function) {
        MetaState& state = canvas_.State();
        switch (function) {
        case SaveDc: canvas_.Save(); return true;
        case RestoreDc: canvas_.Restore(data_.S16(0)); return true;
        case SetBkMode: state.isOpaque = data_.U16(0) == 2; return true;
        case SetPolyFillMode: state.isWinding = data_.U16(0) == 2; return true;
        case SetTextAlign: state.textAlign = data_.U16(0); return true;
        case SetBkColor: state.background = data_.U32(0) & 0xFFFFFF; return true;
        case SetTextColor: state.textColor = data_.U32(0) & 0xFFFFFF; return true;
        case SetWindowOrg: state.windowOrigin = PointAt(0); return true;
        case SetWindowExt: state.windowExtent = PointAt(0); return true;
        case OffsetWindowOrg:
            state.windowOrigin.x += Number(1);
            state.windowOrigin.y += Number(0);
            return true;
        case ScaleWindowExt:
            if (Number(2) != 0) state.windowExtent.x *= Number(3) / Number(2);
            if (Number(0) != 0) state.windowExtent.y *= Number(1) / Number(0);
            return true;
        case SelectClipRegion: canvas_.ClipToAll(); return true;
        case IntersectClipRect: canvas_.ClipTo(BoxAt(0)); return true;
        default: return false;
        }
    }

    bool ReadObject(std::uint32_t function) {
        constexpr std::uint32_t noPen = 5, dashes = 4, noBrush = 1;
        switch (function) {
        case CreatePenIndirect: {
            const std::uint32_t style = data_.U16(0) & 0xF;
            canvas_.AddObject(MetaPen{style != noPen, style >= 1 && style <= dashes,
                                      std::abs(Number(1)), data_.U32(6) & 0xFFFFFF});
            return true;
        }
        case CreateBrushIndirect:
            canvas_.AddObject(MetaBrush{data_.U16(0) != noBrush, data_.U32(2) & 0xFFFFFF});
            return true;
        case CreateFontIndirect: canvas_.AddObject(ReadFont()); return true;
        case CreatePatternBrush:
        case DibCreatePatternBrush: canvas_.AddObject(MetaBrush{true, 0x808080}); return true;
        case CreatePalette:
        case CreateRegion: canvas_.AddObject(MetaPen{}); return true; // takes a place
        case SelectObject: canvas_.SelectObject(data_.U16(0)); return true;
        case DeleteObject: canvas_.DeleteObject(data_.U16(0)); return true;
        default: return false;
        }
    }

    MetaFont ReadFont() const {
        constexpr std::uint32_t bold = 600;
        MetaFont font;
        font.height = EmHeight(data_.S16(0));
        font.degrees = data_.S16(4) / 10.0;
        font.isBold = data_.U16(8) >= bold;
        font.isItalic = data_.U8(10) != 0;
        font.isUnderlined = data_.U8(11) != 0;
        font.isStruckOut = data_.U8(12) != 0;
        font.charset = static_cast<int>(data_.U8(13));
        const std::string_view name = data_.Part(18, 32);
        font.name = TextOfMetaBytes(name.substr(0, name.find('\0')), 1);
        return font;
    }

    MetaPoints PointsAt(std::size_t word, std::size_t count) const {
        MetaPoints points;
        for (std::size_t i = 0; i < count && 2 * (word + 2 * i) + 4 <= data_.Size(); ++i)
            points.push_back({Number(word + 2 * i), Number(word + 2 * i + 1)});
        return points;
    }

    void ReadDrawing(std::uint32_t function) {
        switch (function) {
        case MoveTo: return canvas_.MoveTo(PointAt(0));
        case LineTo: return canvas_.LineTo(PointAt(0));
        case Polygon: return canvas_.Areas({PointsAt(1, data_.U16(0))});
        case Polyline: return canvas_.Lines({PointsAt(1, data_.U16(0))});
        case PolyPolygon: return ReadPolyPolygon();
        case Rectangle: return canvas_.Areas({RoundedBoxPoints(BoxAt(0), 0, 0)});
        case RoundRect: return canvas_.Areas({RoundedBoxPoints(BoxAt(2), Number(1), Number(0))});
        case Ellipse: return canvas_.Areas({EllipsePoints(BoxAt(0))});
        case Arc: return canvas_.Lines({ArcPoints(BoxAt(4), PointAt(2), PointAt(0))});
        case Chord: return canvas_.Areas({ArcPoints(BoxAt(4), PointAt(2), PointAt(0))});
        case Pie: return canvas_.Areas({PiePoints(BoxAt(4), PointAt(2), PointAt(0))});
        case SetPixel: return canvas_.Pixel(PointAt(2), data_.U32(0) & 0xFFFFFF);
        case PatBlt: return canvas_.Fill(SizedBoxAt(2), data_.U32(0));
        case TextOut: return ReadTextOut();
        case ExtTextOut: return ReadExtTextOut();
        case DibBitBlt:
            return ReadImage(8, {PointAt(2).x, PointAt(2).y, Number(5), Number(4)}, SizedBoxAt(4),
                             data_.U32(0));
        case DibStretchBlt:
            return ReadImage(10, {PointAt(4).x, PointAt(4).y, Number(3), Number(2)}, SizedBoxAt(6),
                             data_.U32(0));
        case StretchDib:
            return ReadImage(11, {PointAt(5).x, PointAt(5).y, Number(4), Number(3)}, SizedBoxAt(7),
                             data_.U32(0));
        case SetDibToDev:
            return ReadImage(9, {PointAt(3).x, PointAt(3).y, Number(6), Number(5)}, SizedBoxAt(5),
                             0);
        default: return;
        }
    }

    void ReadPolyPolygon() {
        const std::size_t count = data_.U16(0);
        std::vector<MetaPoints> polygons;
        std::size_t word = 1 + count;
        for (std::size_t i = 0; i < count && 2 * word < data_.Size(); ++i) {
            polygons.push_back(PointsAt(word, data_.U16(2 * (1 + i))));
            word += 2 * polygons.back().size();
        }
        canvas_.Areas(std::move(polygons));
    }

    void ReadTextOut() {
        const std::size_t length = data_.U16(0), words = (length + 1) / 2;
        AddText(PointAt(1 + words), data_.Part(2, length), 0);
    }

    void ReadExtTextOut() {
        constexpr std::uint32_t hasRectangle = 2 | 4;
        const std::size_t length = data_.U16(4);
        const std::size_t start = 8 + ((data_.U16(6) & hasRectangle) != 0 ? 8u : 0u);
        const std::size_t advances = start + (length + 1) / 2 * 2;
        double width = 0;
        if (advances + 2 * length <= data_.Size())
            for (std::size_t i = 0; i < length; ++i)
                width += data_.S16(advances + 2 * i);
        AddText(PointAt(0), data_.Part(start, length), width);
    }

    void AddText(MetaPoint place, std::string_view bytes, double width) {
        canvas_.Text(place, TextOfMetaBytes(bytes, canvas_.State().font.charset), width);
    }

    // `source` is left, top, width and height of the part that is shown.
    void ReadImage(std::size_t word, const MetaBox& source, const MetaBox& place,
                   std::uint32_t operation) {
        const MetaBytes header(data_.Part(2 * word, data_.Size()));
        const MetaBytes bits(header.Part(BitmapHeaderSize(header), header.Size()));
        MetaImage image = ReadBitmap(header, bits, canvas_.PixelsLeft());
        canvas_.TakePixels(image.pixels.size());
        CropBitmap(image, source);
        canvas_.Image(place, std::move(image), operation);
    }

    MetaCanvas& canvas_;
    MetaBytes bytes_, data_;
};

// Whether a record gives the extent of the picture.
bool HasWindowExtent(MetaBytes bytes, std::size_t at) {
    while (at + recordHeader <= bytes.Size()) {
        const std::size_t size = std::size_t{bytes.U32(at)} * 2;
        if (size < recordHeader || size > bytes.Size() - at) return false;
        if (bytes.U16(at + 4) == SetWindowExt) return true;
        at += size;
    }
    return false;
}

MetaCanvas Played(MetaBytes bytes, std::size_t at, const MetaBox& window) {
    MetaCanvas canvas({0, 0, 1, 1});
    canvas.State().windowOrigin = {window.left, window.top};
    canvas.State().windowExtent = {window.right - window.left, window.bottom - window.top};
    WmfReader(canvas, bytes).ReadAll(at);
    return canvas;
}
} // namespace

Metafile ReadWmf(std::string_view all) {
    const MetaBytes bytes(all);
    const bool isPlaceable = bytes.U32(0) == placeableKey;
    const std::size_t at = isPlaceable ? placeableSize + headerSize : headerSize;
    if (isPlaceable)
        return Played(bytes, at,
                      {double(bytes.S16(6)), double(bytes.S16(8)), double(bytes.S16(10)),
                       double(bytes.S16(12))})
            .Release();
    MetaCanvas canvas = Played(bytes, at, {0, 0, 1, 1});
    const MetaBox& bounds = canvas.Bounds();
    if (HasWindowExtent(bytes, at) || bounds.left >= bounds.right || bounds.top >= bounds.bottom)
        return canvas.Release();
    return Played(bytes, at, bounds).Release(); // all that is drawn is the picture
}
