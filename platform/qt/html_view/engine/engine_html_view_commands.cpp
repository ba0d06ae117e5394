// The orders for the page, and what is kept of it afterwards.
#include "platform/qt/html_view/engine/engine_html_view.h"
#include "platform/qt/html_view/engine/page_calls.h"
#include "platform/qt/html_view/engine/page_watch.h"
#include "platform/qt/html_view/engine/page_widget.h"
#include "platform/qt/html_view/engine/print_job.h"
#include "platform/qt/html_view/engine/reader_page.h"

#include <QVariant>

#include <algorithm>
#include <limits>

// What is kept may be another afterwards: an older state does not count any more.
void EngineHtmlView::Order(const QString& expression) {
    if (!CanCall()) return;
    ++changes_;
    calls_->Call(expression, StateTaker());
}

std::function<void(const QVariant&)> EngineHtmlView::StateTaker() {
    return [this, asked = changes_, alive = QPointer<QObject>(page_.get())](const QVariant& state) {
        if (alive && alive == page_.get() && asked == changes_) TakeState(state);
    };
}

// What happens many times before the page has answered is asked for once.
void EngineHtmlView::Refresh() {
    if (!CanCall() || refreshing_) return;
    refreshing_ = true;
    QMetaObject::invokeMethod(
        page_.get(),
        [this] {
            refreshing_ = false;
            calls_->AskState(StateTaker());
        },
        Qt::QueuedConnection);
}

void EngineHtmlView::TakeState(const QVariant& state) {
    const QVariantList list = state.toList();
    if (list.size() != 6) return;
    const auto number = [&list](int i) { return list[i].toInt(); };
    kept_.scrollTop = number(0);
    kept_.zoomSteps = calls_->ZoomSteps();
    kept_.viewHeight = number(1);
    kept_.topMargin = number(2);
    kept_.selection = {{number(3), number(4)}, number(5)};
    widget_->SetHasSelection(number(4) > 0);
}

void EngineHtmlView::ScrollTo(int left, int top) {
    if (!CanCall()) return;
    kept_.scrollTop = std::max(top, 0);
    kept_.zoomSteps = zoom_.Steps(); // sizes ordered before are there by then
    Order(QStringLiteral("scrollTo(%1, %2)").arg(left).arg(top));
}

void EngineHtmlView::ScrollSpanToTop(const PageSpan& span) {
    Order(QStringLiteral("scrollSpanToTop(%1)").arg(span.start));
}

// A command that asks for the selection at once finds what was ordered.
void EngineHtmlView::Select(const PageSpan& span) {
    if (!CanCall()) return;
    kept_.selection.span = span;
    Order(QStringLiteral("select(%1, %2)").arg(span.start).arg(span.length));
}

void EngineHtmlView::SelectAll() {
    if (CanCall() && kept_.text) kept_.selection.span = {0, std::numeric_limits<TextPos>::max()};
    Order(QStringLiteral("selectAll()"));
}

namespace {
QString ColorName(std::uint32_t redGreenBlue) {
    return QStringLiteral("#%1").arg(redGreenBlue & 0xFFFFFF, 6, 16, QLatin1Char('0'));
}
} // namespace

void EngineHtmlView::SetBackColor(std::uint32_t redGreenBlue) {
    Order(QStringLiteral("setBackColor('%1')").arg(ColorName(redGreenBlue)));
}

void EngineHtmlView::SetTextColor(std::optional<std::uint32_t> redGreenBlue) {
    const QString color = redGreenBlue ? ColorName(*redGreenBlue) : QString();
    Order(QStringLiteral("setLetterColor('%1')").arg(color));
}
