#include "platform/windows/line_layout/metafile_image.h"

#include "formats/metafile/metafile.h"
#include "platform/windows/base/text.h"
#include "platform/windows/line_layout/line_painter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double maxCoordinate = 1 << 15; // pixels; beyond it GDI cuts coordinates
constexpr double minText = 1, maxText = 2000;

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using GdiObject = std::unique_ptr<std::remove_pointer_t<HGDIOBJ>, GdiDeleter>;

class MetafilePainter {
  public:
    MetafilePainter(HDC context, Size size) : context_(context), size_(size) {}
    void Paint(const Metafile&) const;

  private:
    POINT PointOf(MetaPoint) const;
    RECT RectOf(const MetaRect&) const;
    void TracePath(const MetaShape&) const;
    void PaintShape(const MetaShape&) const;
    GdiObject PenOf(const MetaShape&) const;
    void PaintText(const MetaText&) const;
    GdiObject FontOf(const MetaText&, std::wstring_view letters) const;
    void PaintImage(const MetaImage&) const;

    HDC context_;
    Size size_;
};

POINT MetafilePainter::PointOf(MetaPoint share) const {
    return {std::lround(std::clamp(share.x * size_.width, -maxCoordinate, maxCoordinate)),
            std::lround(std::clamp(share.y * size_.height, -maxCoordinate, maxCoordinate))};
}

RECT MetafilePainter::RectOf(const MetaRect& share) const {
    const POINT from = PointOf({share.left, share.top}), to = PointOf({share.right, share.bottom});
    return {from.x, from.y, to.x, to.y};
}

void MetafilePainter::TracePath(const MetaShape& shape) const {
    BeginPath(context_);
    for (const std::vector<MetaPoint>& contour : shape.contours) {
        if (contour.empty()) continue;
        const POINT start = PointOf(contour.front());
        MoveToEx(context_, start.x, start.y, nullptr);
        for (const MetaPoint& each : contour) {
            const POINT point = PointOf(each);
            LineTo(context_, point.x, point.y);
        }
        if (shape.isClosed) CloseFigure(context_);
    }
    EndPath(context_);
}

GdiObject MetafilePainter::PenOf(const MetaShape& shape) const {
    const auto width = static_cast<DWORD>(std::max(1.0, shape.penWidth * size_.height));
    const LOGBRUSH brush = {BS_SOLID, shape.pen, 0};
    const DWORD style = shape.isDashed ? PS_DASH : PS_SOLID;
    return GdiObject(ExtCreatePen(PS_GEOMETRIC | style | PS_ENDCAP_ROUND | PS_JOIN_ROUND, width,
                                  &brush, 0, nullptr));
}

void MetafilePainter::PaintShape(const MetaShape& shape) const {
    const SavedContext saved(context_);
    const GdiObject brush(CreateSolidBrush(shape.brush)), pen = PenOf(shape);
    SelectObject(context_, brush.get());
    SelectObject(context_, pen.get());
    SetPolyFillMode(context_, shape.isWinding ? WINDING : ALTERNATE);
    if (shape.hasBrush) {
        TracePath(shape);
        FillPath(context_);
    }
    if (!shape.hasPen) return;
    TracePath(shape);
    StrokePath(context_);
}

// In another font than the file's the letters keep the text's width.
GdiObject MetafilePainter::FontOf(const MetaText& text, std::wstring_view letters) const {
    LOGFONTW font = {};
    font.lfHeight = -std::lround(std::min(text.height * size_.height, maxText));
    font.lfEscapement = font.lfOrientation = std::lround(text.degrees * 10);
    font.lfWeight = text.isBold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = text.isItalic;
    font.lfUnderline = text.isUnderlined;
    font.lfStrikeOut = text.isStruckOut;
    ToWide(text.font).copy(font.lfFaceName, LF_FACESIZE - 1);
    GdiObject natural(CreateFontIndirectW(&font));
    SelectObject(context_, natural.get());
    SIZE extent = {};
    TEXTMETRICW metrics = {};
    GetTextExtentPoint32W(context_, letters.data(), static_cast<int>(letters.size()), &extent);
    GetTextMetricsW(context_, &metrics);
    const double wanted = text.width * size_.width;
    if (wanted <= 0 || extent.cx <= 0) return natural;
    font.lfWidth = std::lround(metrics.tmAveCharWidth * std::clamp(wanted / extent.cx, 0.2, 5.0));
    return GdiObject(CreateFontIndirectW(&font));
}

