#include "platform/qt/text_view/text_widget.h"

#include "common/string_text.h"
#include "platform/qt/text_view/accessibility/accessible_text.h"

#include <QEvent>
#include <QFontMetrics>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int minMargin = 6, marginDivisor = 40; // device-independent pixels; a share of the width
constexpr int maxLineWidth = 1 << 24;            // pixels; half the range of QFixed
constexpr double metresPerInch = 0.0254;
} // namespace

TextWidget::TextWidget(QWidget* parent)
    : QAbstractScrollArea(parent), text_(std::make_shared<StringText>(document_.text)),
      palette_(palette()), formats_(document_, viewStyle_, palette_),
      pictures_(document_), context_{document_, viewStyle_, formats_, pictures_},
      layouts_(context_), scroller_(layouts_) {
    AccessibleText::Install();
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    context_.device = &screen_;
    UpdateResolution();
    context_.text = text_.get();
    verticalScrollBar()->installEventFilter(this);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this](int action) { OnVerticalAction(action); });
}

void TextWidget::ShowText(Document document, bool plain) {
    const QString oldText = AccessibleBeginning();
    document_ = std::move(document);
    text_ = std::make_shared<StringText>(document_.text);
    context_.plain = plain;
    ResetView(oldText);
}

void TextWidget::ShowText(std::shared_ptr<const TextSource> text) {
    const QString oldText = AccessibleBeginning();
    document_ = Document();
    text_ = std::move(text);
    context_.plain = true;
    ResetView(oldText);
}

void TextWidget::ResetView(const QString& oldText) {
    context_.text = text_.get();
    const TextPos anchorBefore = std::exchange(anchor_, 0), caretBefore = std::exchange(caret_, 0);
    preferredX_.reset();
    pictures_.Clear();
    formats_.ClearFonts();
    scroller_.ScrollLineToTop(0);
    horizontalScrollBar()->setValue(0);
    Relayout();
    NotifyTextChanged(oldText);
    NotifySelectionChanged(anchorBefore, caretBefore);
}

void TextWidget::SetViewStyle(const ViewStyle& style) {
    viewStyle_ = style;
    Relayout();
}

void TextWidget::Relayout() {
    formats_.Reset();
    layouts_.Clear();
    scroller_.LayoutsChanged();
    visibleSpan_.reset();
    viewport()->update();
    ScheduleVisibleDataChanged();
}

int TextWidget::BreakWidth(int viewWidth) const {
    if (viewStyle_.rightMargin <= 0) return viewWidth;
    return int(
        std::clamp(viewStyle_.rightMargin * context_.pixelsPerTwip, 1.0, double(maxLineWidth)));
}

// Returns whether the resolution has changed.
bool TextWidget::UpdateResolution() {
    pixelRatio_ = devicePixelRatioF();
    screen_.setDotsPerMeterX(qRound(logicalDpiX() * pixelRatio_ / metresPerInch));
    screen_.setDotsPerMeterY(qRound(logicalDpiY() * pixelRatio_ / metresPerInch));
    const double pixelsPerTwip = logicalDpiX() * pixelRatio_ / 1440;
    return std::exchange(context_.pixelsPerTwip, pixelsPerTwip) != pixelsPerTwip;
}

// Called before the layout is used, because a hidden widget gets no resize event.
void TextWidget::UpdateLayoutSize() {
    const bool sameScreen = !UpdateResolution();
    const int whole = Pixels(maximumViewportSize().width());
    margin_ = std::max(Pixels(minMargin), whole / marginDivisor);
    const int room = std::max(1, whole - 2 * margin_);
    const int breakWidth = BreakWidth(room), viewWidth = std::min(room, breakWidth);
    setHorizontalScrollBarPolicy(breakWidth > room ? Qt::ScrollBarAlwaysOn
                                                   : Qt::ScrollBarAlwaysOff);
    const int height = std::max(1, Pixels(maximumViewportSize().height()));
    const bool sameHeight = height == scroller_.ViewHeight();
    if (!sameHeight) {
        scroller_.SetViewHeight(height);
        scroller_.LayoutsChanged();
        visibleSpan_.reset();
    }
    const bool sameWidth = breakWidth == context_.breakWidth && viewWidth == context_.viewWidth;
    if (sameScreen && sameWidth && sameHeight) return;
    if (!sameScreen || !sameWidth) {
        context_.breakWidth = breakWidth;
        context_.viewWidth = viewWidth;
        Relayout();
    }
    scroller_.KeepEndAtBottom();
}

TextScroller& TextWidget::Scroller() {
    UpdateLayoutSize();
    return scroller_;
}

TextLayouts& TextWidget::Layouts() {
    UpdateLayoutSize();
    return layouts_;
}

void TextWidget::Select(TextPos anchor, TextPos caret) {
    const TextPos size = text_->Length();
    const TextPos anchorBefore = std::exchange(anchor_, std::clamp(anchor, 0, size));
    const TextPos caretBefore = std::exchange(caret_, std::clamp(caret, 0, size));
    preferredX_.reset();
    RestartBlinking();
    viewport()->update();
    NotifySelectionChanged(anchorBefore, caretBefore);
}

int TextWidget::LineHeight() const {
    return std::max(1, QFontMetrics(MakeFont(viewStyle_.font), context_.device).height());
}

int TextWidget::ToTextX(int viewX) const {
    return viewX - margin_ + horizontalScrollBar()->value();
}

TextPos TextWidget::PositionAtPoint(QPoint point) {
    const VerticalPos height = Scroller().Moved(scroller_.Top(), Pixels(point.y()));
    return PositionAt(*layouts_.At(height.block), QPoint(ToTextX(Pixels(point.x())), height.y));
}

std::optional<QRect> TextWidget::CaretInView() {
    const auto top = Scroller().BlockTopInView(caret_);
    if (!top) return std::nullopt;
    QRect box = CaretBox(*layouts_.At(caret_), caret_).translated(-ToTextX(0), *top);
    box.setWidth(context_.Hairline());
    return box;
}

TextPos TextWidget::CharacterAtPoint(QPoint point) {
    const VerticalPos height = Scroller().Moved(scroller_.Top(), Pixels(point.y()));
    return PositionAt(*layouts_.At(height.block), QPoint(ToTextX(Pixels(point.x())), height.y),
                      QTextLine::CursorOnCharacter);
}

QRect TextWidget::ToWidget(const QRect& box) const {
    return QTransform::fromScale(1 / pixelRatio_, 1 / pixelRatio_)
        .mapRect(QRectF(box))
        .toAlignedRect();
}

QRect TextWidget::CaretRect() {
    const auto box = CaretInView();
    if (!box) return {};
    return ToWidget(*box);
}

void TextWidget::resizeEvent(QResizeEvent*) {
    UpdateLayoutSize();
}

void TextWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    palette_ = palette();
    Relayout();
}
