// Line layout by QTextLayout.
#pragma once

#include "platform/line_layout.h"

#include <QImage>
#include <QTextCharFormat>

class QtStyle : public PreparedStyle {
  public:
    QtStyle(QTextCharFormat prepared, double exactSize)
        : format(std::move(prepared)), sizeFactor(exactSize) {}
    QTextCharFormat format;
    double sizeFactor; // of the size asked for to that of the format
};

class QtLineLayout : public LineLayout {
  public:
    void SetResolution(double dpi) override;
    StyleHandle Prepare(const TextStyle& style) override;
    FontMetrics Metrics(const PreparedStyle& style) const override;
    std::unique_ptr<TextLines> BreakLines(const ParagraphText& paragraph) override;

  private:
    QImage screen_{1, 1, QImage::Format_Mono}; // a paint device of the screen's resolution
};
