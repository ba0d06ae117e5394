#include "platform/qt/text_view/text_widget.h"

#include "common/string_text.h"
#include "platform/qt/text_view/accessibility/accessible_text.h"
#include "platform/qt/text_view/text_painter.h"

#include <QEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int minMargin = 6, marginShare = 40; // of the widget's pixels, and of its width
constexpr int widestLine = 1 << 24; // pixels; Qt's fixed point numbers hold twice as much
constexpr double metresPerInch = 0.0254;

// Makes the painter count in the screen's pixels from now on; returns the way from the widget's to
// them. The widget may begin within one.
QTransform UseScreenPixels(QPainter& painter, double pixelRatio) {
    painter.scale(1 / pixelRatio, 1 / pixelRatio);
    const QTransform toScreen = painter.deviceTransform();
    painter.translate(std::round(toScreen.dx()) - toScreen.dx(),
                      std::round(toScreen.dy()) - toScreen.dy());
    return QTransform::fromScale(pixelRatio, pixelRatio);
}
} // namespace

TextWidget::TextWidget(QWidget* parent)
    : QAbstractScrollArea(parent), text_(std::make_shared<StringText>(document_.text)),
      palette_(palette()), formats_(document_, look_, palette_),
      pictures_(document_), context_{document_, look_, formats_, pictures_}, layouts_(context_),
      scroller_(layouts_) {
    AccessibleText::Install();
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    context_.device = &screen_;
    MeasureScreen();
    context_.text = text_.get();
    verticalScrollBar()->installEventFilter(this);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this](int action) { VerticalAction(action); });
}

void TextWidget::ShowText(Document document, bool plain) {
    const QString toldBefore = ToldBeginning();
    document_ = std::move(document);
    text_ = std::make_shared<StringText>(document_.text);
    context_.plain = plain;
    ShowFromStart(toldBefore);
}

void TextWidget::ShowText(std::shared_ptr<const TextSource> text) {
    const QString toldBefore = ToldBeginning();
    document_ = Document();
    text_ = std::move(text);
    context_.plain = true;
    ShowFromStart(toldBefore);
}

void TextWidget::ShowFromStart(const QString& toldBefore) {
    context_.text = text_.get();
    const TextPos anchorBefore = std::exchange(anchor_, 0), caretBefore = std::exchange(caret_, 0);
    wantedX_.reset();
    pictures_.Forget();
    formats_.ForgetFonts();
    scroller_.ShowLine(0);
    horizontalScrollBar()->setValue(0);
    Relayout();
    TellOtherText(toldBefore);
    TellSelection(anchorBefore, caretBefore);
}

void TextWidget::SetLook(const ViewLook& look) {
    look_ = look;
    Relayout();
}

void TextWidget::Relayout() {
    formats_.Reset();
    layouts_.Forget();
    scroller_.LayoutsChanged();
    seenBlocks_.reset();
    viewport()->update();
    TellSeenSoon();
}

int TextWidget::BreakWidth(int viewWidth) const {
    if (look_.rightMargin <= 0) return viewWidth;
    return int(std::clamp(look_.rightMargin * context_.pixelsPerTwip, 1.0, double(widestLine)));
}

// Whether the screen has another resolution than before.
bool TextWidget::MeasureScreen() {
    pixelRatio_ = devicePixelRatioF();
    screen_.setDotsPerMeterX(qRound(logicalDpiX() * pixelRatio_ / metresPerInch));
    screen_.setDotsPerMeterY(qRound(logicalDpiY() * pixelRatio_ / metresPerInch));
    const double pixelsPerTwip = logicalDpiX() * pixelRatio_ / 1440;
    return std::exchange(context_.pixelsPerTwip, pixelsPerTwip) != pixelsPerTwip;
}

// A hidden widget gets no resize events: so its size is looked at when it matters.
void TextWidget::Fit() {
    const bool sameScreen = !MeasureScreen();
    const int whole = Pixels(maximumViewportSize().width());
    margin_ = std::max(Pixels(minMargin), whole / marginShare);
    const int room = std::max(1, whole - 2 * margin_);
    const int breakWidth = BreakWidth(room), viewWidth = std::min(room, breakWidth);
    setHorizontalScrollBarPolicy(breakWidth > room ? Qt::ScrollBarAlwaysOn
                                                   : Qt::ScrollBarAlwaysOff);
    const int height = std::max(1, Pixels(maximumViewportSize().height()));
    const bool sameHeight = height == scroller_.ViewHeight();
    if (!sameHeight) {
        scroller_.SetViewHeight(height);
        scroller_.LayoutsChanged();
        seenBlocks_.reset();
    }
    const bool sameWidth = breakWidth == context_.breakWidth && viewWidth == context_.viewWidth;
    if (sameScreen && sameWidth && sameHeight) return;
    if (!sameScreen || !sameWidth) {
        context_.breakWidth = breakWidth;
        context_.viewWidth = viewWidth;
        Relayout();
    }
    scroller_.SettleAtEnd();
}

TextScroller& TextWidget::Scroller() {
    Fit();
    return scroller_;
}

TextLayouts& TextWidget::Layouts() {
    Fit();
    return layouts_;
}

