#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "tests/contract/reference_view/reference_back_end.h"

#include <QImage>
#include <QPainter>

namespace {
class QtPicture : public PanePicture {
  public:
    explicit QtPicture(Size size)
        : image_(size.width, size.height, QImage::Format_RGB32), painter_(Begin()),
          canvas_(painter_) {}
    Canvas& Target() override { return canvas_; }
    Color At(int x, int y) const override {
        const QRgb pixel = image_.pixel(x, y);
        return Color(qRed(pixel)) | Color(qGreen(pixel)) << 8 | Color(qBlue(pixel)) << 16;
    }

  private:
    QImage* Begin() {
        image_.fill(Qt::white);
        return &image_;
    }

    QImage image_;
    QPainter painter_;
    QtCanvas canvas_;
};
} // namespace

std::unique_ptr<PanePicture> MakePanePicture(Size size) {
    return std::make_unique<QtPicture>(size);
}

// Text after a tab is laid out by itself, and starts at a fraction of a pixel.
bool HasWholePixels() {
    return false;
}
