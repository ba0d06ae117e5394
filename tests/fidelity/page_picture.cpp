#include "tests/fidelity/page_picture.h"

#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "view/page/page_painter.h"

#include <QPainter>

QImage PictureOf(LaidOutPage& page, int top, int height) {
    const int width = int(page.flow.Width());
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtCanvas canvas(painter);
    const auto draw = [&](Canvas&, PageBoxId box, const Rect& place) {
        const QString path = page.PicturePath(page.boxes[box]);
        const QImage picture(path);
        painter.drawImage(ToQRect(place), picture);
        return !picture.isNull();
    };
    const PagePaint paint{page.boxes, 1, 0, {0, 0, width, height}, draw, {}, {}};
    double at = -top;
    for (std::size_t zone = 0; zone < page.flow.ZoneCount() && at < height; ++zone) {
        const PageFragmentPtr fragment = page.flow.LayOut(zone);
        if (at + fragment->height > 0) PaintFragment(canvas, paint, *fragment, 0, at);
        at += fragment->height;
    }
    return image;
}
