#include "platform/qt/text_view/qt_pictures.h"

#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "platform/qt/text_view/metafile_image.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace {
constexpr qint64 maxPixels = 64 * 1024 * 1024; // a file may declare a size that exceeds memory
constexpr int maxCacheKilobytes = 64 * 1024, maxCachedSizes = 4096;

bool IsMetafile(const Picture& picture) {
    return picture.format == PictureFormat::Wmf || picture.format == PictureFormat::Emf;
}

class PictureReader {
  public:
    explicit PictureReader(const Picture& picture)
        : bytes_(QByteArray::fromRawData(picture.bytes.data(), qsizetype(picture.bytes.size()))),
          buffer_(&bytes_),
          reader_(&buffer_, picture.format == PictureFormat::Png ? "png" : "jpeg") {
        buffer_.open(QIODevice::ReadOnly);
        if (picture.format == PictureFormat::Png || picture.format == PictureFormat::Jpeg)
            size_ = reader_.size();
    }
    bool Readable() const {
        return size_.isValid() && qint64(size_.width()) * size_.height() <= maxPixels;
    }
    QSize Size() const { return Readable() ? size_ : QSize(); }
    QImage Image() { return Readable() ? reader_.read() : QImage(); }

  private:
    QByteArray bytes_;
    QBuffer buffer_;
    QImageReader reader_;
    QSize size_;
};
} // namespace

QtPictures::QtPictures() : pixmaps_(maxCacheKilobytes), sizes_(maxCachedSizes) {}

void QtPictures::Clear() {
    pixmaps_.clear();
    sizes_.clear();
}

Size QtPictures::NaturalSize(const Picture& picture) {
    if (const Size* cached = sizes_.object(picture.position)) return *cached;
    const QSize read = PictureReader(picture).Size();
    const Size size = read.isValid() ? Size{read.width(), read.height()} : Size{};
    sizes_.insert(picture.position, new Size(size));
    return size;
}

bool QtPictures::Draw(Canvas& canvas, const Picture& picture, const Rect& box) {
    const QPixmap pixmap = Pixmap(picture, QSize(box.width, box.height));
    if (pixmap.isNull()) return false;
    static_cast<QtCanvas&>(canvas).Painter().drawPixmap(box.left, box.top, pixmap);
    return true;
}

QPixmap QtPictures::Pixmap(const Picture& picture, QSize size) {
    const QPixmap* cached = pixmaps_.object(picture.position);
    if (cached && (cached->isNull() || cached->size() == size)) return *cached;
    QPixmap pixmap;
    const QImage image =
        IsMetafile(picture) ? MetafileImage(picture, size) : PictureReader(picture).Image();
    if (!image.isNull() && !size.isEmpty())
        pixmap =
            QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    const int kilobytes = 1 + int(qint64(pixmap.width()) * pixmap.height() * 4 / 1024);
    pixmaps_.insert(picture.position, new QPixmap(pixmap), kilobytes);
    return pixmap;
}