void MetafilePainter::PaintText(const MetaText& text) const {
    if (!(text.height * size_.height >= minText)) return;
    const SavedContext saved(context_);
    const std::wstring letters = ToWide(text.text);
    const GdiObject font = FontOf(text, letters);
    SelectObject(context_, font.get());
    const UINT horizontal = text.horizontal == MetaText::Horizontal::Center  ? TA_CENTER
                            : text.horizontal == MetaText::Horizontal::Right ? TA_RIGHT
                                                                             : TA_LEFT;
    const UINT vertical = text.vertical == MetaText::Vertical::Top      ? TA_TOP
                          : text.vertical == MetaText::Vertical::Bottom ? TA_BOTTOM
                                                                        : TA_BASELINE;
    SetTextAlign(context_, horizontal | vertical);
    SetTextColor(context_, text.color);
    SetBkMode(context_, text.hasBackground ? OPAQUE : TRANSPARENT);
    SetBkColor(context_, text.background);
    const POINT place = PointOf(text.place);
    ExtTextOutW(context_, place.x, place.y, 0, nullptr, letters.data(),
                static_cast<UINT>(letters.size()), nullptr);
}

DWORD OperationOf(MetaImage::Mode mode) {
    switch (mode) {
    case MetaImage::Mode::And: return SRCAND;
    case MetaImage::Mode::Or: return SRCPAINT;
    case MetaImage::Mode::Xor: return SRCINVERT;
    case MetaImage::Mode::Copy: break;
    }
    return SRCCOPY;
}

// A negative width or height mirrors.
void MetafilePainter::PaintImage(const MetaImage& image) const {
    const RECT place = RectOf(image.place);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = image.width;
    info.bmiHeader.biHeight = -image.height; // the first row on top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    SetStretchBltMode(context_, HALFTONE);
    StretchDIBits(context_, place.left, place.top, place.right - place.left,
                  place.bottom - place.top, 0, 0, image.width, image.height, image.pixels.data(),
                  &info, DIB_RGB_COLORS, OperationOf(image.mode));
}

void MetafilePainter::Paint(const Metafile& file) const {
    for (const MetaCommand& command : file.commands) {
        const SavedContext saved(context_);
        const RECT clip = RectOf(command.clip);
        IntersectClipRect(context_, clip.left, clip.top, clip.right, clip.bottom);
        switch (command.kind) {
        case MetaCommand::Kind::Shape: PaintShape(file.shapes[command.index]); break;
        case MetaCommand::Kind::Text: PaintText(file.texts[command.index]); break;
        case MetaCommand::Kind::Image: PaintImage(file.images[command.index]); break;
        }
    }
}

// GDI leaves the alpha of what it paints at 0.
void MakeOpaque(std::uint32_t* pixels, Size size) {
    GdiFlush();
    const std::size_t count =
        static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    std::for_each(pixels, pixels + count, [](std::uint32_t& pixel) { pixel |= 0xFF000000; });
}

} // namespace

bool IsMetafile(const Picture& picture) {
    return picture.format == PictureFormat::Wmf || picture.format == PictureFormat::Emf;
}

WinBitmap MetafileImage(const Picture& picture, Size size) {
    const Metafile file =
        picture.format == PictureFormat::Wmf ? ReadWmf(picture.bytes) : ReadEmf(picture.bytes);
    if (file.commands.empty() || size.IsEmpty()) return nullptr;
    void* bits = nullptr;
    WinBitmap bitmap = MakeBitmap(size, bits);
    const HDC context = CreateCompatibleDC(nullptr);
    if (!bitmap || !context) return nullptr;
    const HGDIOBJ before = SelectObject(context, bitmap.get());
    PatBlt(context, 0, 0, size.width, size.height, WHITENESS);
    MetafilePainter(context, size).Paint(file);
    SelectObject(context, before);
    DeleteDC(context);
    MakeOpaque(static_cast<std::uint32_t*>(bits), size);
    return bitmap;
}
