#include "platform/qt/text_view/pictures/qt_pictures.h"

#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "platform/qt/text_view/pictures/metafile_image.h"
#include "platform/qt/text_view/pictures/picture_reader.h"

#include <QImageReader>

#include <algorithm>

namespace {
constexpr int maxCacheKilobytes = 64 * 1024, maxCachedSizes = 4096;
// A box may be much larger than its picture; of one larger than that no picture is made.
constexpr qint64 maxStretchedPixels = 16 * 1024 * 1024;

bool IsMetafile(PictureFormat format) {
    return format == PictureFormat::Wmf || format == PictureFormat::Emf;
}

qint64 Area(QSize size) {
    return qint64(size.width()) * size.height();
}

bool IsStretched(QSize natural, QSize size) {
    return Area(size) > std::max(Area(natural), maxStretchedPixels);
}

QPixmap Decoded(const Picture& picture, QSize size) {
    if (size.isEmpty()) return {};
    if (IsMetafile(picture.format)) return QPixmap::fromImage(MetafileImage(picture, size));
    const QImage image = PictureReader(picture).Read(size);
    if (image.isNull()) return {};
    if (IsStretched(image.size(), size)) return QPixmap::fromImage(image);
    return QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}
} // namespace

QtPictures::QtPictures() : kept_(maxCacheKilobytes), sizes_(maxCachedSizes) {}

void QtPictures::Clear() {
    kept_.clear();
    sizes_.clear();
}

bool QtPictures::CanDecode(PictureFormat format) const {
    if (IsMetafile(format)) return true;
    const QByteArray name = PictureReader::NameOf(format);
    static const QList<QByteArray> known = QImageReader::supportedImageFormats();
    return !name.isEmpty() && known.contains(name);
}

Size QtPictures::NaturalSize(const Picture& picture) {
    if (const Size* cached = sizes_.object(picture.position)) return *cached;
    const QSize read = PictureReader(picture).Size();
    const Size size = read.isValid() ? Size{read.width(), read.height()} : Size{};
    sizes_.insert(picture.position, new Size(size));
    return size;
}

bool QtPictures::IsKept(TextPos position, Size size) const {
    const Kept* kept = kept_.object(position);
    return kept && (kept->pixmap.isNull() || kept->size == QSize(size.width, size.height));
}

bool QtPictures::Draw(Canvas& canvas, const Picture& picture, const Rect& box) {
    const Kept& kept = At(picture, QSize(box.width, box.height));
    if (kept.pixmap.isNull()) return false;
    QPainter& painter = static_cast<QtCanvas&>(canvas).Painter();
    if (kept.pixmap.size() == kept.size) {
        painter.drawPixmap(box.left, box.top, kept.pixmap);
        return true;
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(box.left, box.top, box.width, box.height), kept.pixmap);
    painter.restore();
    return true;
}

const QtPictures::Kept& QtPictures::At(const Picture& picture, QSize size) {
    if (IsKept(picture.position, {size.width(), size.height()}))
        return *kept_.object(picture.position);
    auto kept = std::make_unique<Kept>(Kept{Decoded(picture, size), size});
    const qint64 kilobytes = 1 + Area(kept->pixmap.size()) * 4 / 1024;
    // One that exceeds the cache is all that it holds, or each scroll would decode it again.
    Kept* const added = kept.release();
    kept_.insert(picture.position, added, int(std::min<qint64>(kilobytes, maxCacheKilobytes)));
    return *added;
}
