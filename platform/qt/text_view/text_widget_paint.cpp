// Painting, the blinking caret and the scroll bars of the text widget.
#include "platform/qt/qt_color.h"
#include "platform/qt/text_view/text_painter.h"
#include "platform/qt/text_view/text_widget.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {
// Scales the painter to device pixels and returns the transformation to them. The widget may start
// at a fractional device pixel.
QTransform UseScreenPixels(QPainter& painter, double pixelRatio) {
    painter.scale(1 / pixelRatio, 1 / pixelRatio);
    const QTransform toScreen = painter.deviceTransform();
    painter.translate(std::round(toScreen.dx()) - toScreen.dx(),
                      std::round(toScreen.dy()) - toScreen.dy());
    return QTransform::fromScale(pixelRatio, pixelRatio);
}
} // namespace

void TextWidget::OnScrolled() {
    visibleSpan_.reset();
    viewport()->update();
    ScheduleVisibleDataChanged();
}

void TextWidget::paintEvent(QPaintEvent* event) {
    const VerticalPos top = Scroller().Top();
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ToQColor(viewStyle_.backColor));
    const QRect clip =
        UseScreenPixels(painter, pixelRatio_).mapRect(QRectF(event->rect())).toAlignedRect();

    const auto group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    const TextPaint paint{context_,
                          PlainTextColor(viewStyle_, palette_),
                          palette_.color(group, QPalette::HighlightedText),
                          palette_.color(group, QPalette::Highlight),
                          SelStart(),
                          SelEnd()};
    std::vector<std::pair<TextLayouts::Layout, int>> shown;
    auto layout = layouts_.At(top.block);
    for (int y = -top.y; layout && y <= clip.bottom(); layout = layouts_.After(layout)) {
        if (y + layout->height >= clip.top()) shown.emplace_back(layout, y);
        y += layout->height;
    }
    UpdateScrollBars(); // the lines that determine the horizontal range are laid out now
    for (const auto& [block, y] : shown)
        PaintBackground(painter, *block, QPoint(-ToTextX(0), y));
    for (const auto& [block, y] : shown)
        PaintBlock(painter, paint, *block, QPoint(-ToTextX(0), y), clip);
    const auto caret = caretOn_ && hasFocus() ? CaretInView() : std::nullopt;
    if (caret) painter.fillRect(*caret, CaretColor());
}

QColor TextWidget::CaretColor() const {
    const QColor text = PlainTextColor(viewStyle_, palette_), back = ToQColor(viewStyle_.backColor);
    return HasContrast(text, back) ? text : LegibleOn(back);
}

// Called when painting, because then the visible blocks are laid out anyway: a book that is opened
// and scrolled to a position is laid out once.
void TextWidget::UpdateScrollBars() {
    QScrollBar& vertical = *verticalScrollBar();
    if (!vertical.isSliderDown()) {
        const TextPos value = scroller_.TopAsPosition();
        const TextPos page = scroller_.BottomAsPosition() - value;
        vertical.setRange(0, std::max(value, scroller_.MaxTopAsPosition()));
        vertical.setPageStep(std::max(1, page));
        vertical.setValue(value);
    }
    const int width = ViewWidth();
    horizontalScrollBar()->setRange(0, std::max(0, layouts_.Width() + 2 * margin_ - width));
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(LineHeight());
}

void TextWidget::OnVerticalAction(int action) {
    QScrollBar& bar = *verticalScrollBar();
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd: Scroller().ScrollLines(1, LineHeight()); break;
    case QAbstractSlider::SliderSingleStepSub: Scroller().ScrollLines(-1, LineHeight()); break;
    case QAbstractSlider::SliderPageStepAdd: Scroller().ScrollPage(true, LineHeight()); break;
    case QAbstractSlider::SliderPageStepSub: Scroller().ScrollPage(false, LineHeight()); break;
    default: Scroller().ScrollToPosition(bar.sliderPosition()); break;
    }
    if (!bar.isSliderDown()) bar.setSliderPosition(scroller_.TopAsPosition());
    OnScrolled();
}

// The vertical scroll bar is handled in OnVerticalAction; the horizontal one needs a repaint only.
void TextWidget::scrollContentsBy(int dx, int) {
    if (dx != 0) viewport()->update();
}

void TextWidget::RestartBlinking() {
    caretOn_ = true;
    const int flash = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && flash > 0)
        blink_.start(flash / 2, this);
    else
        blink_.stop();
}

void TextWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == autoScroll_.timerId()) return AutoScroll();
    if (event->timerId() == visibleDataTimer_.timerId()) return NotifyVisibleDataChanged();
    if (event->timerId() != blink_.timerId()) return QAbstractScrollArea::timerEvent(event);
    caretOn_ = !caretOn_;
    viewport()->update(CaretRect());
}

void TextWidget::focusOutEvent(QFocusEvent*) {
    RestartBlinking();
    viewport()->update();
}
