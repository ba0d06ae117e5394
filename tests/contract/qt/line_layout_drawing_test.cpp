// What only the line layout of Qt has: its pixels.
#include "platform/qt/text_view/line_layout/pinned_fonts.h"
#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"

#include <QImage>
#include <QPainter>

#include <doctest/doctest.h>

#include <cstdlib>
#include <set>

namespace {
constexpr int width = 200, height = 80, baseline = 40; // pixels

// The first and the last row with something dark.
struct Rows {
    int first = -1, last = -1;
};

Rows DarkRows(const QImage& image) {
    Rows rows;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) > 128) continue;
            if (rows.first < 0) rows.first = y;
            rows.last = y;
        }
    return rows;
}

Rows Drawn(const TextStyle& style) {
    QtLineLayout layout;
    layout.SetResolution(96);
    ParagraphText paragraph;
    paragraph.text = u"HHH";
    paragraph.runs = {{0, layout.Prepare(style)}};
    paragraph.width = width;
    QImage image(width, height, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtCanvas canvas(painter);
    LinePaint paint;
    paint.clip = {0, 0, width, height};
    layout.BreakLines(paragraph)->Draw(canvas, 0, 20, baseline, paint);
    painter.end();
    return DarkRows(image);
}

TextStyle LargeStyle() {
    TextStyle style;
    style.font.points = 15;
    return style;
}
} // namespace

TEST_CASE("qt line layout: raised text is drawn as many pixels higher") {
    const Rows plain = Drawn(LargeStyle());
    CHECK(plain.last >= baseline - 2);
    for (const int raise : {15, 4, -11}) {
        CAPTURE(raise);
        TextStyle style = LargeStyle();
        style.raise = raise;
        const Rows raised = Drawn(style);
        CHECK(std::abs(plain.first - raised.first - raise) <= 1);
        CHECK(std::abs(plain.last - raised.last - raise) <= 1);
    }
}

TEST_CASE("qt line layout: a line above the text is above its letters") {
    const Rows plain = Drawn(LargeStyle());
    TextStyle style = LargeStyle();
    style.overline = true;
    CHECK(Drawn(style).first < plain.first);
    CHECK(Drawn(style).last == plain.last);
}

TEST_CASE("line layout: fonts of many sizes are found among each other without going through all") {
    std::set<std::size_t> hashes;
    QFont font(QStringLiteral("Serif"));
    for (int size = 0; size < 1000; ++size) {
        font.setPointSizeF(8 + size / 100.0);
        hashes.insert(FontHash{}(font));
    }
    CHECK(hashes.size() == 1000);
    CHECK(FontHash{}(font) == FontHash{}(QFont(font)));
}

TEST_CASE("line layout: letters of no size take no room") {
    QtLineLayout layout;
    layout.SetResolution(96);
    TextStyle style;
    style.font.exactSize = true;
    style.font.points = 0;
    ParagraphText paragraph;
    paragraph.text = u"HHH";
    paragraph.runs = {{0, layout.Prepare(style)}};
    paragraph.width = width;
    CHECK(layout.BreakLines(paragraph)->Line(0).width < 1);
}
