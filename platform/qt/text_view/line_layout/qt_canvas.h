// A canvas on a painter of Qt's, which is scaled to device pixels.
#pragma once

#include "platform/canvas.h"
#include "platform/qt/base/qt_color.h"

#include <QPainter>

inline QRect ToQRect(const Rect& box) {
    return {box.left, box.top, box.width, box.height};
}

class QtCanvas : public Canvas {
  public:
    explicit QtCanvas(QPainter& painter) : painter_(painter) {} // must outlive this object

    QPainter& Painter() { return painter_; }
    void FillRect(const Rect& box, Color color) override {
        painter_.fillRect(ToQRect(box), ToQColor(color));
    }
    void TintRect(const Rect& box, Color color) override {
        QColor half = ToQColor(color);
        half.setAlphaF(0.5f);
        painter_.fillRect(ToQRect(box), half);
    }

  private:
    QPainter& painter_;
};
