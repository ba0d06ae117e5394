// Commands to the page, and the snapshot of its state that they update.
#include "common/colors.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/html_view/engine/engine_html_view.h"
#include "platform/qt/html_view/engine/page_calls.h"
#include "platform/qt/html_view/engine/page_monitor.h"
#include "platform/qt/html_view/engine/page_widget.h"
#include "platform/qt/html_view/engine/print_job.h"
#include "platform/qt/html_view/engine/reader_page.h"

#include <QVariant>

#include <algorithm>
#include <limits>

// Replies to earlier calls no longer update the snapshot.
void EngineHtmlView::Execute(const QString& expression) {
    if (!CanCall()) return;
    ++revision_;
    calls_->Call(expression, StateHandler());
}

std::function<void(const QVariant&)> EngineHtmlView::StateHandler() {
    return [this, revision = revision_,
            alive = QPointer<QObject>(page_.get())](const QVariant& state) {
        if (alive && alive == page_.get() && revision == revision_) ApplyState(state);
    };
}

// Many events before the reply are answered by one query.
void EngineHtmlView::ScheduleStateUpdate() {
    if (!CanCall() || updateScheduled_) return;
    updateScheduled_ = true;
    PostForPage([this] {
        updateScheduled_ = false;
        calls_->QueryState(StateHandler());
    });
}

void EngineHtmlView::ApplyState(const QVariant& state) {
    const QVariantList list = state.toList();
    if (list.size() != 12) return;
    const auto number = [&list](int i) { return list[i].toInt(); };
    snapshot_.top = {
        number(0), number(7), number(8), FromQt(list[9].toString()), FromQt(list[10].toString()),
        number(11)};
    snapshot_.zoomSteps = calls_->ZoomSteps();
    snapshot_.viewHeight = number(1);
    snapshot_.topMargin = number(2);
    snapshot_.selection = {{number(3), number(4)}, number(5)};
    snapshot_.percent = number(6);
    widget_->SetHasSelection(number(4) > 0);
}

void EngineHtmlView::ScrollTo(int left, int top) {
    if (!CanCall()) return;
    snapshot_.top = {.offset = std::max(top, 0)};
    snapshot_.zoomSteps = zoom_.Steps(); // zoom steps queued before are applied by then
    Execute(QStringLiteral("scrollTo(%1, %2)").arg(left).arg(top));
}

void EngineHtmlView::ScrollToPercent(int percent) {
    Execute(QStringLiteral("scrollToPercent(%1)").arg(percent));
}

void EngineHtmlView::ScrollSpanToTop(const PageSpan& span) {
    Execute(QStringLiteral("scrollSpanToTop(%1)").arg(span.start));
}

void EngineHtmlView::BringToTop(const PageTop& top) {
    if (!CanCall()) return;
    snapshot_.top = top;
    snapshot_.zoomSteps = zoom_.Steps();
    Execute(QStringLiteral("bringToTop(%1, %2, %3)").arg(top.offset).arg(top.start).arg(top.above));
}

// Updated at once, so that a command that reads the selection next sees it.
void EngineHtmlView::Select(const PageSpan& span) {
    if (!CanCall()) return;
    snapshot_.selection.span = span;
    Execute(QStringLiteral("select(%1, %2)").arg(span.start).arg(span.length));
}

void EngineHtmlView::SelectAll() {
    if (CanCall() && snapshot_.text)
        snapshot_.selection.span = {0, std::numeric_limits<TextPos>::max()};
    Execute(QStringLiteral("selectAll()"));
}

namespace {
QString ColorName(Color color) {
    return QStringLiteral("#%1").arg(SwapColorOrder(color), 6, 16, QLatin1Char('0'));
}
} // namespace

void EngineHtmlView::SetBackColor(Color color) {
    Execute(QStringLiteral("setBackColor('%1')").arg(ColorName(color)));
}

void EngineHtmlView::SetTextColor(std::optional<Color> color) {
    const QString name = color ? ColorName(*color) : QString();
    Execute(QStringLiteral("setTextColor('%1')").arg(name));
}
