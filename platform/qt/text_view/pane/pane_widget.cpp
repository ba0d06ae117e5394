#include "platform/qt/text_view/pane/pane_widget.h"

#include "platform/qt/base/qt_color.h"
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

PaneWidget::PaneWidget(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setCursor(pointer_);
    viewport()->setMouseTracking(true); // for the pointer over a link
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->installEventFilter(this);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this](int action) { OnVerticalAction(action); });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int value) { pane_->ScrollToX(value); });
}

void PaneWidget::SetPane(ViewPane& pane) {
    pane_ = &pane;
    UpdateSystemStyle();
}

void PaneWidget::UpdateSystemStyle() {
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
    pane_->SetSystemStyle(style);
}

// As long as the policies of the scroll bars hold, whether it is shown or not.
Size PaneWidget::Room() const {
    const QSize room = maximumViewportSize();
    return {ToPixels(room.width()), ToPixels(room.height())};
}

double PaneWidget::Dpi() const {
    return logicalDpiX() * devicePixelRatioF();
}

int PaneWidget::BlinkInterval() const {
    return QGuiApplication::styleHints()->cursorFlashTime() / 2;
}

void PaneWidget::Redraw() {
    viewport()->update();
}

void PaneWidget::RedrawPart(const Rect& part) {
    viewport()->update(ToWidget(part));
}

void PaneWidget::SetHorizontalBar(bool shown) {
    setHorizontalScrollBarPolicy(shown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

void PaneWidget::ShowVertical(const ScrollRange& range) {
    QScrollBar& bar = *verticalScrollBar();
    if (bar.isSliderDown()) return;
    bar.setRange(0, range.max);
    bar.setPageStep(range.page);
    bar.setValue(range.value);
}

void PaneWidget::ShowHorizontal(const ScrollRange& range) {
    QScrollBar& bar = *horizontalScrollBar();
    bar.setRange(0, range.max);
    bar.setPageStep(range.page);
    bar.setSingleStep(range.step);
    bar.setValue(range.value);
}

void PaneWidget::OnVerticalAction(int action) {
    QScrollBar& bar = *verticalScrollBar();
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd: pane_->ScrollLines(1); break;
    case QAbstractSlider::SliderSingleStepSub: pane_->ScrollLines(-1); break;
    case QAbstractSlider::SliderPageStepAdd: pane_->PageDown(); break;
    case QAbstractSlider::SliderPageStepSub: pane_->PageUp(); break;
    default: pane_->ScrollToValue(bar.sliderPosition()); break;
    }
    pane_->ShowScrollLabel();
    if (!bar.isSliderDown()) bar.setSliderPosition(pane_->VerticalValue());
}

// The vertical scroll bar is handled in OnVerticalAction, the horizontal one by its value.
void PaneWidget::scrollContentsBy(int, int) {}

void PaneWidget::StartTimer(PaneTimer timer, int milliseconds) {
    TimerOf(timer).start(milliseconds, this);
}

void PaneWidget::StopTimer(PaneTimer timer) {
    TimerOf(timer).stop();
}

std::chrono::milliseconds PaneWidget::SteadyTime() const {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch());
}

void PaneWidget::timerEvent(QTimerEvent* event) {
    for (int timer = 0; timer < paneTimers; ++timer)
        if (event->timerId() == TimerOf(PaneTimer(timer)).timerId())
            return pane_->OnTimer(PaneTimer(timer));
    QAbstractScrollArea::timerEvent(event);
}

QRect PaneWidget::ToWidget(const Rect& box) const {
    const double scale = 1 / devicePixelRatioF();
    return QTransform::fromScale(scale, scale).mapRect(QRectF(ToQRect(box))).toAlignedRect();
}

QRect PaneWidget::CaretRect() {
    const auto box = pane_->CaretRect();
    return box ? ToWidget(*box) : QRect();
}

void PaneWidget::resizeEvent(QResizeEvent*) {
    pane_->OnResized();
}

void PaneWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    const bool styled =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (styled && pane_) UpdateSystemStyle();
}

void PaneWidget::paintEvent(QPaintEvent* event) {
    pane_->OnResized(); // before painting: it may show or hide the horizontal scroll bar
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ToQColor(pane_->BackColor()));
    const QRect clip = UseScreenPixels(painter, devicePixelRatioF())
                           .mapRect(QRectF(event->rect()))
                           .toAlignedRect();
    QtCanvas canvas(painter);
    pane_->Paint(canvas, {clip.left(), clip.top(), clip.width(), clip.height()});
}

void PaneWidget::focusInEvent(QFocusEvent*) {
    pane_->OnFocusChanged();
}

void PaneWidget::focusOutEvent(QFocusEvent*) {
    pane_->OnFocusChanged();
}
