#include "platform/qt/text_view/pictures/metafile_image.h"

#include "formats/metafile/metafile.h"
#include "platform/qt/base/qt_color.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
class MetafilePainter {
  public:
    MetafilePainter(QPainter& painter, QSize size) : painter_(painter), size_(size) {}

    void Paint(const Metafile& file) {
        for (const MetaCommand& command : file.commands) {
            painter_.setClipRect(Rect(command.clip));
            painter_.save();
            switch (command.kind) {
            case MetaCommand::Kind::Shape: PaintShape(file.shapes[command.index]); break;
            case MetaCommand::Kind::Text: PaintText(file.texts[command.index]); break;
            case MetaCommand::Kind::Image: PaintImage(file.images[command.index]); break;
            }
            painter_.restore();
        }
    }

  private:
    // Beyond this the raster engine has no precision left.
    static constexpr double maxCoordinate = 1 << 15;

    QPointF Point(MetaPoint share) const {
        return {std::clamp(share.x * size_.width(), -maxCoordinate, maxCoordinate),
                std::clamp(share.y * size_.height(), -maxCoordinate, maxCoordinate)};
    }
    QRectF Rect(const MetaRect& share) const {
        return QRectF(Point({share.left, share.top}), Point({share.right, share.bottom}));
    }

    void PaintShape(const MetaShape& shape) {
        QPainterPath path;
        path.setFillRule(shape.isWinding ? Qt::WindingFill : Qt::OddEvenFill);
        for (const std::vector<MetaPoint>& contour : shape.contours) {
            QPolygonF polygon;
            for (const MetaPoint& point : contour)
                polygon.append(Point(point));
            path.addPolygon(polygon);
            if (shape.isClosed) path.closeSubpath();
        }
        if (shape.hasBrush) painter_.fillPath(path, ToQColor(shape.brush));
        if (!shape.hasPen) return;
        const double width = std::max(1.0, shape.penWidth * size_.height());
        painter_.strokePath(path, QPen(ToQColor(shape.pen), width,
                                       shape.isDashed ? Qt::DashLine : Qt::SolidLine, Qt::RoundCap,
                                       Qt::RoundJoin));
    }

    static QFont FontOf(const MetaText& text, int pixels) {
        QFont font;
        if (!text.font.empty()) font.setFamily(QString::fromStdU16String(text.font));
        font.setPixelSize(pixels);
        font.setBold(text.isBold);
        font.setItalic(text.isItalic);
        font.setUnderline(text.isUnderlined);
        font.setStrikeOut(text.isStruckOut);
        return font;
    }

    void PaintText(const MetaText& text) {
        constexpr double minPixels = 1, maxPixels = 2000;
        const double height = text.height * size_.height();
        if (!(height >= minPixels)) return;
        painter_.setFont(FontOf(text, int(std::min(height, maxPixels))));
        const QString letters = QString::fromStdU16String(text.text);
        const QFontMetricsF metrics = painter_.fontMetrics();
        const double natural = metrics.horizontalAdvance(letters);
        const double wanted = text.width * size_.width();
        painter_.translate(Point(text.place));
        painter_.rotate(-text.degrees);
        // In another font than the file's the letters keep the text's width.
        if (wanted > 0 && natural > 0) painter_.scale(std::clamp(wanted / natural, 0.2, 5.0), 1);
        const double left = text.horizontal == MetaText::Horizontal::Center  ? -natural / 2
                            : text.horizontal == MetaText::Horizontal::Right ? -natural
                                                                             : 0;
        const double baseline = text.vertical == MetaText::Vertical::Top      ? metrics.ascent()
                                : text.vertical == MetaText::Vertical::Bottom ? -metrics.descent()
                                                                              : 0;
        if (text.hasBackground)
            painter_.fillRect(QRectF(left, baseline - metrics.ascent(), natural, metrics.height()),
                              ToQColor(text.background));
        painter_.setPen(ToQColor(text.color));
        painter_.drawText(QPointF(left, baseline), letters);
    }

    void PaintImage(const MetaImage& image) {
        const QRectF place = Rect(image.place);
        const QRectF box = place.normalized();
        if (box.isEmpty()) return;
        QImage pixels(reinterpret_cast<const uchar*>(image.pixels.data()), image.width,
                      image.height, image.width * 4, QImage::Format_RGB32);
        if (place.width() < 0 || place.height() < 0)
            pixels = pixels.mirrored(place.width() < 0, place.height() < 0);
        painter_.setCompositionMode(ModeOf(image.mode));
        painter_.drawImage(box, pixels);
    }

    static QPainter::CompositionMode ModeOf(MetaImage::Mode mode) {
        switch (mode) {
        case MetaImage::Mode::And: return QPainter::RasterOp_SourceAndDestination;
        case MetaImage::Mode::Or: return QPainter::RasterOp_SourceOrDestination;
        case MetaImage::Mode::Xor: return QPainter::RasterOp_SourceXorDestination;
        default: return QPainter::CompositionMode_SourceOver;
        }
    }

    QPainter& painter_;
    QSize size_;
};
} // namespace

QImage MetafileImage(const Picture& picture, QSize size) {
    const Metafile file =
        picture.format == PictureFormat::Wmf ? ReadWmf(picture.bytes) : ReadEmf(picture.bytes);
    if (file.commands.empty() || size.isEmpty()) return {};
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) return {};
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    MetafilePainter(painter, size).Paint(file);
    painter.end();
    return image;
}