void TextWidget::Select(TextPos anchor, TextPos caret) {
    const TextPos size = text_->Length();
    const TextPos anchorBefore = std::exchange(anchor_, std::clamp(anchor, 0, size));
    const TextPos caretBefore = std::exchange(caret_, std::clamp(caret, 0, size));
    wantedX_.reset();
    RestartBlinking();
    viewport()->update();
    TellSelection(anchorBefore, caretBefore);
}

int TextWidget::LineHeight() const {
    return std::max(1, QFontMetrics(MakeFont(look_.font), context_.device).height());
}

int TextWidget::ColumnX(int viewX) const {
    return viewX - margin_ + horizontalScrollBar()->value();
}

TextPos TextWidget::PositionAtPoint(QPoint point) {
    const TextHeight height = Scroller().Moved(scroller_.Top(), Pixels(point.y()));
    return PositionAt(*layouts_.At(height.block), QPoint(ColumnX(Pixels(point.x())), height.y));
}

std::optional<QRect> TextWidget::CaretInView() {
    const auto top = Scroller().ViewTopOf(caret_);
    if (!top) return std::nullopt;
    QRect box = CaretBox(*layouts_.At(caret_), caret_).translated(-ColumnX(0), *top);
    box.setWidth(context_.Hairline());
    return box;
}

TextPos TextWidget::CharacterAtPoint(QPoint point) {
    const TextHeight height = Scroller().Moved(scroller_.Top(), Pixels(point.y()));
    return PositionAt(*layouts_.At(height.block), QPoint(ColumnX(Pixels(point.x())), height.y),
                      QTextLine::CursorOnCharacter);
}

QRect TextWidget::InWidget(const QRect& box) const {
    return QTransform::fromScale(1 / pixelRatio_, 1 / pixelRatio_)
        .mapRect(QRectF(box))
        .toAlignedRect();
}

QRect TextWidget::CaretRect() {
    const auto box = CaretInView();
    if (!box) return {};
    return InWidget(*box);
}

void TextWidget::ShowScrolled() {
    seenBlocks_.reset();
    viewport()->update();
    TellSeenSoon();
}

void TextWidget::paintEvent(QPaintEvent* event) {
    const TextHeight top = Scroller().Top();
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ToQColor(look_.backColor));
    const QRect clip =
        UseScreenPixels(painter, pixelRatio_).mapRect(QRectF(event->rect())).toAlignedRect();

    const auto group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    const TextPaint paint{context_,
                          PlainTextColor(look_, palette_),
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
    UpdateScrollBars(); // now the lines are known that say how far to the right there is anything
    for (const auto& [block, y] : shown)
        PaintBackground(painter, *block, QPoint(-ColumnX(0), y));
    for (const auto& [block, y] : shown)
        PaintBlock(painter, paint, *block, QPoint(-ColumnX(0), y), clip);
    const auto caret = caretOn_ && hasFocus() ? CaretInView() : std::nullopt;
    if (caret) painter.fillRect(*caret, CaretColor());
}

QColor TextWidget::CaretColor() const {
    const QColor text = PlainTextColor(look_, palette_), back = ToQColor(look_.backColor);
    return Contrast(text, back) ? text : ReadableOn(back);
}

// Done when painting: then the shown blocks are laid out anyway, and a book that is only opened and
// scrolled to its place is not laid out twice.
void TextWidget::UpdateScrollBars() {
    QScrollBar& vertical = *verticalScrollBar();
    if (!vertical.isSliderDown()) {
        const TextPos value = scroller_.TopAsChar();
        const TextPos page = scroller_.BottomAsChar() - value;
        vertical.setRange(0, std::max(value, scroller_.LastTopAsChar()));
        vertical.setPageStep(std::max(1, page));
        vertical.setValue(value);
    }
    const int width = ViewWidth();
    horizontalScrollBar()->setRange(0, std::max(0, layouts_.Width() + 2 * margin_ - width));
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(LineHeight());
}

void TextWidget::VerticalAction(int action) {
    QScrollBar& bar = *verticalScrollBar();
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd: Scroller().ScrollLines(1, LineHeight()); break;
    case QAbstractSlider::SliderSingleStepSub: Scroller().ScrollLines(-1, LineHeight()); break;
    case QAbstractSlider::SliderPageStepAdd: Scroller().ScrollPage(true, LineHeight()); break;
    case QAbstractSlider::SliderPageStepSub: Scroller().ScrollPage(false, LineHeight()); break;
    default: Scroller().ScrollToChar(bar.sliderPosition()); break;
    }
    if (!bar.isSliderDown()) bar.setSliderPosition(scroller_.TopAsChar());
    ShowScrolled();
}

void TextWidget::resizeEvent(QResizeEvent*) {
    Fit();
}

// The vertical bar is handled by its actions; the horizontal one needs only a repaint.
void TextWidget::scrollContentsBy(int dx, int) {
    if (dx != 0) viewport()->update();
}

void TextWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    palette_ = palette();
    Relayout();
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
    if (event->timerId() == tellSeen_.timerId()) return TellSeen();
    if (event->timerId() != blink_.timerId()) return QAbstractScrollArea::timerEvent(event);
    caretOn_ = !caretOn_;
    viewport()->update(CaretRect());
}

void TextWidget::focusOutEvent(QFocusEvent*) {
    RestartBlinking();
    viewport()->update();
}
