#include "platform/qt/text_view/pictures/picture_reader.h"

#include "formats/pictures/picture_header.h"

#include <QTransform>

namespace {
// From there on a JPEG is decoded in the size that it is shown in, which spares most of the work.
constexpr qint64 largeJpeg = 4 * 1024 * 1024;
constexpr qint64 maxDrawingPixels = 16 * 1024 * 1024; // of one in lines, whose box may be larger

qint64 Area(QSize size) {
    return qint64(size.width()) * size.height();
}

// As the orientations of Exif turn and mirror.
QTransform TransformOf(std::uint8_t orientation) {
    const bool mirrored =
        orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
    QTransform transform;
    switch (orientation) {
    case 3:
    case 4: transform.rotate(180); break;
    case 5:
    case 8: transform.rotate(270); break;
    case 6:
    case 7: transform.rotate(90); break;
    default: break;
    }
    return mirrored ? QTransform::fromScale(-1, 1) * transform : transform;
}
} // namespace

QByteArray PictureReader::NameOf(PictureFormat format) {
    switch (format) {
    case PictureFormat::Png: return "png";
    case PictureFormat::Jpeg: return "jpeg";
    case PictureFormat::Gif: return "gif";
    case PictureFormat::WebP: return "webp";
    case PictureFormat::Bmp: return "bmp";
    case PictureFormat::Ico: return "ico";
    case PictureFormat::Svg: return "svg";
    case PictureFormat::Wmf:
    case PictureFormat::Emf:
    case PictureFormat::Other: break;
    }
    return {};
}

PictureReader::PictureReader(const Picture& picture)
    : picture_(picture),
      bytes_(QByteArray::fromRawData(picture.bytes.data(), qsizetype(picture.bytes.size()))),
      buffer_(&bytes_) {
    const QByteArray name = NameOf(picture.format);
    if (name.isEmpty()) return;
    buffer_.open(QIODevice::ReadOnly);
    reader_.setDevice(&buffer_);
    reader_.setFormat(name);
    reader_.setAutoDetectImageFormat(false); // or any plug-in may take it
    size_ = reader_.size();
}

// A file may declare a size that exceeds memory.
bool PictureReader::IsReadable() const {
    return size_.isValid() && Area(size_) <= maxPicturePixels;
}

QSize PictureReader::Size() const {
    return IsReadable() ? size_ : QSize();
}

QImage PictureReader::Read(QSize size) {
    const bool isDrawing = picture_.format == PictureFormat::Svg;
    if (!isDrawing && !IsReadable()) return {};
    const QSize lying = picture_.orientation < 5 ? size : size.transposed();
    if (isDrawing)
        reader_.setScaledSize(
            Area(size) <= maxDrawingPixels ? size : size.scaled(4096, 4096, Qt::KeepAspectRatio));
    else if (picture_.format == PictureFormat::Jpeg && Area(size_) > largeJpeg &&
             Area(lying) < Area(size_))
        reader_.setScaledSize(lying);
    const QImage image = reader_.read();
    return picture_.orientation == uprightPicture
               ? image
               : image.transformed(TransformOf(picture_.orientation));
}
