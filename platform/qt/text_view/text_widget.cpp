#include "platform/qt/text_view/text_widget.h"

#include "platform/qt/qt_color.h"
#include "platform/qt/text_view/line_layout/qt_canvas.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimerEvent>

#include <cmath>

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

TextWidget::TextWidget(QWidget* parent)
    : QAbstractScrollArea(parent), pane_(*this, lines_, pictures_) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setCursor(pointer_);
    viewport()->setMouseTracking(true); // for the pointer over a link
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    UpdateSystemStyle();
    verticalScrollBar()->installEventFilter(this);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this](int action) { OnVerticalAction(action); });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int value) { pane_.ScrollToX(value); });
}

void TextWidget::UpdateSystemStyle() {
    const auto colorOf = [&](QPalette::ColorGroup group, QPalette::ColorRole role) {
        return FromQColor(palette().color(group, role));
    };
    const auto selectionOf = [&](QPalette::ColorGroup group) {
        return SelectionColors{colorOf(group, QPalette::HighlightedText),
                               colorOf(group, QPalette::Highlight)};
    };
    const QFont font = QGuiApplication::font();
    SystemStyle style;
    style.fontFamily = font.family().toStdU16String();
    if (font.pointSizeF() > 0) style.fontPoints = font.pointSizeF();
    style.text = FromQColor(palette().color(QPalette::Text));
    style.link = FromQColor(palette().color(QPalette::Link));
    style.selection = selectionOf(QPalette::Active);
    style.inactiveSelection = selectionOf(QPalette::Inactive);
    pane_.SetSystemStyle(style);
}

// As long as the policies of the scroll bars hold, whether it is shown or not.
Size TextWidget::Room() const {
    const QSize room = maximumViewportSize();
    return {ToPixels(room.width()), ToPixels(room.height())};
}

double TextWidget::Dpi() const {
    return logicalDpiX() * devicePixelRatioF();
}

int TextWidget::BlinkInterval() const {
    return QGuiApplication::styleHints()->cursorFlashTime() / 2;
}

void TextWidget::Redraw() {
    viewport()->update();
}

void TextWidget::RedrawPart(const Rect& part) {
    viewport()->update(ToWidget(part));
}

void TextWidget::SetHorizontalBar(bool shown) {
    setHorizontalScrollBarPolicy(shown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

void TextWidget::ShowVertical(const ScrollRange& range) {
    QScrollBar& bar = *verticalScrollBar();
    if (bar.isSliderDown()) return;
    bar.setRange(0, range.max);
    bar.setPageStep(range.page);
    bar.setValue(range.value);
}

void TextWidget::ShowHorizontal(const ScrollRange& range) {
    QScrollBar& bar = *horizontalScrollBar();
    bar.setRange(0, range.max);
    bar.setPageStep(range.page);
    bar.setSingleStep(range.step);
    bar.setValue(range.value);
}

void TextWidget::OnVerticalAction(int action) {
    QScrollBar& bar = *verticalScrollBar();
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd: pane_.ScrollLines(1); break;
    case QAbstractSlider::SliderSingleStepSub: pane_.ScrollLines(-1); break;
    case QAbstractSlider::SliderPageStepAdd: pane_.ScrollPage(true); break;
    case QAbstractSlider::SliderPageStepSub: pane_.ScrollPage(false); break;
    default: pane_.ScrollTo(bar.sliderPosition()); break;
    }
    pane_.ShowScrollLabel();
    if (!bar.isSliderDown()) bar.setSliderPosition(pane_.Scroller().TopAsPosition());
}

// The vertical scroll bar is handled in OnVerticalAction, the horizontal one by its value.
void TextWidget::scrollContentsBy(int, int) {}

void TextWidget::StartTimer(PaneTimer timer, int milliseconds) {
    TimerOf(timer).start(milliseconds, this);
}

void TextWidget::StopTimer(PaneTimer timer) {
    TimerOf(timer).stop();
}

void TextWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == visibleDataTimer_.timerId()) return NotifyVisibleDataChanged();
    for (int timer = 0; timer < paneTimers; ++timer)
        if (event->timerId() == TimerOf(PaneTimer(timer)).timerId())
            return pane_.OnTimer(PaneTimer(timer));
    QAbstractScrollArea::timerEvent(event);
}

TextPos TextWidget::CharacterAtPoint(QPoint point) {
    return pane_.CharacterAtPoint(ToPane(point));
}

QRect TextWidget::ToWidget(const Rect& box) const {
    const double scale = 1 / devicePixelRatioF();
    return QTransform::fromScale(scale, scale).mapRect(QRectF(ToQRect(box))).toAlignedRect();
}

QRect TextWidget::CaretRect() {
    const auto box = pane_.CaretRect();
    return box ? ToWidget(*box) : QRect();
}

QRect TextWidget::CharacterRect(TextPos position) {
    return isVisible() ? ToWidget(pane_.CharacterRect(position)) : QRect();
}

void TextWidget::resizeEvent(QResizeEvent*) {
    pane_.OnResized();
}

void TextWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        UpdateSystemStyle();
}

void TextWidget::paintEvent(QPaintEvent* event) {
    pane_.OnResized(); // before painting: it may show or hide the horizontal scroll bar
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ToQColor(pane_.Style().backColor));
    const QRect clip = UseScreenPixels(painter, devicePixelRatioF())
                           .mapRect(QRectF(event->rect()))
                           .toAlignedRect();
    QtCanvas canvas(painter);
    pane_.Paint(canvas, {clip.left(), clip.top(), clip.width(), clip.height()});
}
